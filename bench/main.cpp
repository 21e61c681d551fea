#include "limitreporter.h"

#include <QtWidgets/QApplication>

/// Ends with 1 if a limit is not kept.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    const QApplication application(argc, argv);
    LimitReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.keepsLimits() ? 0 : 1;
}
