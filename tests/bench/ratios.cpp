#include "ratios.h"

#include <cstdio>

Ratios::Ratios()
    : benchmark::ConsoleReporter(OO_None)
{}

void Ratios::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        const auto known = m_best.find(run.run_name.function_name);
        if (known == m_best.end() || seconds < known->second)
            m_best[run.run_name.function_name] = seconds;
    }
    benchmark::ConsoleReporter::ReportRuns(runs);
}

double Ratios::best(const std::string &name) const
{
    const auto known = m_best.find(name);
    return known == m_best.end() ? 0 : known->second;
}

void Ratios::print(const std::string &name, double value, double peer, const std::string &aim)
{
    if (value > 0 && peer > 0)
        std::printf("  %-66s %6.2f   %s\n", name.c_str(), value / peer, aim.c_str());
}
