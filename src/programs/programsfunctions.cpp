#include "dialogs/dialogowner.h"
#include "files/paths.h"
#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "programs/programsmenu.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

namespace {

/// All of these functions report bad arguments as openProgramsFolder().
bool checkFolderArgument(const FunctionArguments &arguments)
{
    return checkArguments("openProgramsFolder", arguments, {0, 1, {ArgumentType::String}});
}

/// The folder meant, the system's own if none is named. A path of the device.
QString folderOf(const FunctionArguments &arguments, const IApplication &application)
{
    if (arguments.argumentCount() == 0)
        return ProgramsMenu::systemFolder();
    const QString path = arguments.argument(0).toString();
    return isAbsolutePath(path) ? path : application.applicationPath() + path;
}

} // namespace

void KestCommandProvider::openProgramsFolder(FunctionArguments *arguments)
{
    if (!checkFolderArgument(*arguments))
        return;
    ProgramsMenu::readSettings();
    QString chosen;
    {
        const DialogOwner<ProgramsMenu> menu;
        menu->show(folderOf(*arguments, *m_application));
        if (menu.get())
            chosen = menu->result();
    }
    if (!chosen.isEmpty())
        launch(chosen, QString());
}

void KestCommandProvider::cacheProgramsFolder(FunctionArguments *arguments)
{
    if (checkFolderArgument(*arguments))
        ProgramsMenu::buildCaches(folderOf(*arguments, *m_application));
}

void KestCommandProvider::clearProgramsFolderCache(FunctionArguments *arguments)
{
    if (!checkFolderArgument(*arguments))
        return;
    const bool isForAll = arguments->argumentCount() == 0;
    ProgramsMenu::purgeCaches(isForAll ? QString() : folderOf(*arguments, *m_application));
}
