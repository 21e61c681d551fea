#include "registry/registrypath.h"

#include "platform/platform.h"

using platform::RegistryRoot;

namespace {

struct RootName
{
    QLatin1String name;
    RegistryRoot root;
};

const RootName rootNames[] = {
    {QLatin1String("HKLM"), RegistryRoot::LocalMachine},
    {QLatin1String("HKEY_LOCAL_MACHINE"), RegistryRoot::LocalMachine},
    {QLatin1String("HKCU"), RegistryRoot::CurrentUser},
    {QLatin1String("HKEY_CURRENT_USER"), RegistryRoot::CurrentUser},
    {QLatin1String("HKCR"), RegistryRoot::ClassesRoot},
    {QLatin1String("HKEY_CLASSES_ROOT"), RegistryRoot::ClassesRoot},
    // Four letters like the others: "HKU" is none of them.
    {QLatin1String("HKUS"), RegistryRoot::Users},
    {QLatin1String("HKEY_USERS"), RegistryRoot::Users},
};

} // namespace

RegistryPath RegistryPath::split(const QString &path)
{
    const int first = path.indexOf(QLatin1Char('\\'));
    const QString rest = path.mid(first + 1);
    const int last = rest.lastIndexOf(QLatin1Char('\\'));
    return {path.left(first), rest.left(qMax(last, 0)), rest.mid(last + 1)};
}

RegistryRoot registryRoot(const QString &name)
{
    for (const RootName &candidate : rootNames) {
        if (name == candidate.name)
            return candidate.root;
    }
    return RegistryRoot::None;
}

platform::RegistryOpening openRegistryKey(const QString &root, const QString &key)
{
    const auto subkey = key.isEmpty() ? std::nullopt : std::optional(key.toStdU16String());
    return platform::current().registry().open(registryRoot(root), subkey);
}
