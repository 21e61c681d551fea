#include "platform/desktop/icons/desktopicons.h"
#include "platform/desktop/icons/iconfile.h"
#include "platform/desktop/icons/iconimage.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr int repetitions = 3;
/// The library that has the most icons of all that come with Wine.
const char *const library = "/usr/lib/x86_64-linux-gnu/wine/x86_64-windows/shell32.dll";
constexpr int fewestIcons = 150;

bool run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() && process.exitCode() == 0;
}

/// Large and small, each with its pixels.
void extractIconsOfOneFile(benchmark::State &state)
{
    platform::DesktopIcons icons{platform::DeviceFolder(QDir::tempPath())};
    const std::u16string file = QString::fromLatin1(library).toStdU16String();
    int count = 0;
    for (auto _ : state) {
        for (count = 0;; ++count) {
            const platform::ExtractedIcons found = icons.extract(file, count);
            if (!found.large || !found.small)
                break;
            benchmark::DoNotOptimize(found.large->picture().pixels.data());
            benchmark::DoNotOptimize(found.small->picture().pixels.data());
        }
    }
    if (count < fewestIcons)
        state.SkipWithError("not all icons were found");
    state.counters["icons"] = count;
    state.counters["time_per_icon"] = benchmark::Counter(
        count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// All sizes of all icons, as the two commands put them out, but for writing files.
void decodePicturesOfOneFile(benchmark::State &state)
{
    int count = 0;
    for (auto _ : state) {
        count = 0;
        QFile file(QString::fromLatin1(library));
        file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        const platform::IconFile icons(file);
        for (int index = 0; !icons.icon(index).isEmpty(); ++index) {
            for (const platform::IconImage &image : icons.icon(index))
                count += platform::decodeIconImage(icons.encoded(image)).isNull() ? 0 : 1;
        }
    }
    if (count < fewestIcons)
        state.SkipWithError("not all pictures were found");
    state.counters["pictures"] = count;
}

/// The two commands that stand in for the above. They put out all sizes: asked for some, they fail at PNG.
void icoutilsOnOneFile(benchmark::State &state)
{
    const QTemporaryDir dir;
    int count = 0;
    for (auto _ : state) {
        const QDir folder(dir.filePath(QString::number(count++)));
        QDir(dir.path()).mkdir(folder.path());
        if (!run(QStringLiteral("wrestool"),
                 {QStringLiteral("-x"), QStringLiteral("-t14"), QStringLiteral("-o"), folder.path(),
                  QString::fromLatin1(library)})) {
            state.SkipWithError("wrestool has failed");
            break;
        }
        QStringList files;
        for (const QString &name : folder.entryList(QDir::Files))
            files += folder.filePath(name);
        if (files.size() < fewestIcons
            || !run(QStringLiteral("icotool"),
                    QStringList{QStringLiteral("-x"), QStringLiteral("-o"), folder.path()} + files)) {
            state.SkipWithError("icotool has failed");
            break;
        }
    }
}

} // namespace

BENCHMARK(extractIconsOfOneFile)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
BENCHMARK(decodePicturesOfOneFile)->Unit(benchmark::kMillisecond);
BENCHMARK(icoutilsOnOneFile)->Repetitions(repetitions)->UseRealTime()->Unit(benchmark::kMillisecond);
