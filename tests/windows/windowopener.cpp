// windowopener OUTPUT KIND TITLE [KIND TITLE...]
//
// Opens windows, each red with a blue edge one pixel wide, and writes to a file what happens to them: "active
// TITLE", "closed TITLE" and "command NUMBER". Of the kinds, "window" is nothing special and has no frame,
// "framed" has one, "minimized" is minimised, "dialog" belongs to the window before it and "child" stands
// inside it, "huge" is 9000 pixels wide, "slow" takes a moment to close, and "hanging" makes the program take
// no message any more.

#include <windows.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

int windowCount = 0;

struct Kind
{
    DWORD style = WS_POPUP | WS_VISIBLE;
    int width = 91;
    bool hasParent = false;
    int top = 100;
};

const std::map<std::wstring, Kind> kinds{
    {L"framed", {WS_OVERLAPPEDWINDOW | WS_VISIBLE}},
    {L"minimized", {WS_POPUP | WS_VISIBLE | WS_MINIMIZE | WS_MINIMIZEBOX}},
    {L"dialog", {WS_POPUP | WS_VISIBLE, 91, true}},
    {L"child", {WS_CHILD | WS_VISIBLE, 91, true}},
    {L"huge", {WS_POPUP | WS_VISIBLE, 9000, false, 300}},
};

void tell(const char *event, HWND window)
{
    char title[100]{};
    GetWindowTextA(window, title, sizeof(title));
    std::printf("%s %s\n", event, title);
    std::fflush(stdout);
}

void paint(HWND window)
{
    PAINTSTRUCT area;
    const HDC context = BeginPaint(window, &area);
    RECT inside{};
    GetClientRect(window, &inside);
    static const HBRUSH brushes[] = {CreateSolidBrush(RGB(0, 0, 255)), CreateSolidBrush(RGB(255, 0, 0))};
    for (const HBRUSH brush : brushes) {
        FillRect(context, &inside, brush);
        InflateRect(&inside, -1, -1);
    }
    EndPaint(window, &area);
}

LRESULT CALLBACK takeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        paint(window);
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE)
            tell("active", window);
        break;
    case WM_COMMAND:
        std::printf("command %d\n", static_cast<int>(wParam));
        std::fflush(stdout);
        return 0;
    case WM_CLOSE:
        if (GetWindowLongPtrW(window, GWLP_USERDATA) != 0)
            Sleep(300);
        tell("closed", window);
        break;
    case WM_DESTROY:
        if (--windowCount == 0)
            PostQuitMessage(0);
        return 0;
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

int wmain(int argc, wchar_t **argv)
{
    if (argc < 2 || !_wfreopen(argv[1], L"w", stdout))
        return 1;
    WNDCLASSW description{};
    description.lpfnWndProc = takeMessage;
    description.lpszClassName = L"Opened";
    RegisterClassW(&description);
    bool isHanging = false;
    HWND before = nullptr;
    for (int i = 2; i + 1 < argc; i += 2) {
        const std::wstring name = argv[i];
        const auto found = kinds.find(name);
        const Kind kind = found == kinds.end() ? Kind() : found->second;
        ++windowCount;
        const HWND window =
            CreateWindowExW(0, L"Opened", argv[i + 1], kind.style, 50 * i, kind.top, kind.width, 61,
                            kind.hasParent ? before : nullptr, nullptr, nullptr, nullptr);
        if (name == L"slow")
            SetWindowLongPtrW(window, GWLP_USERDATA, 1);
        isHanging = isHanging || name == L"hanging";
        before = window;
    }
    if (isHanging) {
        tell("hanging", before);
        Sleep(INFINITE);
    }
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}
