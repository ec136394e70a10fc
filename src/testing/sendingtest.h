// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/programrig.h"

#include <optional>

namespace orv {

/// One write of the program: what and when.
struct TimedWrite {
    QByteArray bytes;
    qint64 milliseconds = 0;
};

/// The program connected to a scattering meter on 5 January 1999 at 9:30, "Ready". From then on the instrument answers
/// every item at once, "." after a letter that asks for a value, ">" after the value, but no other request.
class SendingTest : public ProgramTest {
protected:
    using Outcome = SettingsSender::Outcome;

    SendingTest() {
        clock.set(QDateTime(QDate(1999, 1, 5), QTime(9, 30)));
        connectAndRead();
        com1.discards = 0;
        com1.written = [this](const QByteArray& bytes) { takeWrite(bytes); };
        settings.record = {.samplesPerPoint = QStringLiteral("30"),
                           .hoursBeforeBlock = QStringLiteral("24"),
                           .pointsPerBlock = QStringLiteral("60000"),
                           .secondsBetweenPoints = QStringLiteral("3600")};
        settings.lamp = Lamp::Off;
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
        } else if (bytes == "P" || bytes == "C") {
            return;
        } else if (digits_ >= 0) {
            ++digits_;
            com1.input += bytes + (digits_ == 6 ? "." : digits_ == 10 ? ">" : "");
        } else {
            com1.input += bytes + '>';
        }
    }

    /// "Apply Settings", to the end of the sending.
    void apply() {
        sender.applySettings();
        finish();
    }

    /// A sending inside another procedure, to its end; nothing if the connection has ended.
    std::optional<Outcome> setprefs() {
        outcome_.reset();
        procedures.start(QStringLiteral("Test"), [this] { return sendAlone(); });
        finish();
        return outcome_;
    }

    /// The whole report arrives and is read.
    void readReport() {
        com1.input += settingsReport("60000");
        live(0.2);
    }

    QByteArrayList written() const {
        QByteArrayList list;
        for (const TimedWrite& write : writes) {
            list << write.bytes;
        }
        return list;
    }

    qint64 sinceLastWrite() const { return clock.monotonicMilliseconds() - writes.back().milliseconds; }

    QStringList transcript() const { return {debug.list.entries().begin(), debug.list.entries().end()}; }

    static Message sendingError() {
        return {.title = QStringLiteral("Error"),
                .text = QStringLiteral("Error Sending Prefs. Error Code 1"),
                .icon = Message::Icon::Exclamation,
                .withoutWindow = QStringLiteral("The instrument did not answer what was sent.")};
    }

    std::size_t answered = 1000; ///< So many writes are answered.
    std::vector<TimedWrite> writes;
    std::function<void(const QByteArray& bytes)> onWrite;
    Subscription lookingWhenShown = sender.mainWindowWanted.subscribe([this] { shownAfter = messages.shown.size(); });
    std::optional<std::size_t> shownAfter; ///< Messages shown before the main window came forward.

private:
    Task<> sendAlone() {
        const Outcome outcome = co_await sender.setprefs();
        outcome_ = outcome;
    }

    std::optional<Outcome> outcome_;
    int digits_ = -1; ///< Digits taken since "U"; negative before it.
};

} // namespace orv
