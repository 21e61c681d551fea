#include "providertest.h"

#include <QtCore/QDir>
#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtWidgets/QMessageBox>

#include <algorithm>

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

bool FakeShell::execute(const platform::ShellExecution &execution)
{
    executions.push_back(execution);
    return false; // which launching must not mind
}

std::optional<std::u16string> FakeShell::specialFolder(platform::SpecialFolder folder, bool create)
{
    askedFolders.append(QStringLiteral("%1 %2").arg(static_cast<int>(folder)).arg(create));
    return std::nullopt;
}

bool FakeShell::exists(const std::u16string &)
{
    return false;
}

std::u16string FakeShell::localPath(const std::u16string &path)
{
    std::u16string local = path;
    std::replace(local.begin(), local.end(), u'\\', u'/');
    return local;
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
            QMetaObject::invokeMethod(box, &QDialog::reject, Qt::QueuedConnection);
        }
        return false;
    }

    QStringList messages;
};

namespace {
class FakePlatform : public platform::Platform
{
public:
    platform::Shell &shell() override { return m_shell; }

private:
    FakeShell m_shell;
};
} // namespace

ProviderTest::ProviderTest()
    : m_shell(nullptr)
    , m_application(m_dir.filePath(QStringLiteral("app")), false)
    , m_store(m_dir.filePath(QStringLiteral("config.ini")))
    , m_reader(std::make_unique<MessageReader>())
{
    platform::install(std::make_unique<FakePlatform>());
    m_shell = static_cast<FakeShell *>(&platform::current().shell());
    QDir(m_dir.path()).mkdir(QStringLiteral("app"));
    m_application.addProvider(&m_store);
    m_provider.InitializeScript(&m_application);
    m_provider.BeginInitialize();
    run(QStringLiteral("results = []; cb = function() { results.push([].slice.call(arguments)); }"));
}

ProviderTest::~ProviderTest()
{
    m_provider.Unload();
    platform::install(nullptr);
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
