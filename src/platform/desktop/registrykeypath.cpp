#include "platform/desktop/registrykeypath.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <iterator>

namespace platform {

namespace {

constexpr int longestKeyName = 255;
constexpr int deepestKey = 64;

struct RootName
{
    RegistryRoot root;
    QLatin1String longName;
    QLatin1String shortName;
};

const RootName rootNames[] = {
    {RegistryRoot::LocalMachine, QLatin1String("HKEY_LOCAL_MACHINE"), QLatin1String("HKLM")},
    {RegistryRoot::ClassesRoot, QLatin1String("HKEY_CLASSES_ROOT"), QLatin1String("HKCR")},
    {RegistryRoot::CurrentUser, QLatin1String("HKEY_CURRENT_USER"), QLatin1String("HKCU")},
    {RegistryRoot::Users, QLatin1String("HKEY_USERS"), QLatin1String("HKUS")},
};

} // namespace

std::optional<RegistryKeyPath> parseKeyPath(const QString &text)
{
    const QChar separator = QLatin1Char('\\');
    const QString rootName = text.left(text.indexOf(separator));
    const auto *found = std::find_if(std::begin(rootNames), std::end(rootNames), [&](const RootName &name) {
        return rootName.compare(name.longName, Qt::CaseInsensitive) == 0
            || rootName.compare(name.shortName, Qt::CaseInsensitive) == 0;
    });
    if (found == std::end(rootNames))
        return std::nullopt;
    QString path = text.mid(rootName.size() + 1);
    if (path.endsWith(separator))
        path.chop(1);
    return RegistryKeyPath{found->root, path};
}

QString problemWithKeyPath(const QString &path)
{
    if (path.isEmpty())
        return QString();
    const QChar separator = QLatin1Char('\\');
    if (path.count(separator) >= deepestKey)
        return QStringLiteral("the key is nested deeper than %1 keys").arg(deepestKey);
    const QStringList names = path.split(separator);
    for (const QString &name : names) {
        if (name.isEmpty())
            return QStringLiteral("a key's name is empty");
        if (name.size() > longestKeyName)
            return QStringLiteral("a key's name has more than %1 characters").arg(longestKeyName);
        if (std::any_of(name.cbegin(), name.cend(), [](QChar c) { return c.unicode() < ' '; }))
            return QStringLiteral("a key's name has a control character in it");
    }
    return QString();
}

QString toString(const RegistryKeyPath &key)
{
    const auto *found = std::find_if(std::begin(rootNames), std::end(rootNames),
                                     [&key](const RootName &name) { return name.root == key.root; });
    const QString root = found == std::end(rootNames) ? QString() : QString(found->longName);
    return key.path.isEmpty() ? root : root + QLatin1Char('\\') + key.path;
}

} // namespace platform
