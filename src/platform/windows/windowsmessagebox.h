#pragma once

#include "platform/messagebox.h"

namespace platform {

/// The system's box, without an owner. On every thread it returns when the user has closed it.
class WindowsMessageBox : public NativeMessageBox
{
public:
    void show(const std::u16string &text, const std::u16string &caption) override;
};

} // namespace platform
