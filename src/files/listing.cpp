#include "orvanecore/functionarguments.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QDir>

namespace {

QStringList absolutePaths(const QDir &dir, const QStringList &names)
{
    QStringList paths;
    paths.reserve(names.size());
    for (const QString &name : names)
        paths.append(dir.absoluteFilePath(name));
    return paths;
}

} // namespace

void KestCommandProvider::getFiles(FunctionArguments *arguments)
{
    if (!checkArguments(
            "getFiles", *arguments,
            {4, 4, {ArgumentType::String, ArgumentType::String, ArgumentType::Any, ArgumentType::Function}}))
        return;

    const QString path = arguments->argument(0).toString();
    if (path.isEmpty())
        return;
    const QDir dir(resolvedPath(path));
    const QStringList filters = arguments->argument(1).toString().split(QLatin1Char(';'));
    const QStringList files = dir.entryList(filters, QDir::Files, QDir::Name);
    answer(arguments->argument(2), arguments->argument(3), {toArray(absolutePaths(dir, files))});
}

void KestCommandProvider::getDirs(FunctionArguments *arguments)
{
    if (!checkArguments("getDirs", *arguments,
                        {3, 3, {ArgumentType::String, ArgumentType::Any, ArgumentType::Function}}))
        return;

    const QString path = arguments->argument(0).toString();
    if (path.isEmpty())
        return;
    const QDir dir(resolvedPath(path));
    const QStringList dirs = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    answer(arguments->argument(1), arguments->argument(2), {toArray(absolutePaths(dir, dirs))});
}
