#include "dialogs/dialogowner.h"
#include "dialogs/fileselector.h"
#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::browseFiles(FunctionArguments *arguments)
{
    if (!checkArguments("browseFiles", *arguments, {2, 6, {ArgumentType::Object, ArgumentType::Function}}))
        return;

    const int count = arguments->argumentCount();
    // The two last ones exclude each other: with six arguments the fifth only has to be there.
    const bool hasFlag = count >= 5 && arguments->argument(4).isBool();
    const bool folderMode = count == 6 && hasFlag && arguments->argument(5).toBool();
    const bool showFolders = count != 5 || !hasFlag || arguments->argument(4).toBool();
    const bool hasFilter = count >= 4 && arguments->argument(3).isString();
    const QString filter = hasFilter ? arguments->argument(3).toString() : QString();
    const bool hasDirectory = count >= 3 && arguments->argument(2).isString();
    const QString directory =
        hasDirectory ? resolvedPath(arguments->argument(2).toString()) : m_application->applicationPath();

    QString chosen;
    {
        const DialogOwner<FileSelector> selector;
        selector->show(directory, showFolders, filter, folderMode, false, QString());
        if (selector.get())
            chosen = selector->result();
    }
    answer(arguments->argument(0), arguments->argument(1),
           {chosen.isEmpty() ? m_application->nullValue() : QScriptValue(chosen)});
}
