#include "flickliststylereader.h"

#include <QtCore/QStringList>
#include <QtGui/QColor>
#include <QtGui/QFont>

#include <algorithm>
#include <iterator>

namespace {

constexpr double largestNumber = 10000;
constexpr int largestPixelSize = 1000;
constexpr int quotedCharacters = 60;

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text.left(quotedCharacters).simplified() + QLatin1Char('"');
}

QVariant colorFrom(const QString &text)
{
    return QColor::isValidColor(text) ? QVariant(QColor(text)) : QVariant();
}

QVariant numberFrom(const QString &text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && number >= 0 && number <= largestNumber ? QVariant(number) : QVariant();
}

QVariant fontFrom(const QString &text)
{
    const QLatin1String pixels("px");
    QStringList words = text.split(QLatin1Char(' '));
    const bool isItalic = words.removeOne(QStringLiteral("italic"));
    const bool isBold = words.removeOne(QStringLiteral("bold"));
    const QString size = words.value(0);
    const int pixelSize = size.endsWith(pixels) ? size.chopped(pixels.size()).toInt() : 0;
    if (pixelSize < 1 || pixelSize > largestPixelSize || words.size() < 2)
        return QVariant();
    QFont font(words.mid(1).join(QLatin1Char(' ')));
    font.setPixelSize(pixelSize);
    font.setBold(isBold);
    font.setItalic(isItalic);
    return font;
}

struct ValueType
{
    QLatin1String element;
    QVariant (*from)(const QString &text);
    QLatin1String expected;
};

const ValueType valueTypes[] = {
    {QLatin1String("color"), colorFrom, QLatin1String("a colour, such as #1d63b8")},
    {QLatin1String("font"), fontFrom, QLatin1String("a font, such as bold 15px Tahoma")},
    {QLatin1String("number"), numberFrom, QLatin1String("a number from 0 to 10000")},
};

} // namespace

FlickListStyleReader::FlickListStyleReader(const QByteArray &bytes)
    : m_xml(bytes)
{
}

bool FlickListStyleReader::read()
{
    if (readNextChild()) {
        if (m_xml.name() != QLatin1String("list-style"))
            refuseElement();
        while (readNextChild()) {
            if (m_xml.name() == QLatin1String("item"))
                readItem();
            else if (m_xml.name() == QLatin1String("picture"))
                readPicture();
            else
                refuseElement();
        }
        readNextChild(); // nothing may come after
    }
    return !m_xml.hasError();
}

QString FlickListStyleReader::problem() const
{
    return m_xml.hasError() ? QStringLiteral("%1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString())
                            : QString();
}

/// Goes to where a child begins. Returns false at the end of the element instead, or of the document.
bool FlickListStyleReader::readNextChild()
{
    do {
        m_xml.readNext();
        if (m_xml.isDTD())
            fail(QStringLiteral("a document type is not allowed"));
        else if (m_xml.isCharacters() && !m_xml.isWhitespace())
            fail(QStringLiteral("%1 stands outside of a value").arg(quoted(m_xml.text().toString())));
    } while (!m_xml.isStartElement() && !m_xml.isEndElement() && !m_xml.isEndDocument() && !m_xml.hasError());
    return m_xml.isStartElement();
}

/// The text of the element, white space simplified.
QString FlickListStyleReader::readText()
{
    QString text;
    for (m_xml.readNext(); !m_xml.isEndElement() && !m_xml.hasError(); m_xml.readNext()) {
        if (m_xml.isStartElement())
            refuseElement();
        else if (m_xml.isCharacters() || m_xml.isEntityReference())
            text += m_xml.text();
    }
    return text.simplified();
}

QString FlickListStyleReader::readName(const QString &attribute)
{
    QString name = m_xml.attributes().value(attribute).toString();
    if (name.isEmpty())
        fail(QStringLiteral("%1 lacks its %2").arg(quoted(m_xml.name().toString()), attribute));
    return name;
}

void FlickListStyleReader::readItem()
{
    const QString itemClass = readName(QStringLiteral("class"));
    if (values.contains(itemClass))
        fail(QStringLiteral("class %1 is there twice").arg(quoted(itemClass)));
    Values &itemValues = values[itemClass];
    while (readNextChild())
        readValue(itemValues);
}

void FlickListStyleReader::readValue(Values &itemValues)
{
    const auto type = std::find_if(std::begin(valueTypes), std::end(valueTypes),
                                   [this](const ValueType &t) { return m_xml.name() == t.element; });
    if (type == std::end(valueTypes))
        return refuseElement();
    const QString name = readName(QStringLiteral("name"));
    if (itemValues.contains(name))
        return fail(QStringLiteral("%1 is there twice").arg(quoted(name)));
    const QString text = readText();
    const QVariant value = m_xml.hasError() ? QVariant() : type->from(text);
    if (!value.isValid())
        return fail(QStringLiteral("%1 is not %2").arg(quoted(text), type->expected));
    itemValues.insert(name, value);
}

void FlickListStyleReader::readPicture()
{
    const QString name = readName(QStringLiteral("name"));
    if (pictures.contains(name))
        return fail(QStringLiteral("picture %1 is there twice").arg(quoted(name)));
    const QString path = readText();
    if (path.isEmpty())
        return fail(QStringLiteral("picture %1 has no file").arg(quoted(name)));
    pictures.insert(name, path);
}

void FlickListStyleReader::refuseElement()
{
    fail(QStringLiteral("there is no element %1 here").arg(quoted(m_xml.name().toString())));
}

/// The first problem stands; what comes after it may be its consequence.
void FlickListStyleReader::fail(const QString &problem)
{
    if (!m_xml.hasError())
        m_xml.raiseError(problem);
}
