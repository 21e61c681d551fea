#include "contracts/registry.h"

#include "contracts/backend.h"

#include "platform/windows/handles.h"
#include "platform/windows/widetext.h"
#include "windows/calllog.h"

#include <gmock/gmock.h>
#include <windows.h>

using platform::wide;

std::unique_ptr<platform::Platform> contracts::makeRegistryPlatform()
{
    auto platform = makePlatform();
    libraries::useNone(); // The stand-in for the shell does not see what is written.
    return platform;
}

void contracts::makeKey(const std::u16string &path)
{
    HKEY key = nullptr;
    EXPECT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, wide(path), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr), 0);
    RegCloseKey(key);
}

void contracts::removeKey(const std::u16string &path)
{
    RegDeleteTreeW(HKEY_CURRENT_USER, wide(path));
}

void contracts::removeValue(const std::u16string &path, const std::u16string &name)
{
    RegDeleteKeyValueW(HKEY_CURRENT_USER, path.empty() ? nullptr : wide(path), wide(name));
}
