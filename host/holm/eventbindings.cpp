#include "eventbindings.h"

#include <algorithm>
#include <iterator>

namespace {

// A QObject may have several wrappers, so they are not compared as script values.
bool isSame(const QScriptValue &a, const QScriptValue &b)
{
    return a.isQObject() && b.isQObject() ? a.toQObject() == b.toQObject() : a.strictlyEquals(b);
}

bool isDead(const EventBindings::Binding &binding)
{
    return binding.object.isQObject() && !binding.object.toQObject();
}

} // namespace

void EventBindings::add(const QScriptValue &object, const QScriptValue &function, const QString &event)
{
    m_bindings.push_back({++m_lastId, event, object, function});
}

void EventBindings::remove(const QScriptValue &object, const QString &event)
{
    const auto found = std::find_if(m_bindings.rbegin(), m_bindings.rend(), [&](const Binding &binding) {
        return binding.event == event && isSame(binding.object, object);
    });
    if (found != m_bindings.rend())
        m_bindings.erase(std::next(found).base());
}

std::vector<EventBindings::Binding> EventBindings::of(const QString &event)
{
    m_bindings.erase(std::remove_if(m_bindings.begin(), m_bindings.end(), isDead), m_bindings.end());
    std::vector<Binding> result;
    std::copy_if(m_bindings.cbegin(), m_bindings.cend(), std::back_inserter(result),
                 [&event](const Binding &binding) { return binding.event == event; });
    return result;
}

bool EventBindings::contains(int id) const
{
    return std::any_of(m_bindings.cbegin(), m_bindings.cend(),
                       [id](const Binding &binding) { return binding.id == id; });
}

int EventBindings::lastId() const
{
    return m_lastId;
}

bool EventBindings::isEmpty() const
{
    return m_bindings.empty();
}
