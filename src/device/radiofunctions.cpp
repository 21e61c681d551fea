#include "orvanecore/functionarguments.h"
#include "platform/platform.h"
#include "platform/wireless.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::getRadioStatus(FunctionArguments *arguments)
{
    if (!checkArguments("getRadioStatus", *arguments,
                        {3, 3, {ArgumentType::String, ArgumentType::Object, ArgumentType::Function}}))
        return;

    const bool isOn = m_radios.isOn(arguments->argument(0).toString());
    answer(arguments->argument(1), arguments->argument(2), {isOn});
}

void KestCommandProvider::setRadioStatus(FunctionArguments *arguments)
{
    if (!checkArguments("setRadioStatus", *arguments, {2, 2, {ArgumentType::String, ArgumentType::Bool}}))
        return;

    m_radios.switchRadio(arguments->argument(0).toString(), arguments->argument(1).toBool());
}

void KestCommandProvider::setBluetoothDiscoverable(FunctionArguments *)
{
    platform::current().bluetooth().setMode(platform::BluetoothMode::Discoverable);
}
