#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::selectContact(FunctionArguments *)
{
    warnNotAvailable("selectContact");
}
