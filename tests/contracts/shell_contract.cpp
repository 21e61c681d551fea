#include "contracts/shell.h"

#include "contracts/texts.h"

#include <algorithm>

using namespace platform;
namespace fs = std::filesystem;

namespace {

class ShellContract : public contracts::ShellTest
{
protected:
    std::vector<std::string> listed(const fs::path &folder)
    {
        std::vector<std::string> result;
        m_shell.listFolder(folder.u16string(), [&result](const FolderEntry &entry) {
            result.push_back(contracts::shown(std::u16string(entry.name)) + (entry.isFolder ? " folder" : "")
                             + (entry.isHidden ? " hidden" : ""));
        });
        return result;
    }
};

} // namespace

TEST_F(ShellContract, StartsProgramsWithTheirArguments)
{
    const struct
    {
        std::optional<std::u16string> parameters;
        std::vector<std::string> arguments;
    } cases[] = {
        {std::nullopt, {}},
        {u"", {}},
        {u" a  b\tc ", {"a", "b", "c"}},
        {u"\"b c\" d", {"b c", "d"}},
        {u"\"\" x", {"", "x"}},
        {u"it's $HOME %PATH% & | 'a b'", {"it's", "$HOME", "%PATH%", "&", "|", "'a", "b'"}},
        {uR"(x\ "\\y")", {R"(x\)", R"(\\y)"}},
        {u"a\\\"b", {"a\"b"}},
        {u"\"c:\\a b\\\\\" next", {"c:\\a b\\", "next"}},
        {u"\"\"\"quoted\"\"\"", {"\"quoted\""}},
        {uR"(a\\\b d"e f"g h)", {R"(a\\\b)", "de fg", "h"}},
        {uR"(a\\"b c" d)", {R"(a\b c)", "d"}},
        {u"\"open end", {"open end"}},
        {u"\u00fc \u4e16", {"\xc3\xbc", "\xe4\xb8\x96"}},
    };
    for (const auto &c : cases) {
        EXPECT_TRUE(execute(m_program, maskNoCloseProcess, c.parameters));
        std::vector<std::string> lines = started();
        lines.erase(lines.begin());
        EXPECT_EQ(lines, c.arguments) << contracts::shown(c.parameters);
    }
}

TEST_F(ShellContract, StartsProgramsInAFolder)
{
    for (const auto &directory : {std::optional(m_folder.u16string()), std::optional<std::u16string>()}) {
        EXPECT_TRUE(execute(m_program, maskNoCloseProcess, u"x", directory));
        EXPECT_TRUE(fs::equivalent(fs::u8path(started().front()), directory ? m_folder : fs::current_path()));
    }
}

TEST_F(ShellContract, WhatIsMissingIsNotStarted)
{
    for (const char *file : {"missing.exe", "missing.txt", "no folder/missing.exe"})
        EXPECT_FALSE(execute(m_folder / file)) << file;
}

TEST_F(ShellContract, FindsSpecialFolders)
{
    for (const SpecialFolder folder : {SpecialFolder::Programs, SpecialFolder::ProgramFiles}) {
        const auto path = m_shell.specialFolder(folder, true);
        ASSERT_TRUE(path);
        EXPECT_TRUE(m_shell.exists(*path)) << contracts::shown(path);
        EXPECT_TRUE(fs::path(m_shell.localPath(*path)).is_absolute());
        EXPECT_TRUE(fs::is_directory(m_shell.localPath(*path)));
        EXPECT_EQ(std::u16string(u"/\\").find(path->back()), std::u16string::npos);
    }
}

TEST_F(ShellContract, TellsWhatExists)
{
    std::u16string forward = m_program.u16string();
    std::u16string backward = forward;
    std::replace(forward.begin(), forward.end(), u'\\', u'/');
    std::replace(backward.begin(), backward.end(), u'/', u'\\');
    const struct
    {
        std::u16string path;
        bool exists;
    } cases[] = {
        {forward, true},
        {backward, true},
        {forward + u"x", false},
        {m_folder.u16string(), true},
        {u"", false},
        {m_folder.u16string() + u'\0', false},
        {forward + u"/x", false},
        {(m_folder / "*").u16string(), false},
        {(m_folder / std::u16string(5000, u'a')).u16string(), false},
    };
    for (const auto &c : cases)
        EXPECT_EQ(m_shell.exists(c.path), c.exists) << contracts::shown(c.path);
}

TEST_F(ShellContract, ListsFolders)
{
    const fs::path folder = m_folder / u"list \u4e16";
    fs::create_directories(folder / "folder" / "inside");
    fs::create_directory(folder / ".folder");
    for (const char16_t *name : {u"file.txt", u".file", u"no extension", u"\u00fc \U0001f600.lnk"})
        std::ofstream(folder / name).put('x');
    contracts::hide(folder / ".folder");
    contracts::hide(folder / ".file");

    const std::vector<std::string> all{"folder folder", ".folder folder hidden",
                                       "file.txt",      ".file hidden",
                                       "no extension",  "\\u00fc \\ud83d\\ude00.lnk"};
    EXPECT_THAT(listed(folder), testing::UnorderedElementsAreArray(all));
    EXPECT_THAT(listed(folder / ""), testing::UnorderedElementsAreArray(all));
    const fs::path without[] = {{},
                                folder / "missing",
                                folder / "file.txt",
                                folder / "f*",
                                folder / "folder" / "inside",
                                folder / std::u16string(5000, u'a'),
                                folder.u16string() + u'\0'};
    for (const fs::path &path : without)
        EXPECT_THAT(listed(path), testing::IsEmpty()) << path;
}
