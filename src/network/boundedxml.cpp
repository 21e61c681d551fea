#include "network/boundedxml.h"

#include <QtXml/QXmlDefaultHandler>
#include <QtXml/QXmlInputSource>
#include <QtXml/QXmlSimpleReader>

#include <algorithm>

namespace {

constexpr int deepestContentModel = 1000;
constexpr int mostEntities = 1000; // the reader compares each with all others
constexpr int mostCharacters = 16'000'000;
constexpr int mostExpandedCharacters = 16'000'000;
constexpr int longestExpandedEntity = 4096; // the reader's own limit

/// Reads the declarations, and stops at the first element.
class Declarations : public QXmlDefaultHandler
{
public:
    /// Whether the reader got through them.
    bool isComplete() const { return m_isComplete; }

    /// The most characters that a reference to an entity expands to.
    int longestEntity() const { return m_longest; }

    bool internalEntityDecl(const QString &, const QString &value) override
    {
        const bool mayGrow = value.contains(QLatin1Char('&'));
        m_longest = std::max(m_longest, mayGrow ? longestExpandedEntity : value.size());
        return ++m_count <= mostEntities;
    }

    bool externalEntityDecl(const QString &, const QString &, const QString &) override
    {
        return ++m_count <= mostEntities;
    }

    bool startElement(const QString &, const QString &, const QString &, const QXmlAttributes &) override
    {
        m_isComplete = true;
        return false;
    }

private:
    int m_count = 0;
    int m_longest = 0;
    bool m_isComplete = false;
};

void readDeclarations(const QString &text, Declarations &declarations)
{
    QXmlInputSource source;
    source.setData(text);
    QXmlSimpleReader reader;
    reader.setDeclHandler(&declarations);
    reader.setContentHandler(&declarations);
    reader.parse(source);
}

/// The text up to where there is one more of a character than @p most.
QString upToMost(const QString &text, QChar character, int most)
{
    int at = -1;
    for (int left = most; left >= 0; --left) {
        at = text.indexOf(character, at + 1);
        if (at < 0)
            return text;
    }
    return text.left(at);
}

/// The text up to where parentheses are nested too deep, with no other markup between them.
QString upToDeepContentModel(const QString &text)
{
    int depth = 0;
    for (int i = 0; i < text.size(); ++i) {
        const ushort c = text.at(i).unicode();
        if (c == '<' || c == '>')
            depth = 0;
        else if (c == ')')
            --depth;
        else if (c == '(' && ++depth > deepestContentModel)
            return text.left(i);
    }
    return text;
}

} // namespace

QString boundedXml(const QByteArray &body)
{
    QXmlInputSource source;
    source.setData(body.left(2 * mostCharacters)); // a character has two bytes at least, or one
    QString text = source.data().left(mostCharacters);
    if (!text.contains(QLatin1String("<!DOCTYPE")))
        return text;

    text = upToDeepContentModel(text);
    if (!text.contains(QLatin1String("<!ENTITY")))
        return text;

    // Parameter entities expand among the declarations only, so the count of "%" matters only up to their
    // end.
    Declarations declarations;
    readDeclarations(upToMost(text, QLatin1Char('%'), mostExpandedCharacters / longestExpandedEntity),
                     declarations);
    if (!declarations.isComplete())
        return QString();
    if (declarations.longestEntity() == 0)
        return text;
    return upToMost(text, QLatin1Char('&'), mostExpandedCharacters / declarations.longestEntity());
}
