#include "contracts/shell.h"

#include <QtCore/QCoreApplication>

std::filesystem::path contracts::programFolder()
{
    return QCoreApplication::applicationDirPath().toStdU16String();
}

void contracts::hide(const std::filesystem::path &)
{
    // The name does it.
}
