// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/faults.h"

#include <cerrno>
#include <csignal>

namespace orv {

namespace {

using At = Fault::At;
using Then = Fault::Then;
using Call = failingcalls::Plan::Then;
using Random = std::minstd_rand;
constexpr auto memory = FaultyLine::Way::Memory;
constexpr auto terminal = FaultyLine::Way::PseudoTerminal;

int upTo(Random& random, int most) {
    return std::uniform_int_distribution(1, most)(random);
}

/// Bytes of which none is a character of the protocol.
QByteArray noise(Random& random, int length) {
    QByteArray bytes(1, '\0');
    while (bytes.size() < length) {
        bytes += static_cast<char>(0x7f + upTo(random, 0x80));
    }
    return bytes;
}

std::optional<UnwritableFolder>& unwritable() {
    static std::optional<UnwritableFolder> folder;
    return folder;
}

const Fault faults[] = {
    {"cable pulled", At::Byte, terminal, [](MatrixBench& bench, Random&) { bench.faulty->pull(); }},
    {.name = "garbage bytes",
     .at = At::Byte,
     .way = terminal,
     .strike = [](MatrixBench& bench, Random& random) { bench.faulty->put(noise(random, upTo(random, 40)) + "~{"); },
     .isLoud = true},
    {"noise before the greeting", At::Greeting, terminal,
     [](MatrixBench& bench, Random& random) { bench.faulty->put(noise(random, upTo(random, 300))); }},
    {.name = "a byte lost",
     .at = At::Byte,
     .way = terminal,
     .strike = [](MatrixBench& bench, Random&) { bench.faulty->lose(); },
     .isLoud = true},
    {.name = "a byte doubled",
     .at = At::Byte,
     .way = terminal,
     .strike = [](MatrixBench& bench, Random&) { bench.faulty->repeat(); },
     .isLoud = true},
    {"silence of 1 s", At::Byte, terminal, [](MatrixBench& bench, Random&) { bench.faulty->stall(1000); }},
    {"silence of 20 s", At::Byte, terminal, [](MatrixBench& bench, Random&) { bench.faulty->stall(20'000); }},
    {.name = "a break",
     .at = At::Byte,
     .way = terminal,
     .strike =
         [](MatrixBench& bench, Random&) {
             bench.faulty->put(QByteArray(1, '\0'));
             bench.faulty->stall(250);
         },
     .isLoud = true},
    {"no echo", At::Byte, terminal, [](MatrixBench& bench, Random&) { bench.faulty->dropEchoes(); }},
    {"no prompt", At::Byte, terminal, [](MatrixBench& bench, Random&) { bench.faulty->dropPrompts(); }},
    {"instrument reset", At::Byte, terminal, [](MatrixBench& bench, Random&) { bench.faulty->restartInstrument(); }},
    {"another type comes back", At::Byte, terminal,
     [](MatrixBench& bench, Random&) {
         bench.faulty->pull();
         bench.faulty->replaceInstrument(QLatin1String(MatrixBench::otherInstrument));
     }},
    {.name = "disk full", .at = At::Call, .way = memory, .strike = nullptr, .call = Call::FailOn, .error = ENOSPC},
    {.name = "folder read-only",
     .at = At::Call,
     .way = memory,
     .strike = [](MatrixBench&, Random&) { unwritable().emplace(QDir::currentPath()); }},
    {.name = "folder removed",
     .at = At::Call,
     .way = memory,
     .strike = [](MatrixBench& bench, Random&) { bench.removeFolder(); },
     .removesFolder = true},
    {.name = "file locked", .at = At::Call, .way = memory, .strike = nullptr, .call = Call::Locked, .error = EACCES},
    {.name = "clock set back",
     .at = At::ByteOrCall,
     .way = memory,
     .strike = [](MatrixBench& bench, Random&) { bench.clock.set(bench.clock.now().addSecs(-3600)); },
     .setsClock = true},
    {.name = "clock set forward",
     .at = At::ByteOrCall,
     .way = memory,
     .strike = [](MatrixBench& bench, Random&) { bench.clock.set(bench.clock.now().addSecs(3600)); },
     .setsClock = true},
    {.name = "midnight",
     .at = At::ByteOrCall,
     .way = memory,
     .strike = [](MatrixBench& bench,
                  Random&) { bench.clock.set(QDateTime(bench.clock.now().date(), QTime(23, 59, 59, 990))); },
     .setsClock = true},
    {.name = "stopped and continued",
     .at = At::ByteOrCall,
     .way = terminal,
     .strike =
         [](MatrixBench& bench, Random&) {
             bench.clock.stop(20'000);
             ::raise(SIGSTOP);
         },
     .needsProcess = true},
    {.name = "SIGTERM",
     .at = At::ByteOrCall,
     .way = terminal,
     .strike = [](MatrixBench&, Random&) { ::raise(SIGTERM); },
     .then = Then::Ends,
     .needsProcess = true},
    {.name = "SIGHUP",
     .at = At::ByteOrCall,
     .way = terminal,
     .strike = [](MatrixBench&, Random&) { ::raise(SIGHUP); },
     .then = Then::Ends,
     .needsProcess = true},
    {.name = "SIGKILL",
     .at = At::ByteOrCall,
     .way = terminal,
     .strike = [](MatrixBench&, Random&) { ::raise(SIGKILL); },
     .then = Then::IsKilled,
     .needsProcess = true},
};

} // namespace

std::span<const Fault> allFaults() {
    return faults;
}

void mendFolder(const QString& folder) {
    unwritable().reset();
    QDir().mkpath(folder);
}

} // namespace orv
