#pragma once

#include <string>
#include <vector>

/// Has stand-ins write down how they are called, while it lives. Every call is a line such as
/// "ossvcs 273(WLAN1, 1, 1)". One at a time.
class CallLog
{
public:
    CallLog();
    ~CallLog();
    CallLog(const CallLog &) = delete;
    CallLog &operator=(const CallLog &) = delete;

    /// The calls since it was made, or last asked.
    std::vector<std::string> take();

private:
    std::size_t m_taken = 0;
};

/// Has the functions of stand-ins that ask standins::isToFail() fail while it lives: a list such as
/// "ossvcs 276;ossvcs 273".
class FailingCalls
{
public:
    explicit FailingCalls(const wchar_t *functions);
    ~FailingCalls();
    FailingCalls(const FailingCalls &) = delete;
    FailingCalls &operator=(const FailingCalls &) = delete;
};

/// The folders of libraries that the system finds, beside its own.
namespace libraries {
/// All stand-ins. contracts::makePlatform() does this.
void useStandIns();
/// None.
void useNone();
/// Libraries of these names, which are there and export nothing but ordinal 273.
void useEmpty(const std::vector<const wchar_t *> &names);
} // namespace libraries
