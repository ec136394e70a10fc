// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/systemport.h"
#include "testing/instrumentlines.h"
#include "testing/processes.h"
#include "testing/programrig.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace orv {

/// The whole program below its windows on the instrument's pseudo-terminal as COM 1 and the test's own as COM 2, driven
/// by its own status timer.
class EndToEndTest : public ProgramTest {
protected:
    EndToEndTest()
        : ProgramTest([](const QString& device, TestClock&) { return std::make_unique<SystemPort>(device); }) {
        clock.run();
        lineMade = [this] {
            line->read = [this](const QByteArray& block) {
                if (!program.isPolling()) {
                    received += block;
                    expectedLog += block + "\r\n";
                }
            };
        };
        // A wait processes real events for a moment; the rest of it is skipped.
        events.process = [this](int milliseconds) {
            constexpr int moment = 30;
            QElapsedTimer passed;
            passed.start();
            while (passed.elapsed() < moment) {
                processEvents();
            }
            clock.advance(milliseconds);
            if (!inWait.empty()) {
                const auto action = std::move(inWait.front());
                inWait.pop_front();
                action();
            }
        };
    }
    ~EndToEndTest() override { program.end(); }

    void start(const char* device, bool debugOutput = false) {
        instrument = std::make_unique<InstrumentProcess>(QString::fromLatin1(device));
        ports.setDevice(1, instrument->path);
        ports.setDevice(2, debugEnd.path);
        debug.comm2Output = debugOutput;
        program.load();
    }

    static void processEvents() {
        QTimer wakeUp;
        wakeUp.start(1);
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }

    /// Runs the program until the condition holds. Returns whether it did.
    template <typename Condition>
    bool until(Condition reached) {
        QElapsedTimer passed;
        passed.start();
        while (!reached()) {
            if (passed.elapsed() > patience) {
                ADD_FAILURE() << "status \"" << status.status.value().toStdString() << "\", code "
                              << static_cast<int>(state.Ctrlscrn);
                return false;
            }
            processEvents();
            debugEnd.listen();
        }
        return true;
    }

    bool isReady() const {
        return status.status.value() == QLatin1String("Ready") && state.Ctrlscrn == Operation::SettingsOpen;
    }
    bool runHasEnded() const { return state.Ctrlscrn == Operation::CollectionSetUp; }

    void connectAndRead() {
        autoConnect();
        ASSERT_TRUE(until([this] { return isReady(); }));
    }

    /// The data lines among the complete lines that the program has received.
    std::vector<DecodedLine> receivedRows() const {
        std::vector<DecodedLine> rows;
        QByteArray text = received;
        text.truncate(text.lastIndexOf('\n') + 1);
        for (const QByteArray& line : text.split('\n')) {
            if (line.count('/') == 2 && line.count('\t') > 1) {
                rows.push_back(decodeLine(line.trimmed()));
            }
        }
        return rows;
    }

    std::deque<std::function<void()>> inWait; ///< What the operator does in the program's next waits.
    FarEnd debugEnd;
    std::unique_ptr<InstrumentProcess> instrument;
    QByteArray received;    ///< All that the poll has read.
    QByteArray expectedLog; ///< The same, each block as one line.
};

} // namespace orv
