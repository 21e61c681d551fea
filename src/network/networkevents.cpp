#include "network/networkevents.h"

// Nothing of this stands in the header: tools/tsan.supp knows by their functions what events pass between
// threads.

BeginRequestEvent::BeginRequestEvent(FetchRequest request)
    : QEvent(eventType)
    , m_request(std::move(request))
{
}

BeginRequestEvent::~BeginRequestEvent() = default;

FetchRequest BeginRequestEvent::takeRequest()
{
    return std::move(m_request);
}

ShutdownEvent::ShutdownEvent()
    : QEvent(eventType)
{
}

ShutdownEvent::~ShutdownEvent() = default;
