#pragma once

#include <orvanecore/iapplication.h>

#include <QtCore/QString>

#include <vector>

/// What scripts are told of an item: texts by their names, in order.
struct NamedText
{
    const char *name;
    QString text;
};
using Record = std::vector<NamedText>;

// Script objects are made of records only when the store is free again: a script may have put functions of
// its own in the way of setting a property, and these may ask the store, too.

inline QScriptValue scriptObject(IApplication &application, const Record &record)
{
    QScriptValue object = application.newObject();
    for (const NamedText &entry : record)
        object.setProperty(QLatin1String(entry.name), entry.text);
    return object;
}

inline QScriptValue scriptArray(IApplication &application, const std::vector<Record> &records)
{
    QScriptValue array = application.newArray(0);
    quint32 index = 0;
    for (const Record &record : records)
        array.setProperty(index++, scriptObject(application, record));
    return array;
}
