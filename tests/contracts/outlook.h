#pragma once

#include "platform/hiddenwindows.h"
#include "platform/pocketoutlook.h"

namespace contracts {

/// A store with the samples, while it lives, and another program's hands on it. One at a time.
class OutlookStore
{
public:
    virtual ~OutlookStore() = default;

    virtual std::unique_ptr<platform::IPOutlookApp> connect() = 0;
    virtual platform::HiddenWindows &windows() = 0;

    /// Adds an appointment, changes its start or removes it, as one of OutlookMessage tells.
    virtual void change(std::uint32_t message, const std::u16string &subject) = 0;

    /// Whether contacts can have a text of that name.
    virtual bool keepsText(const std::string &name) const = 0;
};

std::unique_ptr<OutlookStore> makeOutlookStore();

} // namespace contracts
