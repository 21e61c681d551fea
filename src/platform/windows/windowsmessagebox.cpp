#include "platform/windows/windowsmessagebox.h"

#include "platform/windows/widetext.h"

namespace platform {

void WindowsMessageBox::show(const std::u16string &text, const std::u16string &caption)
{
    MessageBoxW(nullptr, wide(text), wide(caption), MB_OK);
}

} // namespace platform
