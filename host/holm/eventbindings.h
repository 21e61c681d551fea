#pragma once

#include <QtScript/QScriptValue>

#include <QtCore/QString>

#include <vector>

/// Which script functions are bound to which host event, in the order of binding.
class EventBindings
{
public:
    struct Binding
    {
        int id;
        QString event;
        QScriptValue object;
        QScriptValue function;
    };

    void add(const QScriptValue &object, const QScriptValue &function, const QString &event);

    /// Removes the newest binding of @p object to @p event, if there is one.
    void remove(const QScriptValue &object, const QString &event);

    /// The bindings of @p event. Those of a QObject that has died are forgotten first.
    std::vector<Binding> of(const QString &event);

    bool contains(int id) const;

    /// The identifier of the binding made last. Later ones are larger.
    int lastId() const;

    bool isEmpty() const;

private:
    std::vector<Binding> m_bindings;
    int m_lastId = 0;
};
