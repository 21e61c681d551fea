#include "platform/desktop/terminaltext.h"

namespace platform {

namespace {

QString escaped(QChar c)
{
    if (c == QLatin1Char('\n'))
        return QStringLiteral("\\n");
    if (c == QLatin1Char('\r'))
        return QStringLiteral("\\r");
    if (c == QLatin1Char('\t'))
        return QStringLiteral("\\t");
    return QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
}

} // namespace

QString onOneLine(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            result += text.midRef(i++, 2);
        else if (c.isSurrogate() || breaksLine(c))
            result += escaped(c);
        else
            result += c;
    }
    return result;
}

bool breaksLine(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

} // namespace platform
