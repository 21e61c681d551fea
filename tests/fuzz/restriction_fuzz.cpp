#include "fuzz/target.h"

#include <platform/desktop/outlook/itemfilter.h>

#include <QtCore/QLocale>
#include <QtCore/QStringList>

#include <algorithm>

namespace {

using platform::Restriction;

const char *const operatorSigns[] = {"=", "<>", "<", "<=", ">", ">="};

QString toText(const platform::PropertyValue &value)
{
    if (const auto *date = std::get_if<platform::VariantDate>(&value))
        return QLatin1Char('<') + QString::number(*date, 'f', QLocale::FloatingPointShortest);
    if (const auto *flag = std::get_if<bool>(&value))
        return *flag ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
    const QString text = std::get<QString>(value);
    const QChar quote = QLatin1Char(text.contains(QLatin1Char('"')) ? '\'' : '"');
    return quote + text + quote;
}

QString toText(const Restriction &restriction)
{
    if (restriction.kind == Restriction::Kind::Comparison)
        return QLatin1Char('[') + restriction.property + QLatin1Char(']')
            + QLatin1String(operatorSigns[static_cast<int>(restriction.comparison)])
            + toText(restriction.value);
    QStringList operands;
    for (const Restriction &operand : restriction.operands)
        operands.append(QLatin1Char('(') + toText(operand) + QLatin1Char(')'));
    return operands.join(restriction.kind == Restriction::Kind::AllOf ? QLatin1String("AND")
                                                                      : QLatin1String("OR"));
}

int depthOf(const Restriction &restriction)
{
    int depth = 0;
    for (const Restriction &operand : restriction.operands)
        depth = std::max(depth, 1 + depthOf(operand));
    return depth;
}

} // namespace

void tryInput(const QByteArray &input)
{
    const QString text = QString::fromUtf8(input.constData(), input.size());
    const auto restriction = platform::parseRestriction(text);
    if (!restriction)
        return;
    const QString written = toText(*restriction);
    const auto again = platform::parseRestriction(written);
    // Each operand is in parentheses now.
    constexpr int deepest = 100;
    require(again || depthOf(*restriction) > deepest, "what is read can be written");
    require(!again || toText(*again) == written, "what is read is written and read again as it is");
    for (const auto folder : {platform::OutlookFolder::Calendar, platform::OutlookFolder::Tasks}) {
        const auto filter = platform::ItemFilter::make(*restriction, folder);
        if (filter)
            filter->startRange();
    }
}
