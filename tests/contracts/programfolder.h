#pragma once

#include <filesystem>

namespace contracts {

/// The folder of the running program, where the helper programs are, too.
std::filesystem::path programFolder();

} // namespace contracts
