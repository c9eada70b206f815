// SPDX-License-Identifier: Apache-2.0
// Measures what draws, new ads and large replies cost, with Google Benchmark.

#include "benchmarks/BenchOptions.h"
#include "benchmarks/BenchServer.h"
#include "benchmarks/micro/DrawFigures.h"
#include "benchmarks/micro/ReplyFigures.h"
#include "benchmarks/micro/TableFigures.h"

#include <QtCore/QCoreApplication>

using namespace velmora::bench;

namespace {

// The options of Google Benchmark. It keeps the texts.
void initialise(const BenchOptions &bench) {
    static QByteArrayList options{
        "velmora-micro-bench", "--benchmark_enable_random_interleaving=true",
        "--benchmark_repetitions=" + QByteArray::number(bench.roundsOr(9)),
        bench.isSmoke ? "--benchmark_min_time=0.001" : "--benchmark_min_time=0.05"};
    if (!bench.only.isEmpty())
        options.append("--benchmark_filter=^" + bench.only.toLatin1() + '/');
    std::vector<char *> arguments;
    for (QByteArray &option : options)
        arguments.push_back(option.data());
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
}

} // namespace

int main(int argc, char **argv) {
    BenchServer bench;
    for (const QString &name : bench.environment().keys())
        qputenv(qPrintable(name), bench.environment().value(name).toLocal8Bit());
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora Benchmarks"));
    QCoreApplication::setApplicationName(QStringLiteral("host"));
    const QCoreApplication application(argc, argv);
    initialise(BenchOptions::parse(application));
    MicroFigures figures;
    DrawFigures::addTo(figures);
    TableFigures::addTo(figures);
    ReplyFigures::addTo(figures, bench.server());
    benchmark::RunSpecifiedBenchmarks(&figures);
    return 0;
}
