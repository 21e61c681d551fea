#pragma once

#include <windows.h>

/// Loading libraries and looking up what they export. Windows CE takes names of exports as UTF-16, desktop
/// Windows in 8 bits, and lets others put libraries into the working directory.
namespace platform::libraryseam {

/// Loads a library by its file name, wherever the system has it. Null if it is missing (LoadLibrary).
HMODULE load(const wchar_t *file);

/// Null if there is none (GetProcAddress).
FARPROC find(HMODULE library, WORD ordinal);
/// @p name is ASCII.
FARPROC find(HMODULE library, const wchar_t *name);

} // namespace platform::libraryseam
