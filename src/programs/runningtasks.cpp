#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "platform/platform.h"
#include "platform/toplevelwindows.h"
#include "programs/iconextraction.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace {

using platform::WindowHandle;

enum class PictureMode { None, Icons, Snapshots };

constexpr int titleBuffer = 254;
constexpr int programFileBuffer = 1024;

/// Parts of the system, of the host, and of this provider, that are no tasks.
const QLatin1String skippedTitles[] = {QLatin1String("Desktop"), QLatin1String("HOLM"),
                                       QLatin1String("MS_SIPBUTTON"), QLatin1String("Programs")};

PictureMode pictureMode(const QScriptValue &argument)
{
    const QString mode = argument.isNull() ? QStringLiteral("none") : argument.toString();
    if (mode == QLatin1String("none"))
        return PictureMode::None;
    return mode == QLatin1String("icons") ? PictureMode::Icons : PictureMode::Snapshots;
}

bool isTaskWindow(platform::TopLevelWindows &windows, WindowHandle window)
{
    return (windows.style(window) & platform::childStyle) == 0 && windows.exists(window)
        && windows.isVisible(window) && !windows.parent(window);
}

bool isTaskTitle(const QString &title)
{
    return !title.isEmpty()
        && std::find(std::begin(skippedTitles), std::end(skippedTitles), title) == std::end(skippedTitles);
}

/// Makes the entries of a list of tasks.
class TaskList
{
public:
    TaskList(IApplication &application, const QString &prefix, PictureMode mode)
        : m_application(application)
        , m_windows(platform::current().windows())
        , m_prefix(prefix)
        , m_mode(mode)
        , m_entries(application.newArray(0))
    {
    }

    QScriptValue entries() const { return m_entries; }

    void add(WindowHandle window)
    {
        const QString title = isTaskWindow(m_windows, window)
            ? QString::fromStdU16String(m_windows.title(window, titleBuffer))
            : QString();
        if (!isTaskTitle(title))
            return;
        QScriptValue entry = m_application.newObject();
        entry.setProperty(QStringLiteral("name"), title);
        entry.setProperty(QStringLiteral("hWnd"), static_cast<qsreal>(window));
        const QString picture = publishPicture(window);
        if (!picture.isEmpty())
            entry.setProperty(QStringLiteral("imgRes"), picture);
        m_entries.setProperty(m_next++, entry);
    }

private:
    /// The name that the window's picture is published under. Empty if it is to have none.
    QString publishPicture(WindowHandle window)
    {
        QPixmap picture;
        if (m_mode == PictureMode::None)
            return QString();
        if (m_mode == PictureMode::Icons) {
            const QString program =
                QString::fromStdU16String(m_windows.programFile(window, programFileBuffer));
            if (program.isEmpty())
                return QString();
            picture = extractIconPixmap(program, true, 0, 0);
        } else {
            const QImage snapshot = toImage(m_windows.snapshot(window));
            picture = QPixmap::fromImage(snapshot.convertToFormat(QImage::Format_RGB32));
        }
        if (!picture.isNull())
            return m_application.addImageResource(m_prefix + QString::number(window), picture);
        return m_application.addImageFileResource(m_application.isVGA()
                                                      ? QStringLiteral("images/app/exe.vga.png")
                                                      : QStringLiteral("images/app/exe.png"));
    }

    IApplication &m_application;
    platform::TopLevelWindows &m_windows;
    const QString m_prefix;
    const PictureMode m_mode;
    QScriptValue m_entries;
    quint32 m_next = 0;
};

/// Frees the pictures of a list of tasks, as far as its first undefined element.
void freePictures(IApplication &application, const QScriptValue &list)
{
    quint32 index = 0;
    for (QScriptValue entry = list.property(index); entry.isValid() && !entry.isUndefined();
         entry = list.property(++index)) {
        const QScriptValue picture = entry.property(QStringLiteral("imgRes"));
        if (picture.isValid() && !picture.isUndefined())
            application.removeImageResource(picture.toString());
    }
}

/// The window that an entry stands for; nothing if it names none.
std::optional<WindowHandle> windowOf(const QScriptValue &entry)
{
    constexpr qsreal largest = 9007199254740991; // of the whole numbers that scripts have
    const QScriptValue handle = entry.property(QStringLiteral("hWnd"));
    const qsreal number = handle.isValid() && !handle.isUndefined() ? handle.toInteger() : -1;
    return number >= 0 && number <= largest ? std::optional(static_cast<WindowHandle>(number)) : std::nullopt;
}

} // namespace

void KestCommandProvider::runningProcesses(FunctionArguments *arguments)
{
    if (!checkArguments("runningProcesses", *arguments,
                        {4,
                         5,
                         {ArgumentType::String, ArgumentType::String | ArgumentType::Null,
                          ArgumentType::Object, ArgumentType::Function}}))
        return;

    if (arguments->argumentCount() == 5 && arguments->argument(4).isArray())
        freePictures(*m_application, arguments->argument(4));
    TaskList tasks(*m_application, arguments->argument(0).toString(), pictureMode(arguments->argument(1)));
    platform::current().windows().enumerate([&tasks](WindowHandle window) {
        tasks.add(window);
        return true;
    });
    answer(arguments->argument(2), arguments->argument(3), {tasks.entries()});
}

void KestCommandProvider::focusWindow(FunctionArguments *arguments)
{
    if (!checkArguments("focusWindow", *arguments, {1, 1, {ArgumentType::Object}}))
        return;
    if (const auto window = windowOf(arguments->argument(0)))
        platform::current().windows().setForeground(*window);
}

void KestCommandProvider::closeWindow(FunctionArguments *arguments)
{
    // Both functions on one window report bad arguments by the same name.
    if (!checkArguments("focusWindow", *arguments, {1, 1, {ArgumentType::Object}}))
        return;
    if (const auto window = windowOf(arguments->argument(0)))
        platform::current().windows().close(*window);
}

void KestCommandProvider::clearRunningProcessesResources(FunctionArguments *arguments)
{
    if (checkArguments("clearRunningProcessesResources", *arguments, {1, 1, {ArgumentType::Array}}))
        freePictures(*m_application, arguments->argument(0));
}
