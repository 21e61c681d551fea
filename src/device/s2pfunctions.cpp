#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::s2pCommand(FunctionArguments *arguments)
{
    if (!checkArguments("s2pCommand", *arguments, {1, 1, {ArgumentType::String}}))
        return;

    m_s2p.command(arguments->argument(0).toString(), m_application->applicationPath());
}

void KestCommandProvider::s2pStatus(FunctionArguments *arguments)
{
    if (!checkArguments("s2pStatus", *arguments, {2, 2, {ArgumentType::Object, ArgumentType::Function}}))
        return;

    const S2pControl::Status status = S2pControl::status();
    answer(arguments->argument(0), arguments->argument(1), {status.isPlaying, status.title, status.album});
}
