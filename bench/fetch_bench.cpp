#include "holm/application.h"
#include "kestmainprovider/kestmainprovider.h"
#include "platform/desktop/desktopplatform.h"
#include "provider/kestcommandprovider.h"
#include "support/nginxserver.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryFile>
#include <QtCore/QTimer>
#include <algorithm>
#include <benchmark/benchmark.h>

namespace {

constexpr int fileCount = 1000;
constexpr int fileSize = 10000;
constexpr int repetitions = 5;
constexpr int longestWait = 30000; // milliseconds
constexpr double nanosecondsPerMillisecond = 1e6;

/// Serves fileCount files whose names are their numbers.
const NginxServer &serverOf1000Files()
{
    static const NginxServer server;
    static const bool isFilled = [] {
        for (int i = 0; i < fileCount; ++i)
            server.write(QString::number(i), QByteArray(fileSize, 'x'));
        return true;
    }();
    Q_UNUSED(isFilled)
    return server;
}

/// How long the thread's event loop is kept from its work at most. A timer that is due every millisecond
/// tells: whatever runs too long, in whichever event or outside of them all, makes it late.
class PauseMeter : public QObject
{
public:
    PauseMeter()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        connect(&m_timer, &QTimer::timeout, this, &PauseMeter::tick);
        m_timer.start(1);
        m_sinceTick.start();
    }

    void tick()
    {
        m_longest = std::max(m_longest, m_sinceTick.nsecsElapsed());
        m_sinceTick.start();
    }

    double milliseconds() const { return static_cast<double>(m_longest) / nanosecondsPerMillisecond; }

private:
    QTimer m_timer;
    QElapsedTimer m_sinceTick;
    qint64 m_longest = 0;
};

bool awaitAnswers(QScriptEngine &engine)
{
    const auto count = [&engine] {
        return engine.globalObject().property(QStringLiteral("answers")).toInt32();
    };
    QElapsedTimer waited;
    waited.start();
    while (count() < fileCount && waited.elapsed() < longestWait)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return count() == fileCount
        && engine.globalObject().property(QStringLiteral("right")).toInt32() == fileCount;
}

/// From before a script starts all fetches until the last answer.
void fetch1000Files(benchmark::State &state)
{
    const NginxServer &server = serverOf1000Files();
    if (!server.problem().isEmpty()) {
        state.SkipWithError(qPrintable(server.problem()));
        return;
    }
    const QTemporaryDir device;
    platform::install(std::make_unique<platform::DesktopPlatform>(platform::DeviceFolder(device.path())));
    Application application(device.path(), false);
    KestMainProvider store(device.filePath(QStringLiteral("config.ini")));
    application.addProvider(&store);
    KestCommandProvider provider;
    provider.InitializeScript(&application);
    provider.BeginInitialize();
    QScriptEngine &engine = application.engine();
    QScriptValue start =
        engine.evaluate(QStringLiteral("(function() { answers = right = 0; for (var i = 0; i < %1; ++i)"
                                       " getUrl('%2' + i, this, function(hasFailed, text) { ++answers;"
                                       " if (!hasFailed && text.length == %3) ++right; }); })")
                            .arg(fileCount)
                            .arg(server.url(QString()))
                            .arg(fileSize));
    double longestPause = 0;
    for (auto _ : state) {
        PauseMeter meter;
        start.call();
        if (!awaitAnswers(engine)) {
            state.SkipWithError("not all files were fetched");
            break;
        }
        meter.tick();
        longestPause = std::max(longestPause, meter.milliseconds());
    }
    state.counters["longest_pause_ms"] = longestPause;
    provider.Unload();
    platform::install(nullptr);
}

void curl1000Files(benchmark::State &state)
{
    const NginxServer &server = serverOf1000Files();
    if (!server.problem().isEmpty()) {
        state.SkipWithError(qPrintable(server.problem()));
        return;
    }
    QTemporaryFile configuration;
    configuration.open();
    configuration.write("write-out = \"%{http_code} %{size_download}\\n\"\n");
    for (int i = 0; i < fileCount; ++i)
        configuration.write("url = " + server.url(QString::number(i)).toLatin1() + "\noutput = /dev/null\n");
    configuration.flush();
    const QByteArray right = QByteArray("200 10000\n").repeated(fileCount);
    for (auto _ : state) {
        QProcess curl;
        curl.start(QStringLiteral("curl"),
                   {QStringLiteral("-s"), QStringLiteral("--parallel"), QStringLiteral("--parallel-max"),
                    QStringLiteral("6"), QStringLiteral("-K"), configuration.fileName()});
        if (!curl.waitForFinished(longestWait) || curl.readAllStandardOutput() != right) {
            state.SkipWithError("curl is missing, or has not fetched all files");
            break;
        }
    }
}

} // namespace

BENCHMARK(fetch1000Files)->Repetitions(repetitions)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(curl1000Files)->Repetitions(repetitions)->UseRealTime()->Unit(benchmark::kMillisecond);
