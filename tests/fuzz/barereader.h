#pragma once

#include "fuzz/target.h"

#include <network/boundedxml.h>

#include <QtXml/QXmlDefaultHandler>
#include <QtXml/QXmlInputSource>
#include <QtXml/QXmlSimpleReader>

/// Reads @p body as Qt does by default, with namespaces, and without limits but those of boundedXml().
inline void readBare(const QByteArray &body, QXmlContentHandler &handler)
{
    QXmlInputSource source;
    source.setData(body);
    const QString text = source.data();
    const QString bounded = boundedXml(body);
    require(text.startsWith(bounded), "a body is cut, not changed");
    require(bounded.size() == text.size() || text.contains(QLatin1String("<!DOCTYPE")),
            "a body that declares nothing is read whole");

    // Without parameter entities such a short body cannot declare too many, so its declarations make no
    // sense.
    const bool isRefused = bounded.isEmpty() && !text.contains(QLatin1Char('%'));
    source.setData(isRefused ? text : bounded);
    QXmlSimpleReader reader;
    reader.setContentHandler(&handler);
    reader.parse(source);
}
