#include "firstpaint.h"
#include "holm/application.h"
#include "platform/desktop/desktopplatform.h"
#include "programs/programsmenu.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QScrollBar>
#include <benchmark/benchmark.h>

namespace {

constexpr int shortcutCount = 1000;
constexpr int repetitions = 5;

double millisecondsSince(const QElapsedTimer &start)
{
    return static_cast<double>(start.nsecsElapsed()) * 1e-6;
}

/// A new device whose folder \Programs\Many is full of shortcuts with icons, and a script to open it.
class Menu
{
public:
    explicit Menu(bool keepsIcons)
        : m_application(QStringLiteral(SOURCE_DIR "/share/holm"), false)
    {
        const platform::DeviceFolder device(m_device.filePath(QStringLiteral("device")));
        const QString problem = device.create();
        if (!problem.isEmpty())
            qFatal("%s", qPrintable(problem));
        const QString folder = device.path() + QLatin1String("/Programs/Many/");
        QDir().mkpath(folder);
        for (int i = 0; i < shortcutCount; ++i) {
            QFile shortcut(folder + QStringLiteral("Program %1.lnk").arg(i));
            shortcut.open(QIODevice::WriteOnly);
            shortcut.write("40#\\Windows\\switch.exe?\\Windows\\shellres.dll,-"
                           + QByteArray::number(101 + i % 10));
        }
        platform::install(std::make_unique<platform::DesktopPlatform>(device));
        m_provider.InitializeScript(&m_application);
        QSettings().setValue(QStringLiteral("main/useProgramsIconCache"), keepsIcons);
    }

    ~Menu()
    {
        ProgramsMenu::purgeCaches(QString());
        ProgramsMenu::purgeIconsCache();
        QSettings().clear();
        platform::install(nullptr);
    }
    Q_DISABLE_COPY(Menu)

    /// Opens the menu and closes it again behind @p use. Returns the time to its first painting.
    double open(const std::function<void(QWidget &)> &use)
    {
        double milliseconds = 0;
        QElapsedTimer start;
        start.start();
        const FirstPaint firstPaint([&](QWidget *dialog) {
            milliseconds = millisecondsSince(start);
            use(*dialog);
            dialog->close();
        });
        m_application.engine().evaluate(QStringLiteral("openProgramsFolder('\\\\Programs\\\\Many')"));
        return milliseconds;
    }

private:
    QTemporaryDir m_device;
    Application m_application;
    KestCommandProvider m_provider;
};

/// From the script's call to the first picture, nothing being known of the folder.
void openProgramsOf1000(benchmark::State &state)
{
    Menu menu(false);
    for (auto _ : state)
        state.SetIterationTime(menu.open([](QWidget &) {}) * 1e-3);
}

/// Through all rows, a page at a time, so that all of a page's pictures are made at once.
double longestPauseOfScrolling(QWidget &dialog)
{
    FlickList &list = *dialog.findChild<FlickList *>();
    QScrollBar &bar = *list.verticalScrollBar();
    double longest = 0;
    for (int position = 0; position < bar.maximum() + bar.pageStep(); position += bar.pageStep()) {
        QElapsedTimer start;
        start.start();
        bar.setValue(position);
        list.viewport()->repaint();
        longest = std::max(longest, millisecondsSince(start));
    }
    return longest;
}

void scrollPrograms(benchmark::State &state, bool keepsIcons)
{
    Menu menu(keepsIcons);
    double longest = 0;
    for (auto _ : state)
        menu.open([&longest](QWidget &dialog) { longest = longestPauseOfScrolling(dialog); });
    if (keepsIcons && ProgramsMenu::iconsCache.size() != shortcutCount)
        state.SkipWithError("not all rows have been painted");
    state.counters["longest_pause_ms"] = longest;
}

void scrollProgramsWithoutCache(benchmark::State &state)
{
    scrollPrograms(state, false);
}

void scrollProgramsWithCache(benchmark::State &state)
{
    scrollPrograms(state, true);
}

} // namespace

BENCHMARK(openProgramsOf1000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(repetitions)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(scrollProgramsWithoutCache)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollProgramsWithCache)->Iterations(1)->Unit(benchmark::kMillisecond);
