#include "network/weatherparser.h"

#include "network/xmlreading.h"

#include <algorithm>
#include <iterator>

namespace {

QVariant asText(const QString &value)
{
    return value;
}

QVariant asInteger(const QString &value)
{
    return value.toInt(); // 0 for a fraction, too, such as a pressure may have
}

QVariant asDouble(const QString &value)
{
    return value.toDouble();
}

struct Row
{
    QLatin1String element;
    QLatin1String attribute;
    QLatin1String property;
    QVariant (*convert)(const QString &value);
};

const Row rows[] = {
    {QLatin1String("yweather:location"), QLatin1String("city"), QLatin1String("city"), asText},
    {QLatin1String("yweather:location"), QLatin1String("country"), QLatin1String("country"), asText},
    {QLatin1String("yweather:units"), QLatin1String("temperature"), QLatin1String("tempUnit"), asText},
    {QLatin1String("yweather:units"), QLatin1String("distance"), QLatin1String("distUnit"), asText},
    {QLatin1String("yweather:units"), QLatin1String("pressure"), QLatin1String("pressUnit"), asText},
    {QLatin1String("yweather:units"), QLatin1String("speed"), QLatin1String("speedUnit"), asText},
    {QLatin1String("yweather:atmosphere"), QLatin1String("humidity"), QLatin1String("humidity"), asInteger},
    {QLatin1String("yweather:atmosphere"), QLatin1String("visibility"), QLatin1String("visibility"), asText},
    {QLatin1String("yweather:atmosphere"), QLatin1String("pressure"), QLatin1String("pressure"), asInteger},
    {QLatin1String("yweather:condition"), QLatin1String("text"), QLatin1String("condition"), asText},
    {QLatin1String("yweather:condition"), QLatin1String("code"), QLatin1String("conditionCode"), asInteger},
    {QLatin1String("yweather:condition"), QLatin1String("temp"), QLatin1String("currentTemp"), asInteger},
    {QLatin1String("yweather:forecast"), QLatin1String("low"), QLatin1String("low"), asInteger},
    {QLatin1String("yweather:forecast"), QLatin1String("high"), QLatin1String("high"), asInteger},
    {QLatin1String("yweather:forecast"), QLatin1String("text"), QLatin1String("fcondition"), asText},
    {QLatin1String("yweather:forecast"), QLatin1String("code"), QLatin1String("fconditionCode"), asInteger},
    {QLatin1String("yweather:wind"), QLatin1String("speed"), QLatin1String("windSpeed"), asDouble},
    {QLatin1String("yweather:wind"), QLatin1String("direction"), QLatin1String("windDirection"), asDouble},
};

/// An attribute's name without its namespace prefix; empty for the declaration of a namespace.
QString localNameOf(const QString &attribute)
{
    return attribute.startsWith(QLatin1String("xmlns:"))
        ? QString()
        : attribute.mid(attribute.indexOf(QLatin1Char(':')) + 1);
}

} // namespace

WeatherReport WeatherParser::parse(const QByteArray &body)
{
    WeatherReport report;
    WeatherParser parser(report);
    readXml(body, parser);
    return report;
}

WeatherParser::WeatherParser(WeatherReport &report)
    : m_report(report)
{
}

bool WeatherParser::startElement(const QString &, const QString &, const QString &qualifiedName,
                                 const QXmlAttributes &attributes)
{
    const QString element = qualifiedName.toLower();
    if (!element.startsWith(QLatin1String("yweather:")))
        return true;
    for (int i = 0; i < attributes.count(); ++i) {
        const QString attribute = localNameOf(attributes.qName(i));
        const auto row = std::find_if(std::begin(rows), std::end(rows), [&](const Row &candidate) {
            return candidate.element == element && candidate.attribute == attribute;
        });
        if (row != std::end(rows))
            set(row->property, row->convert(attributes.value(i)));
    }
    return true;
}

void WeatherParser::set(QLatin1String property, const QVariant &value)
{
    const auto known =
        std::find_if(m_report.begin(), m_report.end(),
                     [property](const WeatherValue &candidate) { return candidate.property == property; });
    if (known != m_report.end())
        known->value = value;
    else
        m_report.push_back({property, value});
}
