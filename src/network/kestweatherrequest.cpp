#include "network/kestweatherrequest.h"

#include "network/weatherparser.h"

KestWeatherRequest::KestWeatherRequest(const QUrl &url, FetchId fetch, NetworkProcessor &processor)
    : KestNetworkRequest(url, fetch, processor)
{
}

void KestWeatherRequest::networkFinished()
{
    succeed(WeatherParser::parse(takeBody()));
}
