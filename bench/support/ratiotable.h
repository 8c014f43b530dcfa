#pragma once

#include <benchmark/benchmark.h>

namespace ovrano::bench {

/// Runs the benchmarks of a program and prints one row for each group of ways to do the same work.
///
/// A benchmark's name is "row/way": the row says what is done, the way who does it. One way of each row is
/// "ours"; the others are what it is compared to. All ways are run in turns, many times, so that a noisy
/// machine is noisy for all of them; the table holds medians and the ratios of medians.
///
///     OVRANO_BENCH_MAIN(QGuiApplication)
int runRatioTable(int argc, char** argv);

} // namespace ovrano::bench

/// The main function of a benchmark program; the application object is what its routines need.
#define OVRANO_BENCH_MAIN(Application)                                                                       \
    int main(int argc, char** argv) {                                                                        \
        qputenv("QT_QPA_PLATFORM", "offscreen");                                                             \
        Application application(argc, argv);                                                                 \
        return ovrano::bench::runRatioTable(argc, argv);                                                     \
    }
