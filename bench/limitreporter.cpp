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
    {"fetch1000Files", "curl1000Files", 1.5},
    {"getFilesOf100000", "listDirectoryOf100000", 1.3},
    {"parseRssOf20000Items", "readXmlOf20000Items", 1.3},
};

/// On what a benchmark counts itself.
struct CounterLimit
{
    const char *benchmark;
    const char *counter;
    double most;
};

const CounterLimit counterLimits[] = {
    {"fetch1000Files", "longest_pause_ms", 16},
    {"registryChangeToCallback", "median_ms", 10},
};

const char *verdict(bool isKept)
{
    return isKept ? "" : ": TOO SLOW";
}

} // namespace

void LimitReporter::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        m_keepsLimits = m_keepsLimits && !run.error_occurred;
        if (run.error_occurred || run.run_type != Run::RT_Iteration)
            continue;
        const double time = run.GetAdjustedRealTime();
        const auto [known, isNew] = m_bestTimes.emplace(run.run_name.function_name, time);
        if (!isNew)
            known->second = std::min(known->second, time);
        for (const auto &[counter, value] : run.counters) {
            double &largest = m_counters[{run.run_name.function_name, counter}];
            largest = std::max<double>(largest, value);
        }
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
        const bool isKept = ratio <= limit.most;
        m_keepsLimits = m_keepsLimits && isKept;
        GetOutputStream() << limit.measured << " takes " << std::fixed << std::setprecision(2) << ratio
                          << " times as long as " << limit.reference << " (at most " << limit.most << ")"
                          << verdict(isKept) << '\n';
    }
    for (const CounterLimit &limit : counterLimits) {
        const auto counted = m_counters.find({limit.benchmark, limit.counter});
        if (counted == m_counters.end())
            continue;
        const bool isKept = counted->second <= limit.most;
        m_keepsLimits = m_keepsLimits && isKept;
        GetOutputStream() << limit.benchmark << ": " << limit.counter << " is " << std::fixed
                          << std::setprecision(2) << counted->second << " (at most " << limit.most << ")"
                          << verdict(isKept) << '\n';
    }
}

bool LimitReporter::keepsLimits() const
{
    return m_keepsLimits;
}
