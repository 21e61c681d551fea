#include "provider/kestcommandprovider.h"

#include "orvanecore/iapplication.h"

#include <QtCore/QList>

#include <algorithm>

namespace {

using Provider = KestCommandProvider;

struct PublishedFunction
{
    const char *name;
    bool interactive;
    Provider::Function function;
};

// Scripts call the functions by these names and the host by their position, so both are settled,
// "Suscribe" included.
const PublishedFunction publishedFunctions[] = {
    {"getFiles", false, &Provider::getFiles},
    {"getDirs", false, &Provider::getDirs},
    {"launch", false, &Provider::launch},
    {"readReg", false, &Provider::readReg},
    {"writeReg", false, &Provider::writeReg},
    {"setConfig", false, &Provider::setConfig},
    {"getConfig", false, &Provider::getConfig},
    {"deleteConfig", false, &Provider::deleteConfig},
    {"browseFiles", true, &Provider::browseFiles},
    {"textInput", true, &Provider::textInput},
    {"numInput", true, &Provider::numInput},
    {"listInput", true, &Provider::listInput},
    {"deleteFile", false, &Provider::deleteFile},
    {"deleteDir", false, &Provider::deleteDir},
    {"s2pCommand", false, &Provider::s2pCommand},
    {"s2pStatus", false, &Provider::s2pStatus},
    {"getRadioStatus", false, &Provider::getRadioStatus},
    {"setRadioStatus", false, &Provider::setRadioStatus},
    {"extractIcon", true, &Provider::extractIcon},
    {"regEventUnSuscribe", true, &Provider::regEventUnSuscribe},
    {"regEventSuscribe", true, &Provider::regEventSuscribe},
    {"contactImage", true, &Provider::contactImage},
    {"selectContact", true, &Provider::selectContact},
    {"contactInfo", false, &Provider::contactInfo},
    {"poomEventSuscribe", true, &Provider::poomEventSuscribe},
    {"poomEventUnSuscribe", true, &Provider::poomEventUnSuscribe},
    {"getAppointments", false, &Provider::getAppointments},
    {"getTasks", false, &Provider::getTasks},
    {"getUrl", true, &Provider::getUrl},
    {"getRSSFeed", true, &Provider::getRSSFeed},
    {"getWeather", true, &Provider::getWeather},
    {"getSoundProfile", false, &Provider::getSoundProfile},
    {"setSoundProfile", false, &Provider::setSoundProfile},
    {"openProgramsFolder", true, &Provider::openProgramsFolder},
    {"cacheProgramsFolder", true, &Provider::cacheProgramsFolder},
    {"setBluetoothDiscoverable", false, &Provider::setBluetoothDiscoverable},
    {"focusWindow", false, &Provider::focusWindow},
    {"runningProcesses", true, &Provider::runningProcesses},
    {"closeWindow", false, &Provider::closeWindow},
    {"clearRunningProcessesResources", true, &Provider::clearRunningProcessesResources},
};

} // namespace

void KestCommandProvider::initialize_functions()
{
    QList<Function> functions;
    for (const PublishedFunction &published : publishedFunctions) {
        m_application->registerFunction(this, QString::fromLatin1(published.name), published.interactive,
                                        false, functions.size());
        functions.append(published.function);
    }

    functionTable = std::make_unique<Function[]>(static_cast<std::size_t>(functions.size()));
    std::copy(functions.cbegin(), functions.cend(), functionTable.get());
}

void KestCommandProvider::invoke(int index, FunctionArguments *arguments)
{
    (this->*functionTable[static_cast<std::size_t>(index)])(arguments);
}

QScriptValue KestCommandProvider::invokeRet(int index, FunctionArguments *arguments)
{
    return (this->*returningFunctionTable[static_cast<std::size_t>(index)])(arguments);
}
