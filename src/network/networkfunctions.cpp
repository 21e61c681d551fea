#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::getUrl(FunctionArguments *)
{
    warnNotAvailable("getUrl");
}

void KestCommandProvider::getRSSFeed(FunctionArguments *)
{
    warnNotAvailable("getRSSFeed");
}

void KestCommandProvider::getWeather(FunctionArguments *)
{
    warnNotAvailable("getWeather");
}

void KestCommandProvider::startNetworkThread() { }

void KestCommandProvider::stopNetworkThread() { }
