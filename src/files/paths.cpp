#include "files/paths.h"

#include "orvanecore/iapplication.h"
#include "platform/platform.h"
#include "platform/shell.h"
#include "provider/kestcommandprovider.h"

bool isAbsolutePath(const QString &path)
{
    return path.startsWith(QLatin1Char('\\')) || path.startsWith(QLatin1Char('/'));
}

QString KestCommandProvider::resolvedPath(const QString &path)
{
    const QString localPath =
        QString::fromStdU16String(platform::current().shell().localPath(path.toStdU16String()));
    return isAbsolutePath(path) ? localPath : instance()->application()->applicationPath() + localPath;
}
