#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::readReg(FunctionArguments *)
{
    warnNotAvailable("readReg");
}

void KestCommandProvider::writeReg(FunctionArguments *)
{
    warnNotAvailable("writeReg");
}

void KestCommandProvider::regEventSuscribe(FunctionArguments *)
{
    warnNotAvailable("regEventSuscribe");
}

void KestCommandProvider::regEventUnSuscribe(FunctionArguments *)
{
    warnNotAvailable("regEventUnSuscribe");
}

void KestCommandProvider::registryChanged(RegistryMonitor *, const QVariant &, const QVariant &) { }
