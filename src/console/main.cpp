// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/filedescriptor.h"
#include "base/interruption.h"
#include "console/commands.h"
#include "console/standardoutput.h"
#include "link/systemport.h"
#include "program/devices.h"

#include <QCoreApplication>

#include <optional>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace {

using namespace orv;

QStringList argumentList(int count, char** values) {
    QStringList list;
    for (int i = 0; i < count; ++i) {
        list.append(QString::fromLocal8Bit(values[i]));
    }
    return list;
}

int print(const QString& text) {
    if (std::fputs(text.toLocal8Bit().constData(), stdout) < 0 || std::fflush(stdout) != 0) {
        std::fprintf(stderr, "orv: Standard output takes nothing: %s.\n", qPrintable(qt_error_string(errno)));
        return static_cast<int>(ExitStatus::Failed);
    }
    return static_cast<int>(ExitStatus::Done);
}

/// The command keeps the program's log and record file.
bool writesInFolder(Options::Command command) {
    return command == Options::Command::Collect || command == Options::Command::Download;
}

int perform(const Options& options) {
    StandardOutput output(STDOUT_FILENO);
    StandardOutput error(STDERR_FILENO);
    // Where rows are shown a line that is written over and over would stand between them.
    const bool showsRows = options.output == QLatin1String("-") && ::isatty(STDOUT_FILENO) == 1;
    Terminal terminal(output, error, ::isatty(STDERR_FILENO) == 1 && !showsRows,
                      options.quiet     ? Terminal::Speech::Quiet
                      : options.verbose ? Terminal::Speech::Verbose
                                        : Terminal::Speech::Usual);
    SystemClock clock;
    ConsoleMessages messages(terminal);
    SafeAnswers answers(terminal);
    SystemPortList portList(clock, SystemPortList::systemDeviceFolder());
    Program program({.clock = clock,
                     .messages = messages,
                     .questions = answers,
                     .makePort =
                         [&clock, &messages](const QString& device) {
                             return makePort(device, clock, [&messages](const QString& text) {
                                 messages.show({.title = QStringLiteral("Replay"), .text = text});
                             });
                         },
                     .portList = &portList,
                     .deviceProblem = deviceProblem});
    const Subscription connected = program.link.connection.identified.subscribe([&messages] { messages.forget(); });
    const Subscription saying =
        terminal.said.subscribe([&program](const QString& line) { program.capture.said(line); });
    for (const QString& name : filesOf(options)) {
        program.capture.noteFile(name);
    }
    if (!options.capture.isEmpty()) {
        program.capture.begin(options.capture);
    }
    program.load(writesInFolder(options.command) ? Program::Files::InFolder : Program::Files::None);
    Visit visit(program, terminal, options);
    Interruption interruption;
    constexpr int signalled = 128;
    std::optional<int> status; // known: the command has ended
    const Subscription interrupted = interruption.wanted.subscribe([&visit, &status, &program](int signal) {
        program.capture.did(QString(), QStringLiteral("signal"), QString::number(signal));
        visit.interrupt(signal);
        if (status) {
            QCoreApplication::exit();
        }
    });
    const Subscription drained = output.drained.subscribe([&visit, &status] {
        visit.look();
        if (status) {
            QCoreApplication::exit();
        }
    });
    const Subscription start = clock.callAfter(0, [&] {
        visit.perform(performCommand, [&](int ended) {
            status = ended;
            if (output.bytesToWrite() == 0 || ended > signalled) {
                QCoreApplication::exit();
            }
        });
    });
    QCoreApplication::exec();
    return status.value_or(static_cast<int>(ExitStatus::Failed));
}

} // namespace

int main(int argc, char** argv) {
    fillStandardDescriptors();
    const Options options = readOptions(argumentList(argc, argv), QStringLiteral(ORV_VERSION));
    switch (options.wish) {
    case Options::Wish::Print:
        return print(options.text);
    case Options::Wish::Refuse:
        std::fputs(options.text.toLocal8Bit().constData(), stderr);
        return static_cast<int>(ExitStatus::WrongOptions);
    case Options::Wish::Perform:
        break;
    }
    std::signal(SIGPIPE, SIG_IGN); // a reader that has gone is told as a failed write
    qputenv("QT_NO_GLIB", "1");    // the desktop's event loop takes more of the processor
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orv"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORV_VERSION));
    return perform(options);
}
