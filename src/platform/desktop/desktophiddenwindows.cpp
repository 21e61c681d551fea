#include "platform/desktop/desktophiddenwindows.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtCore/QString>

#include <utility>

namespace platform {

struct DesktopHiddenWindows::Registrations
{
    QSet<QString> classNames; ///< case-folded: letter case makes no other class
    QHash<WindowHandle, Window *> windows;
    WindowHandle nextHandle = WindowHandle(1) << 48; ///< far above those of other kinds of windows
};

class DesktopHiddenWindows::Window : public HiddenWindow
{
public:
    Window(const std::shared_ptr<Registrations> &registrations,
           const std::shared_ptr<const WindowProcedure> &procedure)
        : m_registrations(registrations)
        , m_procedure(procedure)
        , m_handle(registrations->nextHandle++)
    {
        m_registrations->windows.insert(m_handle, this);
    }
    ~Window() override { m_registrations->windows.remove(m_handle); }
    Q_DISABLE_COPY_MOVE(Window)

    WindowHandle handle() const override { return m_handle; }

    void post(const WindowMessage &message)
    {
        // The procedure may destroy the window, and its class as well.
        const auto take = [procedure = m_procedure, message] { (*procedure)(message); };
        QMetaObject::invokeMethod(&m_queue, take, Qt::QueuedConnection);
    }

private:
    const std::shared_ptr<Registrations> m_registrations;
    const std::shared_ptr<const WindowProcedure> m_procedure;
    const WindowHandle m_handle;
    QObject m_queue; ///< drops what waits in it when it is destroyed
};

class DesktopHiddenWindows::Class : public HiddenWindowClass
{
public:
    Class(const std::shared_ptr<Registrations> &registrations, const QString &foldedName,
          WindowProcedure procedure)
        : m_registrations(registrations)
        , m_foldedName(foldedName)
        , m_procedure(std::make_shared<const WindowProcedure>(std::move(procedure)))
    {
        m_registrations->classNames.insert(m_foldedName);
    }
    ~Class() override { m_registrations->classNames.remove(m_foldedName); }
    Q_DISABLE_COPY_MOVE(Class)

    std::unique_ptr<HiddenWindow> createWindow() override
    {
        return std::make_unique<Window>(m_registrations, m_procedure);
    }

private:
    const std::shared_ptr<Registrations> m_registrations;
    const QString m_foldedName;
    const std::shared_ptr<const WindowProcedure> m_procedure;
};

DesktopHiddenWindows::DesktopHiddenWindows()
    : m_registrations(std::make_shared<Registrations>())
{
}

DesktopHiddenWindows::~DesktopHiddenWindows() = default;

std::unique_ptr<HiddenWindowClass> DesktopHiddenWindows::registerClass(const std::u16string &name,
                                                                       WindowProcedure procedure)
{
    const QString foldedName = QString::fromStdU16String(name).toCaseFolded();
    if (foldedName.isEmpty() || !procedure || m_registrations->classNames.contains(foldedName))
        return nullptr;
    return std::make_unique<Class>(m_registrations, foldedName, std::move(procedure));
}

bool DesktopHiddenWindows::post(WindowHandle window, const WindowMessage &message)
{
    Window *const found = m_registrations->windows.value(window);
    if (found)
        found->post(message);
    return found != nullptr;
}

} // namespace platform
