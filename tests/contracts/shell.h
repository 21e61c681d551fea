#pragma once

#include "contracts/backend.h"
#include "contracts/programfolder.h"

#include "platform/shell.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace contracts {

/// Hides a file or folder, whose name begins with a dot.
void hide(const std::filesystem::path &path);

/// A shell, and a program that tells how it was started.
class ShellTest : public testing::Test
{
protected:
    ShellTest()
    {
        std::filesystem::create_directory(m_folder);
        if (!exists(m_program))
            copy_file(programFolder() / "argument_writer.exe", m_program);
    }

    bool execute(const std::filesystem::path &file, std::uint32_t mask = 0,
                 const std::optional<std::u16string> &parameters = {},
                 const std::optional<std::u16string> &directory = {}, int show = platform::showNormally)
    {
        // Otherwise Windows may say itself, and wait for an answer, that it cannot start something.
        constexpr std::uint32_t withoutMessageBox = 0x400;
        return m_shell.execute({mask | withoutMessageBox, file.u16string(), parameters, directory, show});
    }

    /// What the program has written: its working directory, then its arguments.
    std::vector<std::string> started() const
    {
        const std::filesystem::path output = m_program.u16string() + u".out";
        // On Windows, who renames a file may keep others from it for a moment.
        std::ifstream file;
        EXPECT_TRUE(waitUntil([&] {
            file.open(output, std::ios::binary);
            return file.is_open();
        }));
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        file.close();
        std::error_code failed;
        EXPECT_TRUE(waitUntil([&] { return remove(output, failed); }));
        lines.resize(lines.empty() ? 1 : lines.size());
        return lines;
    }

    const std::filesystem::path m_folder = std::filesystem::path(scratchFolder()) / u"a shell \u00fc\u4e16";
    const std::filesystem::path m_program = m_folder / "a program.exe";
    const std::unique_ptr<platform::Platform> m_platform = makePlatform();
    platform::Shell &m_shell = m_platform->shell();
};

} // namespace contracts
