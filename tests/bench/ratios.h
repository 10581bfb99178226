#ifndef BENCH_RATIOS_H
#define BENCH_RATIOS_H

#include <benchmark/benchmark.h>
#include <map>
#include <string>

/// Shows the runs as Google Benchmark does and remembers the best time of each, so that ratios can be told.
class Ratios : public benchmark::ConsoleReporter
{
public:
    Ratios();

    void ReportRuns(const std::vector<Run> &runs) override;

    /// Processor seconds of the best run of a benchmark; 0 where none ran.
    double best(const std::string &name) const;
    /// Seconds that somebody waited in the best run of a benchmark; 0 where none ran.
    double bestElapsed(const std::string &name) const;

    /// Prints a line "name: ratio", with what it should be. Nothing where one of the two is missing.
    static void print(const std::string &name, double value, double peer, const std::string &aim);

private:
    struct Times
    {
        double processor = 0;
        double elapsed = 0;
    };

    Times times(const std::string &name) const;

    std::map<std::string, Times> m_best;
};

#endif
