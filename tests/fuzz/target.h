#pragma once

#include <QtCore/QByteArray>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

// What a fuzz target consists of, beside its own tryInput().

void tryInput(const QByteArray &input);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    tryInput(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}

/// Ends the program if a property that holds for every input does not.
inline void require(bool holds, const char *property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Not so: %s\n", property);
    std::abort();
}
