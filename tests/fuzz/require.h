#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program if a property that holds for every input does not.
inline void require(bool holds, const char *property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Not so: %s\n", property);
    std::abort();
}
