#include "contracts/programfolder.h"
#include "contracts/toplevelwindows.h"

#include "platform/windows/handles.h"
#include "platform/windows/widetext.h"
#include "platform/windows/windowhandles.h"
#include "platform/windows/windowshiddenwindows.h"
#include "platform/windows/windowstoplevelwindows.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace contracts {

namespace {

std::filesystem::path openerFile()
{
    return programFolder() / "windowopener.exe";
}

class Opener : public WindowOpener
{
public:
    explicit Opener(const std::vector<std::u16string> &windows)
    {
        std::wstring line = L'"' + openerFile().native() + L'"';
        for (const std::u16string &argument : windows)
            line += L" \"" + std::filesystem::path(argument).native() + L'"';
        HANDLE output = nullptr;
        HANDLE input = nullptr;
        SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        EXPECT_TRUE(CreatePipe(&output, &input, &inheritable, 0));
        m_output.reset(output);
        const platform::UniqueHandle inputOfProgram(input);
        STARTUPINFOW start{};
        start.cb = sizeof(start);
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = input;
        start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
        PROCESS_INFORMATION process{};
        EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                                   &process))
            << openerFile();
        CloseHandle(process.hThread);
        m_process.reset(process.hProcess);
    }
    ~Opener() override
    {
        TerminateProcess(m_process.get(), 0);
        WaitForSingleObject(m_process.get(), INFINITE);
    }
    Opener(const Opener &) = delete;
    Opener &operator=(const Opener &) = delete;

    std::u16string file() const override { return openerFile().u16string(); }

    std::string readLine() override
    {
        constexpr ULONGLONG longestWait = 20000;
        const ULONGLONG end = GetTickCount64() + longestWait;
        std::string line;
        char letter = '\0';
        DWORD count = 0;
        while (letter != '\n' && PeekNamedPipe(m_output.get(), nullptr, 0, nullptr, &count, nullptr)) {
            if (count > 0 && ReadFile(m_output.get(), &letter, 1, &count, nullptr)) {
                line.push_back(letter);
            } else if (GetTickCount64() > end) {
                ADD_FAILURE() << "The program says no more.";
                return {};
            } else {
                Sleep(5);
            }
        }
        if (letter == '\n')
            line.pop_back();
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        return line;
    }

private:
    platform::UniqueHandle m_output;
    platform::UniqueHandle m_process;
};

class Target : public MessageTarget
{
public:
    explicit Target(const std::u16string &title)
    {
        SetWindowTextW(platform::windowOf(m_window->handle()), platform::wide(title));
    }

    platform::TopLevelWindows &windows() override { return m_windows; }

private:
    platform::WindowsTopLevelWindows m_windows;
    platform::WindowsHiddenWindows m_hiddenWindows;
    const std::unique_ptr<platform::HiddenWindowClass> m_class =
        m_hiddenWindows.registerClass(u"Target", [this](const platform::WindowMessage &message) {
            const bool isPosted = message.message == WM_COMMAND || message.message >= WM_APP;
            if (isPosted)
                taken.push_back(message);
            return isPosted;
        });
    const std::unique_ptr<platform::HiddenWindow> m_window = m_class->createWindow();
};

} // namespace

std::unique_ptr<WindowOpener> openWindows(const std::vector<std::u16string> &windows)
{
    return std::make_unique<Opener>(windows);
}

std::unique_ptr<MessageTarget> makeTarget(const std::u16string &title)
{
    return std::make_unique<Target>(title);
}

} // namespace contracts
