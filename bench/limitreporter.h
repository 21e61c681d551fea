#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Prints the results as usual and then, for each pair of benchmarks that has a limit, how many times longer
/// the first takes than the second, the best of all repetitions counting; and for each counter that has one,
/// the largest value of all repetitions.
class LimitReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

    bool keepsLimits() const;

private:
    std::map<std::string, double> m_bestTimes;
    std::map<std::pair<std::string, std::string>, double> m_counters;
    bool m_keepsLimits = true;
};
