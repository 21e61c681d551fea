// valuewriter KEY NAME TEXT
//
// Writes a value below HKEY_CURRENT_USER: the letters of the text, a byte each.

#include <windows.h>

#include <string>

int wmain(int argc, wchar_t **argv)
{
    if (argc != 4)
        return 1;
    const std::wstring text = argv[3];
    const std::string bytes(text.begin(), text.end());
    return RegSetKeyValueW(HKEY_CURRENT_USER, argv[1], argv[2], REG_BINARY, bytes.data(),
                           static_cast<DWORD>(bytes.size()));
}
