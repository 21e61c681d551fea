#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QSettings>

/// The text form of a configuration: UTF-8, sections in brackets, a line "key=value" each.
///
/// A character that would be misread there stands as "%" and its four-digit hexadecimal UTF-16 code; an
/// empty name is "%".
namespace ConfigurationFile {

struct Content
{
    QSettings::SettingsMap values; ///< texts by path()
    bool isDamaged = false; ///< some lines made no sense and are left out
};

/// Reads any bytes; empty lines and those that begin with ";" or "#" are passed over.
Content parse(const QByteArray &bytes);

QByteArray toBytes(const QSettings::SettingsMap &values);

/// The path under which QSettings keeps a section, and a value in it. QSettings splits paths at slashes and
/// takes no empty names; names are escaped so that they may be any text.
QString path(const QString &section);
QString path(const QString &section, const QString &key);

} // namespace ConfigurationFile
