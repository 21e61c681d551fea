#include "network/xmlreading.h"

#include "network/boundedxml.h"

#include <QtXml/QXmlDefaultHandler>
#include <QtXml/QXmlInputSource>
#include <QtXml/QXmlSimpleReader>

namespace {

constexpr int deepestElement = 150000; // some 350 bytes of stack each

/// Passes on what a reader reports, until elements are nested too deep.
class DepthGuard : public QXmlDefaultHandler
{
public:
    explicit DepthGuard(QXmlContentHandler &handler)
        : m_handler(handler)
    {
    }

    bool startElement(const QString &namespaceUri, const QString &localName, const QString &qualifiedName,
                      const QXmlAttributes &attributes) override
    {
        return ++m_depth <= deepestElement
            && m_handler.startElement(namespaceUri, localName, qualifiedName, attributes);
    }

    bool endElement(const QString &namespaceUri, const QString &localName,
                    const QString &qualifiedName) override
    {
        --m_depth;
        return m_handler.endElement(namespaceUri, localName, qualifiedName);
    }

    bool characters(const QString &text) override { return m_handler.characters(text); }

private:
    QXmlContentHandler &m_handler;
    int m_depth = 0;
};

} // namespace

void readXml(const QByteArray &body, QXmlContentHandler &handler)
{
    QXmlInputSource source;
    source.setData(boundedXml(body));
    DepthGuard guard(handler);
    QXmlSimpleReader reader;
    // Declarations of namespaces that nest would take memory by the square of their number.
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    reader.setContentHandler(&guard);
    reader.parse(source); // whatever came before an error counts
}
