// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/programrig.h"

namespace orv {

/// One write of the program: what and when.
struct TimedWrite {
    QByteArray bytes;
    qint64 milliseconds = 0;
};

/// The program on an open port whose far end answers every item: "." after a letter that asks for a value,
/// ">" after the value. The clock moves by 1 ms for each pass that finds nothing.
class SendingTest : public ProgramTest {
protected:
    SendingTest() {
        ports.open();
        com1.waited = [this](int milliseconds) {
            ++passes;
            clock.advance(milliseconds);
        };
        com1.written = [this](const QByteArray& bytes) { takeWrite(bytes); };
        state.Ctrlscrn = Operation::SettingsOpen;
        state.Vartemp = QStringLiteral("V");
        status.instrument = InstrumentType::Trx;
        status.status = QStringLiteral("before");
        change(settings.record, [](LoggerSettings& record) {
            record.samplesPerPoint = QStringLiteral("30");
            record.hoursBeforeBlock = QStringLiteral("24");
            record.pointsPerBlock = QStringLiteral("60000");
            record.secondsBetweenPoints = QStringLiteral("3600");
        });
        settings.computerDate = QStringLiteral("1/5/99");
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
            com1.input += bytes + '.';
        } else if (bytes == "P") {
            return;
        } else if (digits_ >= 0) {
            ++digits_;
            com1.input += bytes + (digits_ == 6 ? "." : digits_ == 10 ? ">" : "");
        } else {
            com1.input += bytes + '>';
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

    std::size_t answered = 1000; ///< So many writes are answered.
    int passes = 0;              ///< Passes that found nothing.
    std::vector<TimedWrite> writes;
    std::function<void(const QByteArray& bytes)> onWrite;
    Subscription lookingWhenShown = sender.mainWindowWanted.subscribe([this] { shownAfter = messages.shown.size(); });
    std::optional<std::size_t> shownAfter; ///< Messages shown before the main window came forward.

private:
    int digits_ = -1; ///< Digits taken since "U"; negative before it.
};

} // namespace orv
