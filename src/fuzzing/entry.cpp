// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/fuzzing.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstdio>
#include <cstdlib>

/// libFuzzer's side of one reader, which the build names ORV_READER.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        orv::fuzzing::ORV_READER(orv::fuzzing::Input(QByteArrayView(data, static_cast<qsizetype>(size))));
    } catch (const std::exception& error) {
        // Not before everything is put away: a limit of a file's size would keep the input from being written.
        std::fprintf(stderr, "Does not hold: %s\n", error.what());
        std::abort();
    }
    return 0;
}

int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static const QCoreApplication application(*argc, *argv);
    return 0;
}
