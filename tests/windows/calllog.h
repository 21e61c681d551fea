#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

/// Writes down how stand-ins are called while it lives. Every call is a line such as
/// "ossvcs 273(WLAN1, 1, 1)". One at a time.
class CallLog
{
public:
    CallLog() { current = this; }
    ~CallLog() { current = nullptr; }
    CallLog(const CallLog &) = delete;
    CallLog &operator=(const CallLog &) = delete;

    /// The calls since it was made, or last asked.
    std::vector<std::string> take() { return std::exchange(calls, {}); }

    std::vector<std::string> calls;
    inline static CallLog *current = nullptr;
};

/// Has functions of stand-ins fail while it lives, such as "ossvcs 276". One at a time.
class FailingCalls
{
public:
    explicit FailingCalls(const std::set<std::string> &failing) { functions = failing; }
    ~FailingCalls() { functions.clear(); }
    FailingCalls(const FailingCalls &) = delete;
    FailingCalls &operator=(const FailingCalls &) = delete;

    inline static std::set<std::string> functions;
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
