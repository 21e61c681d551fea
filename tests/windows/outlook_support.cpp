#include "contracts/outlook.h"
#include "windows/pimstoreserver.h"

#include "contracts/backend.h"
#include "contracts/programfolder.h"
#include "platform/windows/widetext.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

// The machine's classes, since Wine does not look for COM classes among those of the user.
constexpr wchar_t classKey[] = L"Software\\Classes\\CLSID\\{05058F23-20BE-11D2-8F18-0000F87A4335}";

std::filesystem::path serverFile()
{
    return contracts::programFolder() / "standins" / "pimstore.dll";
}

void setValue(const wchar_t *name, const std::wstring &text)
{
    EXPECT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (std::wstring(classKey) + L"\\InprocServer32").c_str(),
                              name, REG_SZ, text.c_str(), static_cast<DWORD>(2 * (text.size() + 1))),
              ERROR_SUCCESS);
}

class ServerStore : public contracts::OutlookStore
{
public:
    std::unique_ptr<platform::IPOutlookApp> connect() override
    {
        return m_platform->pocketOutlook().createApplication();
    }
    platform::HiddenWindows &windows() override { return m_platform->hiddenWindows(); }

    void change(std::uint32_t message, const std::u16string &subject) override
    {
        m_server.change(message, platform::wide(subject));
    }

    bool keepsText(const std::string &) const override { return true; }

private:
    const PimstoreServer m_server;
    const std::unique_ptr<platform::Platform> m_platform = contracts::makePlatform();
};

} // namespace

PimstoreServer::PimstoreServer()
    : m_library(serverFile().c_str())
{
    EXPECT_TRUE(m_library.isLoaded());
    setValue(nullptr, serverFile().native());
    setValue(L"ThreadingModel", L"Both");
    m_library.find<void()>(L"resetStore")();
}

PimstoreServer::~PimstoreServer()
{
    EXPECT_EQ(RegDeleteTreeW(HKEY_LOCAL_MACHINE, classKey), ERROR_SUCCESS);
}

void PimstoreServer::change(UINT message, const wchar_t *subject) const
{
    m_library.find<void(UINT, const wchar_t *)>(L"changeItem")(message, subject);
}

int PimstoreServer::livingObjects() const
{
    return m_library.find<int()>(L"livingObjects")();
}

std::unique_ptr<contracts::OutlookStore> contracts::makeOutlookStore()
{
    return std::make_unique<ServerStore>();
}
