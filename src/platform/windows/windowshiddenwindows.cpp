#include "platform/windows/windowshiddenwindows.h"

#include "platform/windows/seams/moduleseam.h"
#include "platform/windows/widetext.h"
#include "platform/windows/windowhandles.h"

#include <map>
#include <utility>

namespace platform {

namespace {

constexpr int hollowBrush = 5;

using SharedProcedure = std::shared_ptr<const WindowProcedure>;

/// The procedures of all windows that there are; of the GUI thread alone.
std::map<HWND, SharedProcedure> &procedures()
{
    static std::map<HWND, SharedProcedure> all;
    return all;
}

LRESULT CALLBACK takeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto found = procedures().find(window);
    // The procedure may destroy the window, and its class as well.
    const SharedProcedure procedure = found == procedures().end() ? nullptr : found->second;
    // Others may close it, and its handle may then be another window's.
    if (message == WM_DESTROY)
        procedures().erase(window);
    if (procedure && (*procedure)({message, wParam, lParam}))
        return 0;
    return DefWindowProcW(window, message, wParam, lParam);
}

class Window : public HiddenWindow
{
public:
    Window(HWND window, const SharedProcedure &procedure)
        : m_window(window)
    {
        procedures().emplace(m_window, procedure);
    }
    ~Window() override
    {
        if (procedures().erase(m_window) > 0)
            DestroyWindow(m_window);
    }
    Window(const Window &) = delete;
    Window &operator=(const Window &) = delete;

    WindowHandle handle() const override { return handleOf(m_window); }

private:
    const HWND m_window;
};

class Class : public HiddenWindowClass
{
public:
    /// The class is registered already.
    Class(const std::u16string &name, WindowProcedure procedure)
        : m_name(name)
        , m_procedure(std::make_shared<const WindowProcedure>(std::move(procedure)))
    {
    }
    ~Class() override { UnregisterClassW(wide(m_name), moduleseam::ownModule()); }
    Class(const Class &) = delete;
    Class &operator=(const Class &) = delete;

    std::unique_ptr<HiddenWindow> createWindow() override
    {
        const HWND window = CreateWindowExW(0, wide(m_name), nullptr, 0, 0, 0, 0, 0, nullptr, nullptr,
                                            moduleseam::ownModule(), nullptr);
        return window ? std::make_unique<Window>(window, m_procedure) : nullptr;
    }

private:
    const std::u16string m_name;
    const SharedProcedure m_procedure;
};

} // namespace

std::unique_ptr<HiddenWindowClass> WindowsHiddenWindows::registerClass(const std::u16string &name,
                                                                       WindowProcedure procedure)
{
    WNDCLASSW description{};
    description.style = CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = takeMessage;
    description.hInstance = moduleseam::ownModule();
    description.hbrBackground = static_cast<HBRUSH>(GetStockObject(hollowBrush));
    description.lpszClassName = wide(name);
    if (!procedure || RegisterClassW(&description) == 0)
        return nullptr;
    return std::make_unique<Class>(name, std::move(procedure));
}

} // namespace platform
