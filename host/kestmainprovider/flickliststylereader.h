#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtCore/QXmlStreamReader>

/// Reads the XML of a FlickListStyle, which may be any bytes.
class FlickListStyleReader
{
public:
    using Values = QHash<QString, QVariant>; ///< by property

    explicit FlickListStyleReader(const QByteArray &bytes);

    /// Fills values and pictures. Returns false at the first fault, which problem() tells.
    bool read();

    /// "line: text". Empty if there is none.
    QString problem() const;

    QHash<QString, Values> values; ///< by item class
    QHash<QString, QString> pictures; ///< paths by name

private:
    bool readNextChild();
    QString readText();
    QString readName(const QString &attribute);
    void readItem();
    void readValue(Values &itemValues);
    void readPicture();
    void refuseElement();
    void fail(const QString &problem);

    QXmlStreamReader m_xml;
};
