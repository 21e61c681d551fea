#pragma once

#include "callqueue.h"
#include "eventbindings.h"
#include "scriptengine.h"

#include <orvanecore/iapplication.h>
#include <orvanecore/imageresources.h>

#include <QtCore/QTranslator>

#include <memory>
#include <vector>

/// The application that holm is to its providers.
class Application : public IApplication
{
public:
    /// @p applicationDirectory need not end with a separator.
    Application(const QString &applicationDirectory, bool vga);
    virtual ~Application();

    ScriptEngine &engine();
    CallQueue &calls();

    /// Makes a provider known to provider(). It is not owned, and must outlive the application's use.
    void addProvider(IProvider *provider);

    /// Whether a script is bound to an event.
    bool hasSubscriptions() const;

    /// Whether a provider has callbacks to make later; see IProvider.
    bool awaitsAnswers() const;

    void registerFunction(IProvider *provider, const QString &name, bool interactive, bool returnsValue,
                          int index) override;
    QScriptValue callFunction(const QScriptValue &thisObject, const QScriptValue &function,
                              const QScriptValueList &arguments, bool reportErrors) override;
    QString addImageResource(const QString &name, const QPixmap &picture) override;
    QString addImageFileResource(const QString &path) override;
    void removeImageResource(const QString &name) override;
    bool isVGA() const override;
    IProvider *provider(const QString &name) const override;
    QString applicationPath() const override;
    QScriptValue newObject() override;
    QScriptValue newArray(uint length) override;
    QScriptValue toScriptValue(const QVariant &value) override;
    QScriptValue nullValue() override;
    void fireEvent(const QString &event, const QScriptValueList &arguments) override;
    void subscribeEvent(const QScriptValue &object, const QScriptValue &function,
                        const QString &event) override;
    void unsubscribeEvent(const QScriptValue &object, const QString &event) override;
    void loadTranslation(const QString &basePath) override;
    void setNativeDialogOpen(bool open) override;

private:
    struct PublishedFunction
    {
        Application *application;
        IProvider *provider;
        int index;
        bool returnsValue;
    };

    static QScriptValue callProvider(QScriptContext *context, QScriptEngine *engine, void *published);
    void deliverEvent(const QString &event, const QScriptValueList &arguments, int lastBinding);

    const QString m_path;
    const bool m_vga;
    ImageResources m_images;
    CallQueue m_calls;
    ScriptEngine m_engine;
    EventBindings m_bindings;
    std::vector<IProvider *> m_providers;
    std::vector<std::unique_ptr<PublishedFunction>> m_functions;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
