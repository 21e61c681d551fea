#pragma once

#include "platform/messagebox.h"

namespace platform {

/// Message boxes on a desktop. From another thread than the GUI thread a box is put on its way there, and not
/// waited for. Without a screen, the text goes to standard error as "[caption] text".
class DesktopMessageBox : public NativeMessageBox
{
public:
    void show(const std::u16string &text, const std::u16string &caption) override;
};

} // namespace platform
