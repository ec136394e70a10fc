// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/commands.h"
#include "testing/programrig.h"

#include <QBuffer>
#include <QJsonDocument>

namespace orv {

/// How a command has ended.
struct Answered {
    int status = -1; ///< -1: it goes on.
    std::string output;
    std::string error;
};

/// A command of `orv`, with the program's own wiring. Its clock, the operator's signals and perhaps the line are the
/// test.
class ConsoleRig : public ProgramRig {
public:
    explicit ConsoleRig(const LineMaker& makeLine = simulatedInstrument)
        : ProgramRig(makeLine) {}

    ~ConsoleRig() { messages.alsoShow = {}; }
    ConsoleRig(const ConsoleRig&) = delete;
    ConsoleRig& operator=(const ConsoleRig&) = delete;

    /// Begins a command; its words are separated by spaces.
    void begin(const QString& words) {
        const QStringList arguments = QStringList{QStringLiteral("orv")} + words.split(u' ', Qt::SkipEmptyParts);
        options = readOptions(arguments, QStringLiteral("1.0.0"));
        ASSERT_EQ(options.wish, Options::Wish::Perform) << qPrintable(options.text);
        for (QBuffer* buffer : {&output, &error}) {
            buffer->close();
            buffer->setData({});
            buffer->open(QIODevice::WriteOnly);
        }
        terminal.emplace(otherOutput != nullptr ? *otherOutput : output, error, progress, Terminal::Speech::Usual);
        consoleMessages.emplace(*terminal);
        messages.alsoShow = [this](const Message& message) { consoleMessages->show(message); };
        const bool takesPlace = !options.output.isEmpty() && !std::exchange(hasPlace_, true);
        program.load(takesPlace ? Program::Files::InFolder : Program::Files::None);
        timer.setInterval(StatusTimer::normalInterval); // the command before has ended the program
        answered = {};
        visit.emplace(program, *terminal, options);
        visit->perform(performCommand, [this](int status) { answered.status = status; });
    }

    /// Performs a command to its end, which comes within an hour.
    Answered orv(const QString& words) {
        begin(words);
        constexpr int longest = 3'600'000;
        for (int milliseconds = 0; milliseconds < longest && answered.status < 0; ++milliseconds) {
            live(0.001);
        }
        EXPECT_GE(answered.status, 0) << "it does not end";
        return result();
    }
    Answered orv(const char* words) { return orv(QString::fromLatin1(words)); }

    Answered result() const {
        return {.status = answered.status, .output = output.data().toStdString(), .error = error.data().toStdString()};
    }

    /// The instruments on the next lines, of "baud=0", give these lines in place of their settings report.
    void reportInstead(const QByteArrayList& lines) {
        lineMade = [this, lines] {
            line->written = [this, lines](const QByteArray& bytes) {
                line->silent = bytes == "P";
                if (line->silent) {
                    line->input += "P\r\n" + lines.join("\r\n") + "\r\n>";
                }
            };
        };
    }

    QBuffer output;
    QBuffer error;
    QIODevice* otherOutput = nullptr; ///< In place of `output`.
    bool progress = false;            ///< Somebody sits at the terminal of the next command.
    std::optional<Terminal> terminal;
    std::optional<ConsoleMessages> consoleMessages;
    Options options;
    Answered answered;
    std::optional<Visit> visit;

private:
    bool hasPlace_ = false; ///< The folder is this program's.
};

class ConsoleTest : public testing::Test, public ConsoleRig {
protected:
    using ConsoleRig::ConsoleRig;
};

} // namespace orv
