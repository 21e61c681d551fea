#pragma once

#include <windows.h>

/// Finding out which library this code is in. Windows CE tells it when the library is loaded, and only then.
namespace platform::moduleseam {

/// The library or program that this code is linked into.
HINSTANCE ownModule();

} // namespace platform::moduleseam
