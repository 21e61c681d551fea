#pragma once

#include "platform/hiddenwindows.h"

#include <memory>

namespace platform {

/// Hidden windows of this process. Their messages wait in the event queue of the GUI thread, so a
/// QCoreApplication has to be there.
class DesktopHiddenWindows : public HiddenWindows
{
public:
    DesktopHiddenWindows();
    ~DesktopHiddenWindows() override;

    std::unique_ptr<HiddenWindowClass> registerClass(const std::u16string &name,
                                                     WindowProcedure procedure) override;

    /// Puts a message into a window's queue. False if there is no such window. GUI thread only.
    bool post(WindowHandle window, const WindowMessage &message);

private:
    struct Registrations;
    class Class;
    class Window;

    // Classes and windows keep it, too: they may outlive this object.
    std::shared_ptr<Registrations> m_registrations;
};

} // namespace platform
