#include "providertest.h"

#include <QtCore/QDir>
#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtTest/QTest>
#include <QtWidgets/QMessageBox>

void RecordingApplication::registerFunction(IProvider *provider, const QString &name, bool interactive,
                                            bool returnsValue, int index)
{
    registered.append(QStringLiteral("%1 %2 %3 %4").arg(index).arg(name).arg(interactive).arg(returnsValue));
    Application::registerFunction(provider, name, interactive, returnsValue, index);
}

IProvider *RecordingApplication::provider(const QString &name) const
{
    calls.append(QLatin1String("provider ") + name);
    return Application::provider(name);
}

void RecordingApplication::loadTranslation(const QString &basePath)
{
    calls.append(QLatin1String("loadTranslation ") + basePath);
}

void RecordingApplication::setNativeDialogOpen(bool open)
{
    calls.append(QStringLiteral("setNativeDialogOpen %1").arg(open));
}

QScriptValue RecordingApplication::callFunction(const QScriptValue &thisObject, const QScriptValue &function,
                                                const QScriptValueList &arguments, bool reportErrors)
{
    calls.append(QStringLiteral("callFunction"));
    return Application::callFunction(thisObject, function, arguments, reportErrors);
}

class ProviderTest::MessageReader : public QObject
{
public:
    MessageReader() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = event->type() == QEvent::Show ? qobject_cast<QMessageBox *>(watched) : nullptr;
        if (box) {
            messages.append(QLatin1Char('[') + box->windowTitle() + QLatin1String("] ") + box->text());
            const auto close = [box] {
                if (box->isVisible()) // not answered by the test itself
                    box->reject();
            };
            QMetaObject::invokeMethod(box, close, Qt::QueuedConnection);
        }
        return false;
    }

    QStringList messages;
};

ProviderTest::ProviderTest()
    : m_platform(new FakePlatform(m_dir.filePath(QStringLiteral("device"))))
    , m_platformInForce(std::unique_ptr<platform::Platform>(m_platform))
    , m_shell(&m_platform->fakeShell)
    , m_application(m_dir.filePath(QStringLiteral("app")), false)
    , m_store(m_dir.filePath(QStringLiteral("config.ini")))
    , m_registry(platform::DeviceFolder(m_dir.filePath(QStringLiteral("device"))))
    , m_reader(std::make_unique<MessageReader>())
{
    QDir(m_dir.path()).mkdir(QStringLiteral("app"));
    QDir(m_dir.path()).mkdir(QStringLiteral("device"));
    m_application.addProvider(&m_store);
    m_provider.InitializeScript(&m_application);
    m_provider.BeginInitialize();
    QScriptEngine &engine = m_application.engine();
    engine.globalObject().setProperty(QStringLiteral("widget"), engine.newQObject(&m_widget));
    run(QStringLiteral("results = []; cb = function() { results.push([].slice.call(arguments)); }"));
}

ProviderTest::~ProviderTest()
{
    m_provider.Unload();
}

QString ProviderTest::run(QString script)
{
    script.replace(QLatin1String("$APP"), m_dir.filePath(QStringLiteral("app")));
    QScriptEngine &engine = m_application.engine();
    const QScriptValue json = engine.evaluate(QStringLiteral("JSON")).property(QStringLiteral("stringify"));
    const QScriptValue value = engine.evaluate(script);
    EXPECT_FALSE(engine.hasUncaughtException()) << value.toString().toStdString();
    return QScriptValue(json).call(QScriptValue(), QScriptValueList{value}).toString();
}

bool ProviderTest::waitForAnswers()
{
    return QTest::qWaitFor([this] { return !m_provider.awaitsAnswers(); }, 60000);
}

void ProviderTest::makeFile(const QString &path) const
{
    QFile file(m_dir.filePath(path));
    ASSERT_TRUE(QDir(m_dir.path()).mkpath(QFileInfo(path).path()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

bool ProviderTest::exists(const QString &path) const
{
    const QFileInfo info(m_dir.filePath(path));
    return info.exists() || info.isSymLink();
}

QStringList ProviderTest::takeMessages()
{
    return std::exchange(m_reader->messages, {});
}
