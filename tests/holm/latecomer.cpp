#include <orvanecore/functionarguments.h>
#include <orvanecore/iapplication.h>
#include <orvanecore/iprovider.h>

#include <QtCore/QTimer>
#include <QtWidgets/QInputDialog>

/// Publishes dialog(milliseconds, callback), fireLater(milliseconds, event), callLater(milliseconds,
/// callback) and bind(object, callback, event).
class Latecomer : public QObject, public IProvider
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IProvider_iid)
    Q_INTERFACES(IProvider)

public:
    QString name() const override { return QStringLiteral("Latecomer"); }
    void InitializeScript(IApplication *application) override
    {
        m_application = application;
        int index = 0;
        for (const char *function : {"dialog", "fireLater", "callLater", "bind"})
            application->registerFunction(this, QLatin1String(function), true, false, index++);
    }
    void BeginInitialize() override { }
    void EndInitialize() override { }
    void Unload() override { }

    void invoke(int index, FunctionArguments *arguments) override
    {
        const int milliseconds = arguments->argument(0).toInt32();
        const QScriptValue second = arguments->argument(1);
        if (index == 0) {
            QInputDialog dialog;
            dialog.setWindowTitle(QStringLiteral("Question"));
            QTimer::singleShot(milliseconds, &dialog, &QDialog::accept);
            dialog.exec();
            m_application->callFunction(QScriptValue(), second, {}, true);
        } else if (index == 1) {
            const auto fire = [=] { m_application->fireEvent(second.toString(), {milliseconds}); };
            QTimer::singleShot(milliseconds, Qt::PreciseTimer, this, fire);
        } else if (index == 2) {
            const auto call = [=] {
                m_application->callFunction(QScriptValue(), second, {milliseconds}, true);
            };
            QTimer::singleShot(milliseconds, Qt::PreciseTimer, this, call);
        } else {
            m_application->subscribeEvent(arguments->argument(0), second, arguments->argument(2).toString());
        }
    }
    QScriptValue invokeRet(int, FunctionArguments *) override { return QScriptValue(); }

private:
    IApplication *m_application = nullptr;
};

#include "latecomer.moc"
