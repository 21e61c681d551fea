#pragma once

#include "network/weatherreport.h"

#include <QtXml/QXmlDefaultHandler>

/// Collects what the "yweather:" elements of a weather feed have in their attributes. Elements may be written
/// in capitals; attributes may not. Of what is said twice the last counts.
class WeatherParser : public QXmlDefaultHandler
{
public:
    /// What the feed in @p body says, up to the point where it is no XML. See readXml() for limits and stack.
    static WeatherReport parse(const QByteArray &body);

    /// Fills @p report, which has to outlive the parser.
    explicit WeatherParser(WeatherReport &report);

    bool startElement(const QString &namespaceUri, const QString &localName, const QString &qualifiedName,
                      const QXmlAttributes &attributes) override;

private:
    void set(QLatin1String property, const QVariant &value);

    WeatherReport &m_report;
};
