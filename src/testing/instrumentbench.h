// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/simulatedinstrument.h"
#include "testing/expected.h"
#include "testing/fakes.h"

#include <QByteArrayList>

#include <algorithm>

namespace orv {

/// An instrument and the clock that it goes by.
class InstrumentBench {
public:
    explicit InstrumentBench(const char* device)
        : instrument(parseSimulatorOptions(QString::fromLatin1(device)).options, clock) {}

    /// Lets time pass in steps of 5 ms and returns what has arrived meanwhile.
    QByteArray listen(qint64 milliseconds) {
        constexpr qint64 step = 5;
        QByteArray heard = instrument.takeArrived();
        for (qint64 passed = 0; passed < milliseconds; passed += step) {
            clock.advance(std::min(step, milliseconds - passed));
            heard += instrument.takeArrived();
        }
        return heard;
    }

    /// Wakes the instrument and returns its greeting.
    QByteArray wake() {
        instrument.setWakeLine(true);
        instrument.setWakeLine(false);
        constexpr qint64 longEnough = 200;
        return listen(longEnough);
    }

    /// Types characters and returns what has arrived after so long.
    QByteArray type(const char* characters, qint64 milliseconds = 200) {
        instrument.receive(characters);
        return listen(milliseconds);
    }

    /// Types the first of each pair and compares what has arrived with the second.
    void expectReplies(std::initializer_list<std::pair<const char*, const char*>> dialogue) {
        expectEach(dialogue, [this](const char* typed) { return type(typed); });
    }

    TestClock clock;
    SimulatedInstrument instrument;
};

/// Such an instrument that has been woken.
class AwakeBench : public InstrumentBench {
public:
    explicit AwakeBench(const char* device)
        : InstrumentBench(device) {
        wake();
    }
};

/// The lines of a text whose lines all end with CR LF, and what follows the last line end.
inline QByteArrayList linesOf(const QByteArray& text) {
    QByteArrayList lines = text.split('\n');
    for (qsizetype index = 0; index + 1 < lines.size(); ++index) {
        lines[index].chop(lines.at(index).endsWith('\r') ? 1 : 0);
    }
    return lines;
}

} // namespace orv
