// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>

#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv); // a clock's timer needs one
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
