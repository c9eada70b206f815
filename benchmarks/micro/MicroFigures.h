// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/Figure.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velmora::bench {

/// The figures that Google Benchmark measures. It repeats ours and what they are compared with in
/// a random order, and this prints the times of all repetitions.
class MicroFigures : public benchmark::BenchmarkReporter {
public:
    using Work = std::function<void(benchmark::State &)>;

    /// A figure whose time is the calling thread's processor time in the loop over the state.
    void add(const Figure &figure, const Work &ours, const Work &reference = {});
    /// A figure whose work is done once in a repetition and sets its time itself.
    void addTimed(const Figure &figure, const Work &ours, const Work &reference = {});

    bool ReportContext(const Context &context) override;
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

private:
    /// The name of the benchmark of a figure, or of its reference.
    static std::string nameOf(const Figure &figure, bool isReference);
    std::vector<benchmark::internal::Benchmark *> registered(const Figure &figure, const Work &ours,
                                                             const Work &reference);

    std::vector<Figure> m_figures;
    std::map<std::string, std::vector<double>> m_times; // by name, in the figure's unit
};

} // namespace velmora::bench
