#include "application.h"

#include <orvanecore/functionarguments.h>
#include <orvanecore/iprovider.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtCore/QVarLengthArray>
#include <QtScript/QScriptContext>

#include <algorithm>

namespace {

QString withSeparator(const QString &directory)
{
    return directory.endsWith(QLatin1Char('/')) ? directory : directory + QLatin1Char('/');
}

} // namespace

Application::Application(const QString &applicationDirectory, bool vga)
    : m_path(withSeparator(QDir(applicationDirectory).absolutePath()))
    , m_vga(vga)
    , m_images(m_path)
{
}

Application::~Application() = default;

ScriptEngine &Application::engine()
{
    return m_engine;
}

CallQueue &Application::calls()
{
    return m_calls;
}

void Application::addProvider(IProvider *provider)
{
    m_providers.push_back(provider);
}

bool Application::hasSubscriptions() const
{
    return !m_bindings.isEmpty();
}

bool Application::awaitsAnswers() const
{
    return std::any_of(m_providers.cbegin(), m_providers.cend(), [](IProvider *provider) {
        const auto *object = dynamic_cast<QObject *>(provider);
        return object && object->property("awaitsAnswers").toBool();
    });
}

void Application::registerFunction(IProvider *provider, const QString &name, bool, bool returnsValue,
                                   int index)
{
    m_functions.push_back(
        std::make_unique<PublishedFunction>(PublishedFunction{this, provider, index, returnsValue}));
    m_engine.globalObject().setProperty(name, m_engine.newFunction(callProvider, m_functions.back().get()));
}

QScriptValue Application::callProvider(QScriptContext *context, QScriptEngine *, void *published)
{
    const auto &function = *static_cast<const PublishedFunction *>(published);
    ScriptEngine &engine = function.application->m_engine;
    if (engine.isQuitting())
        return engine.unwindIfQuitting(context);

    constexpr int usualCount = 8;
    QVarLengthArray<QScriptValue, usualCount> values;
    // QScriptContext::argument() makes this object anew for each argument.
    const QScriptValue list = context->argumentsObject();
    for (int i = 0; i < context->argumentCount(); ++i)
        values.append(list.property(static_cast<quint32>(i)));
    FunctionArguments arguments(values.constData(), values.size());

    const CallQueue::Scope scope(function.application->m_calls);
    if (function.returnsValue)
        return function.provider->invokeRet(function.index, &arguments);
    function.provider->invoke(function.index, &arguments);
    return engine.unwindIfQuitting(context);
}

QScriptValue Application::callFunction(const QScriptValue &thisObject, const QScriptValue &function,
                                       const QScriptValueList &arguments, bool reportErrors)
{
    if (m_calls.isPartOfCall())
        return m_engine.call(thisObject, function, arguments, reportErrors);
    m_calls.deliver([this, thisObject, function, arguments, reportErrors] {
        m_engine.call(thisObject, function, arguments, reportErrors);
    });
    return QScriptValue();
}

QString Application::addImageResource(const QString &name, const QPixmap &picture)
{
    m_images.add(name, picture);
    return name;
}

QString Application::addImageFileResource(const QString &path)
{
    return path; // stock pictures can be shown by their path as it is
}

void Application::removeImageResource(const QString &name)
{
    m_images.remove(name);
}

bool Application::isVGA() const
{
    return m_vga;
}

IProvider *Application::provider(const QString &name) const
{
    for (IProvider *provider : m_providers) {
        if (provider->name() == name)
            return provider;
    }
    return nullptr;
}

QString Application::applicationPath() const
{
    return m_path;
}

QScriptValue Application::newObject()
{
    return m_engine.newObject();
}

QScriptValue Application::newArray(uint length)
{
    return m_engine.newArray(length);
}

QScriptValue Application::toScriptValue(const QVariant &value)
{
    return value.isValid() ? m_engine.toScriptValue(value) : m_engine.undefinedValue();
}

QScriptValue Application::nullValue()
{
    return m_engine.nullValue();
}

void Application::fireEvent(const QString &event, const QScriptValueList &arguments)
{
    // An event that has to wait for the call in progress is none of the business of who is bound meanwhile.
    const int lastBinding = m_bindings.lastId();
    m_calls.deliver([this, event, arguments, lastBinding] { deliverEvent(event, arguments, lastBinding); });
}

void Application::deliverEvent(const QString &event, const QScriptValueList &arguments, int lastBinding)
{
    for (const EventBindings::Binding &binding : m_bindings.of(event)) {
        // One handler may have removed another's binding.
        if (binding.id <= lastBinding && m_bindings.contains(binding.id))
            m_engine.call(binding.object, binding.function, arguments, true);
    }
}

void Application::subscribeEvent(const QScriptValue &object, const QScriptValue &function,
                                 const QString &event)
{
    m_bindings.add(object, function, event);
}

void Application::unsubscribeEvent(const QScriptValue &object, const QString &event)
{
    m_bindings.remove(object, event);
}

void Application::loadTranslation(const QString &basePath)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(QLocale(), basePath))
        return; // the texts are English then
    QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
}

void Application::setNativeDialogOpen(bool)
{
    // A desktop has no on-screen keyboard or full-screen window that would stand in a dialog's way.
}
