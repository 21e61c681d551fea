#include "fuzz/barereader.h"

#include <network/weatherparser.h>

#include <algorithm>

namespace {

/// Has the parser see attributes by the local names that Qt's reader finds.
class LocalNames : public WeatherParser
{
public:
    using WeatherParser::WeatherParser;

    bool startElement(const QString &namespaceUri, const QString &localName, const QString &qualifiedName,
                      const QXmlAttributes &attributes) override
    {
        QXmlAttributes local;
        for (int i = 0; i < attributes.count(); ++i) {
            const QString name = attributes.localName(i);
            local.append(QLatin1String("prefix:") + name, attributes.uri(i), name, attributes.value(i));
        }
        return WeatherParser::startElement(namespaceUri, localName, qualifiedName, local);
    }
};

} // namespace

void tryInput(const QByteArray &body)
{
    const WeatherReport report = WeatherParser::parse(body);
    WeatherReport expected;
    LocalNames parser(expected);
    readBare(body, parser);
    require(std::equal(report.begin(), report.end(), expected.begin(), expected.end(),
                       [](const WeatherValue &left, const WeatherValue &right) {
                           return left.property == right.property && left.value == right.value;
                       }),
            "the report is what Qt's reader gives by default");
}
