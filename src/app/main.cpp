// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commandline.h"
#include "app/demo.h"
#include "app/desktopnotice.h"
#include "app/sessionend.h"
#include "app/sleepinhibitor.h"
#include "base/filedescriptor.h"
#include "base/language.h"
#include "link/systemport.h"
#include "program/devices.h"
#include "ui/mainwindow.h"
#include "ui/messageboxes.h"
#include "ui/remembered.h"
#include "ui/style.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTextStream>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

constexpr int wrongUsage = 2;

QStringList argumentList(int count, char** values) {
    QStringList list;
    for (int i = 0; i < count; ++i) {
        list.append(QString::fromLocal8Bit(values[i]));
    }
    return list;
}

/// Qt gives up on a missing display by aborting; the operator is told what to do instead.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtFatalMsg) {
        std::fprintf(stderr,
                     "orvhost: there is no display to show a window on: %s\nStart it on a desktop; QT_QPA_PLATFORM="
                     "offscreen does the job of --demo without one.\n",
                     qPrintable(text.simplified()));
        std::_Exit(1);
    }
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

} // namespace

int main(int argc, char** argv) {
#ifdef Q_OS_UNIX
    orv::fillStandardDescriptors();
#endif
    QCoreApplication::setApplicationName(QStringLiteral("orvhost"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORV_VERSION));

    // The command line is read before there is a window system to need, so that help works without a display.
    const orv::CommandLine line =
        orv::readCommandLine(argumentList(argc, argv), QCoreApplication::applicationVersion());
    switch (line.wish) {
    case orv::CommandLine::Wish::ShowHelp:
    case orv::CommandLine::Wish::ShowVersion:
        QTextStream(stdout) << line.text;
        return 0;
    case orv::CommandLine::Wish::Refuse:
        QTextStream(stderr) << line.text;
        return wrongUsage;
    case orv::CommandLine::Wish::Run:
        break;
    }

    if (line.documents) {
        orv::enterDocumentsFolder(); // if it fails, the missing log says what to do
    }
    if (!line.demoFolder.isEmpty()) {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }
#ifdef Q_OS_UNIX
    std::signal(SIGPIPE, SIG_IGN); // whoever reads the standard error may have gone; that is no reason to die
#endif
    const QtMessageHandler usual = qInstallMessageHandler(endWithoutDisplay);
    const QApplication application(argc, argv);
    qInstallMessageHandler(usual);
    const orv::Language language(line.language.isEmpty() ? orv::systemLanguage() : line.language);
    QApplication::setStyle(new orv::ProgramStyle);
    QGuiApplication::setDesktopFileName(QStringLiteral(ORV_ID));
    orv::SystemClock clock;
    orv::MessageBoxes messages;
    orv::QuestionDialogs questions;
    orv::SystemPortList portList(clock, orv::SystemPortList::systemDeviceFolder());
    orv::Program program({.clock = clock,
                          .messages = messages,
                          .questions = questions,
                          .makePort =
                              [&clock, &messages](const QString& device) {
                                  return orv::makePort(device, clock, [&messages](const QString& text) {
                                      messages.show({.title = QStringLiteral("Replay"), .text = text});
                                  });
                              },
                          .portList = &portList,
                          .deviceProblem = orv::deviceProblem});
    program.link.ports.setDevice(1, line.com1);
    program.link.ports.setDevice(2, line.com2);
    const bool hasDemo = !line.demoFolder.isEmpty();
    std::optional<orv::Remembered> remembered;
    if (!line.fresh && !hasDemo) {
        remembered.emplace(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                           QStringLiteral("/orvhost.ini"));
        remembered->keepPorts(program);
        questions.setRemembered(&*remembered);
    }
    if (line.choosesPort) {
        program.link.portChoices.noteGiven();
    } else if (!hasDemo) {
        program.link.portChoices.noteNothingChosen();
        if (remembered) {
            remembered->restorePorts(program);
        }
    }
    program.link.debug.comm2Output = line.debugOutput;
    const std::unique_ptr<orv::SleepInhibitor> inhibitor = orv::makeSleepInhibitor();
    const orv::AwakeWhileCollecting awake(program.link.session.commands, *inhibitor);

    const std::unique_ptr<orv::DesktopNotice> notice = orv::makeDesktopNotice();
    const orv::NoticeWhenDone noticeWhenDone(program, *notice, [] { return QApplication::activeWindow() != nullptr; });

    orv::MainWindow window(program, remembered ? &*remembered : nullptr);
    messages.setParent(&window);
    questions.setParent(&window);
    const orv::SessionEnd sessionEnd(program, messages);
    if (!line.capture.isEmpty()) {
        program.capture.begin(line.capture);
    }
    if (hasDemo) {
        const int status = orv::runDemo(program, window, messages, line.demoFolder);
        return sessionEnd.statusOr(status);
    }
    // Windows that close do not end the program by themselves: it may have something left to tell.
    QApplication::setQuitOnLastWindowClosed(false);
    const auto ended = program.ended.subscribe([&messages] { messages.whenRead([] { QCoreApplication::exit(0); }); });
    window.show(); // first, or it would cover what the start has to tell
    program.load();
    QTimer::singleShot(0, &window, [&program] {
        QApplication::setWindowIcon(orv::applicationIcon()); // reading it before would delay the window
        program.offerUnendedRun();
    });
    const int status = QApplication::exec();
    return sessionEnd.statusOr(status);
}
