#include "network/fetchcallbacks.h"
#include "network/networkthread.h"
#include "orvanecore/functionarguments.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::getUrl(FunctionArguments *arguments)
{
    fetch(FetchKind::RawText, *arguments);
}

void KestCommandProvider::getRSSFeed(FunctionArguments *arguments)
{
    fetch(FetchKind::Rss, *arguments);
}

void KestCommandProvider::getWeather(FunctionArguments *arguments)
{
    fetch(FetchKind::Weather, *arguments);
}

bool KestCommandProvider::awaitsAnswers() const
{
    return m_fetches && !m_fetches->isEmpty();
}

void KestCommandProvider::fetch(FetchKind kind, const FunctionArguments &arguments)
{
    // Unlike all others these functions report nothing: scripts call them unasked, from timers.
    if (!networkThread || !networkThread->takesRequests()
        || !argumentsMatch(arguments,
                           {3, 3, {ArgumentType::String, ArgumentType::Object, ArgumentType::Function}}))
        return;
    networkThread->post({kind, arguments.argument(0).toString(),
                         m_fetches->add(arguments.argument(1), arguments.argument(2))});
}

void KestCommandProvider::startNetworkThread()
{
    networkThread.reset(); // it uses the callbacks
    m_fetches = std::make_unique<FetchCallbacks>(*m_application);
    networkThread = std::make_unique<NetworkThread>(*m_fetches);
    if (!networkThread->begin())
        networkThread.reset();
}

void KestCommandProvider::stopNetworkThread()
{
    if (!networkThread)
        return;
    networkThread->shutdown();
    m_fetches->finish();
}
