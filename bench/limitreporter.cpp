#include "limitreporter.h"

#include <iomanip>

namespace {

struct Limit
{
    const char *measured;
    const char *reference;
    double most;
};

const Limit limits[] = {
    {"callThroughInvoke", "callBareFunction", 1.5},
    {"getFilesOf100000", "listDirectoryOf100000", 1.3},
};

} // namespace

void LimitReporter::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        const double time = run.GetAdjustedRealTime();
        const auto [known, isNew] = m_bestTimes.emplace(run.run_name.function_name, time);
        if (!isNew && run.run_type == Run::RT_Iteration)
            known->second = std::min(known->second, time);
    }
    ConsoleReporter::ReportRuns(runs);
}

void LimitReporter::Finalize()
{
    for (const Limit &limit : limits) {
        const auto measured = m_bestTimes.find(limit.measured);
        const auto reference = m_bestTimes.find(limit.reference);
        if (measured == m_bestTimes.end() || reference == m_bestTimes.end())
            continue;
        const double ratio = measured->second / reference->second;
        m_keepsLimits = m_keepsLimits && ratio <= limit.most;
        GetOutputStream() << limit.measured << " takes " << std::fixed << std::setprecision(2) << ratio
                          << " times as long as " << limit.reference << " (at most " << limit.most << ")"
                          << (ratio <= limit.most ? "" : ": TOO SLOW") << '\n';
    }
}

bool LimitReporter::keepsLimits() const
{
    return m_keepsLimits;
}
