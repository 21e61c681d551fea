#include "platform/windows/outlook/outlooksession.h"

namespace platform {

// Windows CE knows no other kind of threads. On desktop Windows a thread may be of another kind already,
// which does as well.
ComThread::ComThread()
    : m_result(CoInitializeEx(nullptr, COINIT_MULTITHREADED))
{
}

ComThread::~ComThread()
{
    if (SUCCEEDED(m_result))
        CoUninitialize();
}

bool ComThread::isReady() const
{
    return SUCCEEDED(m_result) || m_result == RPC_E_CHANGED_MODE;
}

std::shared_ptr<const OutlookSession> OutlookSession::open()
{
    const std::shared_ptr<OutlookSession> session(new OutlookSession);
    if (!session->m_com.isReady())
        return nullptr;
    const auto object = obtain<IUnknown>([](IUnknown **made) {
        void *unknown = nullptr;
        const HRESULT result = CoCreateInstance(pimstore::applicationClass, nullptr, CLSCTX_INPROC_SERVER,
                                                IID_IUnknown, &unknown);
        *made = static_cast<IUnknown *>(unknown);
        return result;
    });
    if (object)
        session->m_application = query<pimstore::IPOutlookApp>(*object);
    return session->m_application ? session : nullptr;
}

std::u16string OutlookSession::taken(BSTR text) const
{
    if (!text)
        return {};
    const auto giveBack = [this](BSTR given) { m_application->SysFreeString(given); };
    const std::unique_ptr<OLECHAR, decltype(giveBack)> guard(text, giveBack);
    return utf16(text);
}

} // namespace platform
