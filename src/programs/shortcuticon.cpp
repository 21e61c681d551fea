#include "programs/shortcuticon.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>
#include <QtCore/QTextCodec>

namespace {

QString decode(const QByteArray &bytes)
{
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars + state.remainingChars == 0 ? text : QString::fromLocal8Bit(bytes);
}

/// What stands between the first "#" of the shortcut's line and the next.
QString commandOf(const QByteArray &content)
{
    const QStringList lines = decode(content).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.startsWith(QLatin1Char(';')))
            return line.section(QLatin1Char('#'), 1, 1).trimmed();
    }
    return QString();
}

/// What is in quotes at the start of a text, or else goes up to @p end.
QString quotedOrUpTo(QChar end, const QString &text)
{
    const bool isQuoted = text.startsWith(QLatin1Char('"'));
    return text.section(isQuoted ? QChar(QLatin1Char('"')) : end, isQuoted ? 1 : 0, isQuoted ? 1 : 0);
}

/// The number that a text begins with; 0 if it begins otherwise.
int leadingNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^\\s*[+-]?\\d+"));
    return number.match(text).captured().toInt();
}

} // namespace

ShortcutIcon readShortcutIcon(const QByteArray &content)
{
    using Source = ShortcutIcon::Source;
    const QString command = commandOf(content);
    const int mark = command.indexOf(QLatin1Char('?'));
    if (mark >= 0) {
        const QString icon = command.mid(mark + 1);
        if (icon.startsWith(QLatin1Char(':')))
            return {Source::DocumentType, icon.mid(1), {}};
        return {Source::Location, QString(), readIconLocation(icon)};
    }
    const QString target = programOf(command);
    if (target.isEmpty())
        return {};
    if (target.startsWith(QLatin1Char(':')))
        return {Source::ShellName, target, {}};
    return {Source::Location, QString(), {target, 0}};
}

IconLocation readIconLocation(const QString &text)
{
    const QString trimmed = text.trimmed();
    const QString file = quotedOrUpTo(QLatin1Char(','), trimmed);
    const int end = trimmed.startsWith(QLatin1Char('"')) ? file.size() + 2 : file.size();
    return {file.trimmed(), leadingNumber(trimmed.mid(end).section(QLatin1Char(','), 1, 1))};
}

QString programOf(const QString &commandLine)
{
    return quotedOrUpTo(QLatin1Char(' '), commandLine.trimmed());
}
