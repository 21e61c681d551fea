#include "contracts/argumentwriter.h"

#include <filesystem>
#include <fstream>

void contracts::writeArguments(const std::vector<std::string> &arguments)
{
    const auto output = std::filesystem::u8path(arguments[0] + ".out");
    const auto part = std::filesystem::u8path(arguments[0] + ".out.part");
    std::ofstream file(part, std::ios::binary);
    file << std::filesystem::current_path().u8string() << '\n';
    for (std::size_t i = 1; i < arguments.size(); ++i)
        file << arguments[i] << '\n';
    file.close();
    // It is there when it is complete.
    std::filesystem::rename(part, output);
}
