#pragma once

#include <string>

namespace platform {

/// The system's own message box. (Windows makes MessageBox a macro.)
class NativeMessageBox
{
public:
    virtual ~NativeMessageBox() = default;

    /// Shows a text under a caption, with nothing to answer (MessageBoxW). May be called from any thread and
    /// never waits for another: on the GUI thread it returns when the user has closed the box, elsewhere it
    /// may return before.
    virtual void show(const std::u16string &text, const std::u16string &caption) = 0;
};

} // namespace platform
