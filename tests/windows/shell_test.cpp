#include "contracts/shell.h"
#include "contracts/texts.h"
#include "platform/windows/widetext.h"
#include "windows/resources.h"

#include <shlobj.h>
#include <windows.h>

using namespace platform;
namespace fs = std::filesystem;

using ShellTest = contracts::ShellTest;

void contracts::hide(const fs::path &path)
{
    EXPECT_TRUE(SetFileAttributesW(path.c_str(), GetFileAttributesW(path.c_str()) | FILE_ATTRIBUTE_HIDDEN));
}

TEST_F(ShellTest, OpensADocumentWithItsProgram)
{
    const auto setDefault = [](const wchar_t *key, const std::wstring &text) {
        EXPECT_EQ(RegSetValueW(HKEY_CLASSES_ROOT, key, REG_SZ, text.c_str(), 0), ERROR_SUCCESS);
    };
    setDefault(L".kestdocument", L"kestcmd.document");
    setDefault(L"kestcmd.document\\shell\\open\\command", L'"' + m_program.wstring() + L"\" \"%1\"");
    const auto document = m_folder / "a text.kestdocument";
    std::ofstream(document).put('x');
    EXPECT_TRUE(execute(document));
    EXPECT_TRUE(equivalent(std::filesystem::u8path(started().back()), document));
    for (const wchar_t *key : {L".kestdocument", L"kestcmd.document"})
        EXPECT_EQ(RegDeleteTreeW(HKEY_CLASSES_ROOT, key), ERROR_SUCCESS);
}

TEST_F(ShellTest, TellsProgramsHowToShowThemselves)
{
    for (const int show : {SW_SHOW, SW_SHOWMINNOACTIVE}) {
        EXPECT_TRUE(execute(m_program, 0, u"?show", std::nullopt, show));
        EXPECT_EQ(started().back(), std::to_string(show));
    }
}

TEST_F(ShellTest, FindsTheFoldersOfTheSystemAndMakesThem)
{
    wchar_t programs[MAX_PATH] = {};
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_PROGRAMS, nullptr, SHGFP_TYPE_CURRENT, programs), S_OK);
    const auto told = m_shell.specialFolder(SpecialFolder::Programs, false);
    EXPECT_EQ(told, fs::path(programs).u16string());
    EXPECT_EQ(m_shell.specialFolder(SpecialFolder::ProgramFiles, false),
              fs::path(_wgetenv(L"ProgramFiles")).u16string());

    const fs::path away = programs + std::wstring(L" moved away");
    fs::rename(programs, away);
    m_shell.specialFolder(SpecialFolder::Programs, false);
    EXPECT_FALSE(fs::exists(programs));
    EXPECT_EQ(m_shell.specialFolder(SpecialFolder::Programs, true), told);
    EXPECT_TRUE(fs::is_directory(programs));
    fs::remove(programs);
    fs::rename(away, programs);
}

// Wine makes no files of such names.
TEST(WideText, IsTextIfNoHalfOfAPairIsAlone)
{
    for (const char16_t *text : {u"", u"a", u"\xd83d\xde00", u"a\xd83d\xde00\xd83d\xde00"})
        EXPECT_TRUE(isText(text)) << contracts::shown(std::u16string(text));
    for (const char16_t *text :
         {u"\xd83d", u"\xde00", u"\xde00\xd83d", u"\xd83d\xd83d\xde00", u"\xd83d\xde00\xde00"})
        EXPECT_FALSE(isText(text)) << contracts::shown(std::u16string(text));
}

TEST_F(ShellTest, KeepsOnlyTheHandlesOfProcessesThatAreAskedFor)
{
    // Few, since a start takes long, and a handle that was asked for stays for good.
    const auto kept = [this](std::uint32_t mask) {
        const int before = Resources::inUse().handles;
        for (int i = 0; i < 5; ++i) {
            EXPECT_TRUE(execute(m_program, mask));
            started();
        }
        return Resources::inUse().handles - before;
    };
    kept(0);
    EXPECT_EQ(kept(maskNoCloseProcess), 5);
    EXPECT_EQ(kept(0), 0);
    expectNoLeak([this] {
        m_shell.exists(m_program.u16string());
        m_shell.listFolder(m_folder.u16string(), [](const FolderEntry &) {});
        m_shell.specialFolder(SpecialFolder::Programs, false);
    });
}
