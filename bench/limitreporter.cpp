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
    {"browseFolderOf100000", "fileDialogOf100000", 0.2},
    {"callThroughInvoke", "callBareFunction", 1.5},
    {"extractIconsOfOneFile", "icoutilsOnOneFile", 0.1},
    {"fetch1000Files", "curl1000Files", 1.5},
    {"getFilesOf100000", "listDirectoryOf100000", 1.3},
    {"nextAppointmentsOf10000", "khalListOf10000", 0.05},
    {"openCalendarOf10000", "readAppointmentsOf10000Files", 3},
    {"parseRssOf20000Items", "readXmlOf20000Items", 1.3},
};

/// On the best time of a benchmark, in its own unit.
struct TimeLimit
{
    const char *benchmark;
    double most;
};

const TimeLimit timeLimits[] = {
    {"browseFolderOf100000", 150},
    {"nextAppointmentsOf10000", 20},
    {"openProgramsOf1000", 150},
};

/// On what a benchmark counts itself.
struct CounterLimit
{
    const char *benchmark;
    const char *counter;
    double most;
};

const CounterLimit counterLimits[] = {
    {"fillListOf100000", "bytes_a_row", 300},
    {"fetch1000Files", "longest_pause_ms", 16},
    {"registryChangeToCallback", "median_ms", 10},
    {"scrollListOf100000", "longest_pause_ms", 16},
    {"scrollProgramsWithCache", "longest_pause_ms", 16},
    {"scrollProgramsWithoutCache", "longest_pause_ms", 16},
};

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
        if (measured != m_bestTimes.end() && reference != m_bestTimes.end())
            judge(std::string(limit.measured) + ": its time by that of " + limit.reference,
                  measured->second / reference->second, limit.most);
    }
    for (const TimeLimit &limit : timeLimits) {
        const auto measured = m_bestTimes.find(limit.benchmark);
        if (measured != m_bestTimes.end())
            judge(std::string(limit.benchmark) + ": its time", measured->second, limit.most);
    }
    for (const CounterLimit &limit : counterLimits) {
        const auto counted = m_counters.find({limit.benchmark, limit.counter});
        if (counted != m_counters.end())
            judge(std::string(limit.benchmark) + ": " + limit.counter, counted->second, limit.most);
    }
}

void LimitReporter::judge(const std::string &what, double value, double most)
{
    const bool isKept = value <= most;
    m_keepsLimits = m_keepsLimits && isKept;
    GetOutputStream() << what << " is " << std::fixed << std::setprecision(2) << value << " (at most " << most
                      << ")" << (isKept ? "" : ": TOO MUCH") << '\n';
}

bool LimitReporter::keepsLimits() const
{
    return m_keepsLimits;
}
