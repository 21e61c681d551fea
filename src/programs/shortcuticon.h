#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// An icon by the file that it is in and its number there, as platform::Icons::extract() takes it.
struct IconLocation
{
    QString file;
    int index = 0;
};

/// What a shortcut says of its icon.
struct ShortcutIcon
{
    enum class Source {
        None, ///< the shortcut names no target
        Location, ///< location is the icon
        DocumentType, ///< name is the type of document whose icon it is
        ShellName, ///< name, with its colon, is the shell's name for a program whose icon it is
    };

    Source source = Source::None;
    QString name;
    IconLocation location;
};

// Any bytes and texts can be read. Any thread.

/// Reads a Windows CE shortcut: a count, "#", the target and its parameters, and perhaps "?" and an icon, in
/// the first line that does not begin with ";". It is UTF-8 or, if it cannot be, in the system's code page.
/// A further "#" ends what is read here; the shell, which starts the target, takes it for a parameter.
ShortcutIcon readShortcutIcon(const QByteArray &content);

/// Reads "file,index". The file may be in quotes; without an index it is 0.
IconLocation readIconLocation(const QString &text);

/// The program of a command line: what is in quotes, or else goes up to the first blank.
QString programOf(const QString &commandLine);
