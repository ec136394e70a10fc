// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings.h"

#include "base/text.h"
#include "fuzzing/fuzzing.h"
#include "testing/fakes.h"

#include <cmath>

namespace orv::fuzzing {

namespace {

/// The settings part of the program alone, on a line that is open.
struct Bench {
    explicit Bench(const char* letter) {
        link.ports.open();
        link.session.state.Vartemp = QString::fromLatin1(letter);
        link.session.commands.activity = Activity::ReadingSettings;
    }

    /// As the tick hands a line on.
    void take(const QString& line) {
        SessionState& state = link.session.state;
        const std::size_t told = messages.shown.size();
        if (state.Ctrlscrn == Operation::ClockCheck) {
            const QString before = settings.shown.loggerTime;
            settings.clock.checktime(line);
            if (state.Ctrlscrn == Operation::ClockCheck) {
                require(settings.shown.loggerTime.value() == before, "a reply that was not read has changed the time");
            } else {
                checkClock();
            }
        } else {
            state.Ctrlscrn = Operation::Ready;
            const int calls = state.Timeout;
            settings.reader.getprefs(line);
            require(state.Timeout == calls + 1, "a line of the report was not counted");
            checkRecord();
        }
        require(messages.shown.size() <= told + 1, "the operator was told twice");
    }

    void checkClock() {
        const QString time = link.session.status.time;
        const QStringList pieces = time.section(u' ', 0, 0).split(u':');
        require(pieces.size() == 3 && pieces[1].size() == 2 && pieces[2].size() == 2 && pieces[1] < u"60" &&
                    pieces[2] < u"60",
                "no time of day is shown", [&time] { return time; });
        require(!link.session.status.date.value().isEmpty(), "no date is shown");
        require(settings.shown.loggerTime.value() == time, "two times are shown");
    }

    /// Numbers are numbers, and the same report again gives the same settings.
    void checkRecord() {
        const LoggerSettings record = settings.shown.record;
        for (const Setting& setting : numberSettings) {
            const QString text = record.*setting.number;
            const auto number = numberText(text);
            require(text.isEmpty() || (number && std::isfinite(*number)), "a setting is no number",
                    [&text] { return text; });
            require(plainNumber(leadingNumber(text)) == (text.isEmpty() ? QStringLiteral("0") : text),
                    "a setting is another when it is read again", [&text] { return text; });
        }
        for (const QString& text : {settings.shown.capacity.value(), settings.shown.memoryPointer.value()}) {
            require(text.isEmpty() || numberText(text), "the memory is no number", [&text] { return text; });
        }
        const int value = settings.progress.value;
        require(value >= 0 && value <= settings.progress.maximum, "the progress bar has left its frame");
    }

    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    TestPort farEnd;
    Link link{{.clock = clock, .messages = messages, .questions = answers, .makePort = [this](const QString&) {
                   return std::make_unique<TestPort>(&farEnd);
               }}};
    Settings settings{link};
};

} // namespace

void settings(Input input) {
    constexpr const char* letters[] = {"V", "F", "f", ""};
    Bench bench(letters[input.below(4)]);
    constexpr int mostLines = 160; // the 150th gives up
    for (int line = 0; !input.isEmpty() && line < mostLines; ++line) {
        bench.take(QString::fromLatin1(input.piece('\n')));
        if (!bench.link.ports.isOpen()) {
            return;
        }
    }
}

} // namespace orv::fuzzing
