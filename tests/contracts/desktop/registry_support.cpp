#include "contracts/registry.h"

#include "contracts/backend.h"
#include "contracts/desktop/desktopbackend.h"

#include "platform/desktop/registrystore.h"

#include <gmock/gmock.h>

using platform::RegistryRoot;
using platform::RegistryStore;

std::unique_ptr<platform::Platform> contracts::makeRegistryPlatform()
{
    return makePlatform();
}

void contracts::makeKey(const std::u16string &path)
{
    RegistryStore store(latestDevice());
    EXPECT_TRUE(store.findOrMake(RegistryRoot::CurrentUser, QString::fromStdU16String(path)));
}

void contracts::removeKey(const std::u16string &path)
{
    RegistryStore store(latestDevice());
    if (const auto key = store.find(RegistryRoot::CurrentUser, QString::fromStdU16String(path)))
        store.removeKey(*key);
}

void contracts::removeValue(const std::u16string &path, const std::u16string &name)
{
    RegistryStore store(latestDevice());
    if (const auto key = store.find(RegistryRoot::CurrentUser, QString::fromStdU16String(path)))
        store.removeValue(*key, QString::fromStdU16String(name));
}
