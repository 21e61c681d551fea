#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::contactImage(FunctionArguments *)
{
    warnNotAvailable("contactImage");
}

void KestCommandProvider::contactInfo(FunctionArguments *)
{
    warnNotAvailable("contactInfo");
}

void KestCommandProvider::poomEventSuscribe(FunctionArguments *)
{
    warnNotAvailable("poomEventSuscribe");
}

void KestCommandProvider::poomEventUnSuscribe(FunctionArguments *)
{
    warnNotAvailable("poomEventUnSuscribe");
}

void KestCommandProvider::getAppointments(FunctionArguments *)
{
    warnNotAvailable("getAppointments");
}

void KestCommandProvider::getTasks(FunctionArguments *)
{
    warnNotAvailable("getTasks");
}

void KestCommandProvider::InitPOOM() { }

void KestCommandProvider::DeInitPOOM() { }
