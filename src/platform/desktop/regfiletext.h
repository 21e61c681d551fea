#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace platform {

/// The text of a registry file, or what is wrong with it.
struct RegFileText
{
    QString text; ///< every unit as it is in the file, single surrogates too; empty if there is an error
    int errorLine = 0; ///< counted from 1; 0 if there is no error
    QString error; ///< in plain words
};

/// Reads UTF-16 with a byte order mark, or UTF-8 with or without one.
RegFileText decodeRegFile(const QByteArray &bytes);

} // namespace platform
