#include "network/kestweatherrequest.h"

#include "network/weatherparser.h"

void KestWeatherRequest::networkFinished()
{
    succeed(WeatherParser::parse(takeBody()));
}
