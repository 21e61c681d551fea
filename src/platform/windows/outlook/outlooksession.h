#pragma once

#include "platform/windows/outlook/compointer.h"
#include "platform/windows/outlook/pimstore.h"

namespace platform {

/// COM on this thread, as long as the object lives.
class ComThread
{
public:
    ComThread();
    ~ComThread();
    ComThread(const ComThread &) = delete;
    ComThread &operator=(const ComThread &) = delete;

    /// Whether it can be used.
    bool isReady() const;

private:
    const HRESULT m_result;
};

/// The store's application object. All that comes from it keeps it, since texts of theirs are freed with it,
/// and COM has to stay until the last of them has gone.
class OutlookSession
{
public:
    /// Null if there is no store or it cannot be opened.
    static std::shared_ptr<const OutlookSession> open();

    pimstore::IPOutlookApp &application() const { return *m_application; }

    /// The text that a getter gives, up to its first null; nothing if it fails.
    template <typename Interface>
    std::optional<std::u16string> textOf(Interface &object,
                                         HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR *)) const
    {
        const std::optional<BSTR> text = valueOf(object, get);
        return text ? std::optional(taken(*text)) : std::nullopt;
    }

private:
    OutlookSession() = default;

    std::u16string taken(BSTR text) const;

    const ComThread m_com; // first, so that it goes last
    ComPointer<pimstore::IPOutlookApp> m_application;
};

using OutlookSessionPointer = std::shared_ptr<const OutlookSession>;

} // namespace platform
