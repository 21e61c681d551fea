#include <kestmainprovider/kestmainprovider.h>
#include <orvanecore/functionarguments.h>
#include <orvanecore/iapplication.h>
#include <orvanecore/iprovider.h>

/// Publishes greet(thisObject, callback), which calls back with a greeting for whom the configuration names.
class SampleProvider : public QObject, public IProvider
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IProvider_iid)
    Q_INTERFACES(IProvider)

public:
    QString name() const override { return QStringLiteral("SampleProvider"); }

    void InitializeScript(IApplication *application) override
    {
        m_application = application;
        m_application->registerFunction(this, QStringLiteral("greet"), false, false, 0);
    }

    void BeginInitialize() override { }
    void EndInitialize() override { }
    void Unload() override { }

    void invoke(int, FunctionArguments *arguments) override
    {
        auto *configuration =
            dynamic_cast<KestMainProvider *>(m_application->provider(QStringLiteral("KestApi")));
        const QString whom =
            configuration
                ->getConfig(QStringLiteral("sample"), QStringLiteral("whom"), QStringLiteral("world"))
                .toString();
        m_application->callFunction(arguments->argument(0), arguments->argument(1),
                                    {QLatin1String("Hello, ") + whom + QLatin1Char('!')}, true);
    }

    QScriptValue invokeRet(int, FunctionArguments *) override { return QScriptValue(); }

private:
    IApplication *m_application = nullptr;
};

#include "sampleprovider.moc"
