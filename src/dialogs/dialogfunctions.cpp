#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::browseFiles(FunctionArguments *)
{
    warnNotAvailable("browseFiles");
}

void KestCommandProvider::textInput(FunctionArguments *)
{
    warnNotAvailable("textInput");
}

void KestCommandProvider::numInput(FunctionArguments *)
{
    warnNotAvailable("numInput");
}

void KestCommandProvider::listInput(FunctionArguments *)
{
    warnNotAvailable("listInput");
}

void KestCommandProvider::selectContact(FunctionArguments *)
{
    warnNotAvailable("selectContact");
}
