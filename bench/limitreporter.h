#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Prints the results as usual and then what has a limit: the time of a benchmark, or its ratio to that of
/// another, the best of all repetitions counting; and the largest value of a counter in all repetitions.
class LimitReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

    bool keepsLimits() const;

private:
    void judge(const std::string &what, double value, double most);

    std::map<std::string, double> m_bestTimes;
    std::map<std::pair<std::string, std::string>, double> m_counters;
    bool m_keepsLimits = true;
};
