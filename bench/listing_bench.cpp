#include "folderoffiles.h"
#include "holm/application.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <benchmark/benchmark.h>

const QTemporaryDir &folderOfFiles()
{
    static const QTemporaryDir folder;
    static const bool isFilled = [] {
        for (int i = 0; i < fileCount; ++i)
            QFile(folder.filePath(QStringLiteral("file%1.txt").arg(i))).open(QIODevice::WriteOnly);
        return true;
    }();
    Q_UNUSED(isFilled)
    return folder;
}

namespace {

constexpr int repetitions = 5;

void getFilesOf100000(benchmark::State &state)
{
    Application application(folderOfFiles().path(), false);
    KestCommandProvider provider;
    provider.InitializeScript(&application);
    QScriptValue call = application.engine().evaluate(
        QStringLiteral("(function() { var n; getFiles('./', '*.txt', this, function(l) { n = l.length; });"
                       " return n; })"));
    for (auto _ : state) {
        if (call.call().toInt32() != fileCount)
            state.SkipWithError("not all files were listed");
    }
}

void listDirectoryOf100000(benchmark::State &state)
{
    const QDir folder(folderOfFiles().path());
    for (auto _ : state) {
        if (folder.entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name).size() != fileCount)
            state.SkipWithError("not all files were listed");
    }
}

} // namespace

BENCHMARK(getFilesOf100000)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
BENCHMARK(listDirectoryOf100000)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
