#pragma once

#include "platform/windows/library.h"

/// The stand-in for Pocket Outlook, as the COM server of its class while the object lives. Each begins with
/// the samples.
class PimstoreServer
{
public:
    PimstoreServer();
    ~PimstoreServer();
    PimstoreServer(const PimstoreServer &) = delete;
    PimstoreServer &operator=(const PimstoreServer &) = delete;

    void change(UINT message, const wchar_t *subject) const;

    /// Objects and texts that were given out, and not yet given back.
    int livingObjects() const;

private:
    const platform::Library m_library;
};
