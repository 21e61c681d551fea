#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::s2pCommand(FunctionArguments *)
{
    warnNotAvailable("s2pCommand");
}

void KestCommandProvider::s2pStatus(FunctionArguments *)
{
    warnNotAvailable("s2pStatus");
}

void KestCommandProvider::getRadioStatus(FunctionArguments *)
{
    warnNotAvailable("getRadioStatus");
}

void KestCommandProvider::setRadioStatus(FunctionArguments *)
{
    warnNotAvailable("setRadioStatus");
}

void KestCommandProvider::setBluetoothDiscoverable(FunctionArguments *)
{
    warnNotAvailable("setBluetoothDiscoverable");
}

void KestCommandProvider::getSoundProfile(FunctionArguments *)
{
    warnNotAvailable("getSoundProfile");
}

void KestCommandProvider::setSoundProfile(FunctionArguments *)
{
    warnNotAvailable("setSoundProfile");
}
