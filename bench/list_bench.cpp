#include "firstpaint.h"
#include "folderoffiles.h"
#include "holm/application.h"
#include "kestmainprovider/flicklisttextitem.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFileSystemModel>
#include <QtWidgets/QScrollBar>
#include <benchmark/benchmark.h>
#include <malloc.h>

namespace {

constexpr int rowCount = 100000;
constexpr int repetitions = 5;
constexpr QSize handheld(240, 320);

double secondsSince(const QElapsedTimer &start)
{
    return static_cast<double>(start.nsecsElapsed()) * 1e-9;
}

/// From the script's call to the first picture.
void browseFolderOf100000(benchmark::State &state)
{
    const QString folder = folderOfFiles().path();
    Application application(QStringLiteral(SOURCE_DIR "/share/holm"), false);
    KestCommandProvider provider;
    provider.InitializeScript(&application);
    QScriptValue call = application.engine().evaluate(
        QStringLiteral("(function(folder) { browseFiles(this, function() {}, folder); })"));
    for (auto _ : state) {
        double seconds = 0;
        QElapsedTimer start;
        start.start();
        const FirstPaint firstPaint([&](QWidget *dialog) {
            seconds = secondsSince(start);
            dialog->close();
        });
        call.call(QScriptValue(), QScriptValueList{folder});
        state.SetIterationTime(seconds);
    }
}

/// Until all files are there; it shows none of them before.
void fileDialogOf100000(benchmark::State &state)
{
    const QString folder = folderOfFiles().path();
    for (auto _ : state) {
        double seconds = 0;
        QElapsedTimer start;
        start.start();
        QFileDialog dialog(nullptr, QString(), folder);
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        const auto *model = dialog.findChild<QFileSystemModel *>();
        QObject::connect(model, &QFileSystemModel::directoryLoaded, &dialog, [&](const QString &loaded) {
            if (loaded != folder || model->rowCount(model->index(folder)) < fileCount)
                return;
            dialog.repaint();
            seconds = secondsSince(start);
            dialog.reject();
        });
        dialog.exec();
        state.SetIterationTime(seconds);
    }
}

class BareRow : public IFlickListItem
{
public:
    const QMetaObject *metaObject() const override { return &staticMetaObject; }
    QString text() const override { return QString(); }
    qreal height() const override { return 30; }
    void paint(QPainter *) override { }
};

template <typename Row, typename... Arguments>
void fill(FlickList &list, const Arguments &...arguments)
{
    list.clear();
    list.beginInitialize();
    for (int i = 0; i < rowCount; ++i)
        list.addItem(std::make_unique<Row>(arguments...));
    list.endInitialize();
    QApplication::processEvents();
}

std::size_t allocatedBytes()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Rows that have no data of their own, laid out and shown.
void fillListOf100000(benchmark::State &state)
{
    FlickList list;
    list.resize(handheld);
    list.show();
    QApplication::processEvents();
    const std::size_t before = allocatedBytes();
    for (auto _ : state)
        fill<BareRow>(list);
    const std::size_t after = allocatedBytes();
    state.counters["bytes_a_row"] = static_cast<double>(after - before) / rowCount;
}

void scrollListOf100000(benchmark::State &state)
{
    constexpr int positions = 500;
    FlickList list;
    list.resize(handheld);
    list.show();
    fill<FlickListTextItem>(list, QStringLiteral("One of many rows with a text"));
    QScrollBar *bar = list.verticalScrollBar();
    double longest = 0;
    for (auto _ : state) {
        for (int i = 0; i <= positions; ++i) {
            QElapsedTimer start;
            start.start();
            bar->setValue(static_cast<int>(static_cast<qint64>(bar->maximum()) * i / positions));
            list.viewport()->repaint();
            longest = std::max(longest, secondsSince(start));
        }
    }
    state.counters["longest_pause_ms"] = longest * 1000;
}

} // namespace

BENCHMARK(browseFolderOf100000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(repetitions)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(fileDialogOf100000)->UseManualTime()->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(fillListOf100000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollListOf100000)->Iterations(1)->Unit(benchmark::kMillisecond);
