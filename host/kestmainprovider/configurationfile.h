#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QString>

/// The text form of a configuration: UTF-8, sections in brackets, a line "key=value" each.
///
/// A character that would be misread there stands as "%" and its four-digit hexadecimal UTF-16 code; an
/// empty name is "%".
namespace ConfigurationFile {

/// Texts by path().
using Values = QMap<QString, QString>;

struct Content
{
    Values values;
    bool isDamaged = false; ///< some lines made no sense and are left out
};

/// Reads any bytes; empty lines and those that begin with ";" or "#" are passed over.
Content parse(const QByteArray &bytes);

QByteArray toBytes(const Values &values);

/// What the paths of all values in a section begin with.
QString prefix(const QString &section);

/// Section and key, which may be any texts, escaped and joined by a slash.
QString path(const QString &section, const QString &key);

} // namespace ConfigurationFile
