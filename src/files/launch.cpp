#include "orvanecore/functionarguments.h"
#include "platform/platform.h"
#include "platform/shell.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

void KestCommandProvider::launch(FunctionArguments *arguments)
{
    if (!checkArguments("launch", *arguments, {1, anyCount, {ArgumentType::String, ArgumentType::String}}))
        return;

    const bool hasParameters = arguments->argumentCount() > 1;
    launch(arguments->argument(0).toString(), hasParameters ? arguments->argument(1).toString() : QString());
}

void KestCommandProvider::launch(const QString &file, const QString &parameters)
{
    // Only in lower case: "TOOL.EXE" starts without parameters.
    const bool isProgram = file.contains(QLatin1String(".exe"));

    QString windowsPath = file;
    windowsPath.replace(QLatin1Char('/'), QLatin1Char('\\'));
    const int lastSeparator = windowsPath.lastIndexOf(QLatin1Char('\\'));

    platform::ShellExecution execution;
    execution.mask = platform::maskNoCloseProcess;
    execution.file = windowsPath.toStdU16String();
    if (lastSeparator >= 0)
        execution.directory = windowsPath.left(lastSeparator).toStdU16String();
    execution.show = platform::showNormally;
    if (isProgram && !parameters.isEmpty()) {
        QString quoted = parameters;
        quoted.replace(QLatin1Char('"'), QLatin1String("\"\"\""));
        execution.parameters = quoted.toStdU16String();
    }
    platform::current().shell().execute(execution);
}
