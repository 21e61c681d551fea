#pragma once

#include <string>
#include <vector>

namespace contracts {

/// Writes the working directory and then the arguments, a line each, to a file that is named after the
/// program, which is the first argument. All are in UTF-8.
void writeArguments(const std::vector<std::string> &arguments);

} // namespace contracts
