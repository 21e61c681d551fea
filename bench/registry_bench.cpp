#include "holm/application.h"
#include "platform/desktop/desktopplatform.h"
#include "provider/kestcommandprovider.h"
#include "registrywriter/microseconds.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <algorithm>
#include <benchmark/benchmark.h>

namespace {

constexpr int writes = 500;
constexpr int longestWait = 5000;
constexpr double microsecondsPerSecond = 1e6;
constexpr double microsecondsPerMillisecond = 1e3;

/// Waits as an event loop does, asleep until something happens.
bool awaitCallback(QScriptEngine &engine)
{
    const auto hasCome = [&engine] {
        return !engine.globalObject().property(QStringLiteral("clock")).isNull();
    };
    QTimer timer;
    timer.setSingleShot(true);
    timer.start(longestWait);
    while (!hasCome() && timer.isActive())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return hasCome();
}

/// From before another process writes a value until the script's callback runs.
void registryChangeToCallback(benchmark::State &state)
{
    const QTemporaryDir device;
    platform::install(std::make_unique<platform::DesktopPlatform>(platform::DeviceFolder(device.path())));
    Application application(device.path(), false);
    KestCommandProvider provider;
    provider.InitializeScript(&application);
    QObject widget;
    QScriptEngine &engine = application.engine();
    engine.globalObject().setProperty(QStringLiteral("widget"), engine.newQObject(&widget));
    engine.evaluate(QStringLiteral("clock = null; regEventSuscribe(widget, function(path, before, now) {"
                                   " clock = now; }, 'HKCU\\\\Software\\\\Widgets\\\\clock')"));

    QProcess writer;
    writer.start(QStringLiteral(REGISTRY_WRITER), {device.path()});
    std::vector<double> times;
    for (auto _ : state) {
        engine.globalObject().setProperty(QStringLiteral("clock"), engine.nullValue());
        writer.write("\n");
        if (!awaitCallback(engine)) {
            state.SkipWithError("the change did not arrive");
            break;
        }
        const auto written =
            static_cast<std::uint32_t>(engine.globalObject().property(QStringLiteral("clock")).toInt32());
        times.push_back(microseconds() - written);
        state.SetIterationTime(times.back() / microsecondsPerSecond);
    }
    writer.closeWriteChannel();
    writer.waitForFinished();
    if (times.empty())
        return;

    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    state.counters["median_ms"] = *middle / microsecondsPerMillisecond;
    engine.evaluate(QStringLiteral("regEventUnSuscribe(widget, 'HKCU\\\\Software\\\\Widgets\\\\clock')"));
    platform::install(nullptr);
}

} // namespace

BENCHMARK(registryChangeToCallback)->Iterations(writes)->UseManualTime()->Unit(benchmark::kMillisecond);
