// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingssender.h"
#include "testing/fakes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace orv {

/// One write of the program: what and when.
struct TimedWrite {
    QByteArray bytes;
    qint64 milliseconds = 0;
};

/// The settings procedures on an open port whose far end answers every item: "." after a letter that asks for a value,
/// ">" after the value. The clock moves by 1 ms for each pass that finds nothing.
class SendingTest : public testing::Test {
protected:
    SendingTest() {
        ports.setDevice(1, QStringLiteral("instrument"));
        ports.open();
        instrument->waited = [this](int milliseconds) {
            ++passes;
            clock.advance(milliseconds);
        };
        instrument->written = [this](const QByteArray& bytes) { takeWrite(bytes); };
        session.state.Ctrlscrn = Operation::SettingsOpen;
        session.state.Vartemp = QStringLiteral("V");
        session.status.instrument = InstrumentType::Trx;
        session.status.status = QStringLiteral("before");
        change(settings.record, [](LoggerSettings& record) {
            record.samplesPerPoint = QStringLiteral("30");
            record.hoursBeforeBlock = QStringLiteral("24");
            record.pointsPerBlock = QStringLiteral("60000");
            record.secondsBetweenPoints = QStringLiteral("3600");
        });
        settings.computerDate = QStringLiteral("1/5/99");
    }

    std::unique_ptr<Port> makePort() {
        auto port = std::make_unique<FakePort>();
        instrument = port.get();
        return port;
    }

    void takeWrite(const QByteArray& bytes) {
        writes.push_back({bytes, clock.monotonicMilliseconds()});
        if (onWrite) {
            onWrite(bytes);
        }
        if (writes.size() > answered) {
            return;
        }
        if (bytes == "U" || bytes == "P") {
            digits_ = bytes == "U" ? 0 : -1;
        }
        if (QByteArray("BTDQIU").contains(bytes)) {
            instrument->input += bytes + '.';
        } else if (bytes == "P") {
            return;
        } else if (digits_ >= 0) {
            ++digits_;
            instrument->input += bytes + (digits_ == 6 ? "." : digits_ == 10 ? ">" : "");
        } else {
            instrument->input += bytes + '>';
        }
    }

    QByteArrayList written() const {
        QByteArrayList list;
        for (const TimedWrite& write : writes) {
            list << write.bytes;
        }
        return list;
    }

    QStringList transcript() const { return {debug.list.entries().begin(), debug.list.entries().end()}; }

    Message sendingError() const {
        return {.title = QStringLiteral("Error"),
                .text = QStringLiteral("Error Sending Prefs. Error Code 1"),
                .icon = Message::Icon::Exclamation};
    }

    FakePort* instrument = nullptr;
    TestClock clock;
    RecordedMessages messages;
    SteppedYield events{clock};
    Session session{clock, messages};
    DebugState debug;
    ComPorts ports{session, debug, [this](const QString& /*device*/) { return makePort(); }};
    ProgramLog log;
    Poll poll{session, ports, debug, log};
    TimedWait wait{clock, events, ports};
    StatusTimer timer;
    SettingsState settings;
    ProgressState progress;
    SendingParts parts{.session = session,
                       .ports = ports,
                       .debug = debug,
                       .poll = poll,
                       .wait = wait,
                       .events = events,
                       .timer = timer,
                       .settings = settings,
                       .progress = progress};
    SettingsSender sender{parts};
    Subscription lookingWhenShown = sender.mainWindowWanted.subscribe([this] { shownAfter = messages.shown.size(); });

    std::size_t answered = 1000; ///< So many writes are answered.
    int passes = 0;              ///< Passes that found nothing.
    std::vector<TimedWrite> writes;
    std::function<void(const QByteArray& bytes)> onWrite;
    std::optional<std::size_t> shownAfter; ///< Messages shown before the main window came forward.

private:
    int digits_ = -1; ///< Digits taken since "U"; negative before it.
};

} // namespace orv
