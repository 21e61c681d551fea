#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::extractIcon(FunctionArguments *)
{
    warnNotAvailable("extractIcon");
}

void KestCommandProvider::openProgramsFolder(FunctionArguments *)
{
    warnNotAvailable("openProgramsFolder");
}

void KestCommandProvider::cacheProgramsFolder(FunctionArguments *)
{
    warnNotAvailable("cacheProgramsFolder");
}

void KestCommandProvider::clearProgramsFolderCache(FunctionArguments *)
{
    warnNotAvailable("clearProgramsFolderCache");
}

void KestCommandProvider::focusWindow(FunctionArguments *)
{
    warnNotAvailable("focusWindow");
}

void KestCommandProvider::runningProcesses(FunctionArguments *)
{
    warnNotAvailable("runningProcesses");
}

void KestCommandProvider::closeWindow(FunctionArguments *)
{
    warnNotAvailable("closeWindow");
}

void KestCommandProvider::clearRunningProcessesResources(FunctionArguments *)
{
    warnNotAvailable("clearRunningProcessesResources");
}
