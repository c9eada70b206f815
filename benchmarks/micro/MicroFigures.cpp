// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/micro/MicroFigures.h"

namespace velmora::bench {

void MicroFigures::add(const Figure &figure, const Work &ours, const Work &reference) {
    registered(figure, ours, reference);
}

void MicroFigures::addTimed(const Figure &figure, const Work &ours, const Work &reference) {
    for (auto *benchmark : registered(figure, ours, reference))
        benchmark->UseManualTime()->Iterations(1);
}

std::vector<benchmark::internal::Benchmark *>
MicroFigures::registered(const Figure &figure, const Work &ours, const Work &reference) {
    m_figures.push_back(figure);
    std::vector<benchmark::internal::Benchmark *> benchmarks;
    for (const bool isReference : {false, true}) {
        const Work &work = isReference ? reference : ours;
        if (!work)
            continue;
        auto *benchmark = benchmark::RegisterBenchmark(nameOf(figure, isReference).c_str(), work);
        benchmark->Unit(figure.unit == QLatin1String("us") ? benchmark::kMicrosecond
                                                           : benchmark::kMillisecond);
        benchmarks.push_back(benchmark);
    }
    return benchmarks;
}

std::string MicroFigures::nameOf(const Figure &figure, bool isReference) {
    const QString name = figure.row + u'/' + figure.figure;
    return (isReference ? name + QStringLiteral(", reference") : name).toStdString();
}

bool MicroFigures::ReportContext(const Context &) {
    return true;
}

void MicroFigures::ReportRuns(const std::vector<Run> &runs) {
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const bool isTimedByWork = run.run_name.time_type == "manual_time";
        m_times[run.run_name.function_name].push_back(isTimedByWork ? run.GetAdjustedRealTime()
                                                                    : run.GetAdjustedCPUTime());
    }
}

void MicroFigures::Finalize() {
    for (const Figure &figure : m_figures) {
        const auto ours = m_times.find(nameOf(figure, false));
        if (ours != m_times.end()) // else the filter has left it out
            figure.print(ours->second, m_times[nameOf(figure, true)]);
    }
}

} // namespace velmora::bench
