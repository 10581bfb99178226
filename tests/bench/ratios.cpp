#include "ratios.h"

#include <algorithm>
#include <cstdio>

Ratios::Ratios()
    : benchmark::ConsoleReporter(OO_None)
{}

void Ratios::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const auto iterations = static_cast<double>(run.iterations);
        const Times times{run.cpu_accumulated_time / iterations, run.real_accumulated_time / iterations};
        Times &best = m_best.try_emplace(run.run_name.function_name, times).first->second;
        best.processor = std::min(best.processor, times.processor);
        best.elapsed = std::min(best.elapsed, times.elapsed);
    }
    benchmark::ConsoleReporter::ReportRuns(runs);
}

Ratios::Times Ratios::times(const std::string &name) const
{
    const auto known = m_best.find(name);
    return known == m_best.end() ? Times() : known->second;
}

double Ratios::best(const std::string &name) const
{
    return times(name).processor;
}

double Ratios::bestElapsed(const std::string &name) const
{
    return times(name).elapsed;
}

void Ratios::print(const std::string &name, double value, double peer, const std::string &aim)
{
    if (value > 0 && peer > 0)
        std::printf("  %-66s %6.2f   %s\n", name.c_str(), value / peer, aim.c_str());
}
