// SPDX-License-Identifier: Apache-2.0
// Measures hosts from outside: each is a process of its own.

#include "benchmarks/BenchOptions.h"
#include "benchmarks/rows/BannersRow.h"
#include "benchmarks/rows/CallsRow.h"
#include "benchmarks/rows/FirstPixelRow.h"
#include "benchmarks/rows/IdleRow.h"
#include "benchmarks/rows/SizeRow.h"
#include "benchmarks/rows/SlicesRow.h"
#include "benchmarks/rows/StartPhaseRow.h"
#include "benchmarks/rows/StartUpRow.h"
#include "benchmarks/rows/WebViewRow.h"

#include <QtCore/QCoreApplication>

#include <cstdio>

#include <unistd.h>

using namespace velmora::bench;

namespace {

struct Row {
    const char *name;
    void (*measure)(const BenchOptions &options);
};

constexpr Row Rows[] = {
    {"start-up", &StartUpRow::measure},
    {"calls", &CallsRow::measure},
    {"first-pixel", &FirstPixelRow::measure},
    {"start-phase", &StartPhaseRow::measure},
    {"slices", &SlicesRow::measure},
    {"banners", &BannersRow::measure},
    {"web-view", &WebViewRow::measure},
    {"idle", &IdleRow::measure},
    {"size", &SizeRow::measure},
};

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const BenchOptions options = BenchOptions::parse(application);

    // The pages of a file that was just built count as private memory until they are on disk.
    sync();

    for (const Row &row : Rows) {
        if (!options.wants(QString::fromLatin1(row.name)))
            continue;
        std::fprintf(stderr, "%s\n", row.name);
        row.measure(options);
    }
    return 0;
}
