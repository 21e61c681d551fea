#include "contracts/shell.h"

#include <windows.h>

void contracts::hide(const std::filesystem::path &path)
{
    EXPECT_TRUE(SetFileAttributesW(path.c_str(), GetFileAttributesW(path.c_str()) | FILE_ATTRIBUTE_HIDDEN));
}
