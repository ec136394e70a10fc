// SPDX-License-Identifier: GPL-3.0-or-later
// A program for this project's own use: orvstates STATE DEVICE brings the whole program, on a real instrument's line,
// to where an operator may have brought it, prints "ready", and stays there until a signal ends it.
#include "app/driver.h"
#include "app/sessionend.h"
#include "program/devices.h"
#include "ui/settingswindow.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QTextStream>

#include <csignal>
#include <cstdio>
#include <map>

#include <sys/resource.h>

namespace orv {

namespace {

constexpr int limit = 60000; ///< Milliseconds for one step, on a computer busy with other work.
constexpr int rowsBefore = 20;

class States {
public:
    States(Program& program, Driver& driver, MessageBoxes& messages)
        : program_(program)
        , driver_(driver)
        , messages_(messages) {}

    Task<> reach(QString state) {
        const std::map<QString, std::function<Task<>()>> ways{
            {QStringLiteral("offline"), [this] { return offline(); }},
            {QStringLiteral("waking"), [this] { return waking(); }},
            {QStringLiteral("ready"), [this] { return ready(); }},
            {QStringLiteral("running"), [this] { return running(); }},
            {QStringLiteral("asked"), [this] { return asked(); }},
            {QStringLiteral("save-dialog"), [this] { return saveDialog(); }},
            {QStringLiteral("open-dialog"), [this] { return openDialog(); }},
            {QStringLiteral("sending"), [this] { return sending(); }},
            {QStringLiteral("shutter-reset"), [this] { return shutterReset(); }},
            {QStringLiteral("download-sheet"), [this] { return downloadSheet(); }},
            {QStringLiteral("download-text"), [this] { return downloadText(); }},
            {QStringLiteral("disk-full"), [this] { return diskFull(); }},
        };
        const auto way = ways.find(state);
        if (way == ways.end()) {
            throw Driver::Failure(QStringLiteral("there is no state ") + state);
        }
        program_.load();
        program_.offerUnendedRun();
        Task<> going = way->second();
        co_await going;
        QTextStream(stdout) << "ready" << Qt::endl;
        driver_.forgetMessage();
        const std::function<bool()> never = [this] {
            driver_.forgetMessage();
            return false;
        };
        co_await driver_.waitFor(state, limit, never);
    }

private:
    Task<> offline() { co_return; }

    Task<> waking() {
        driver_.find<QAction>("AutoConnect1").trigger();
        co_await driver_.pause(300);
        require(!program_.link.procedures.isIdle(), "the wake-up");
    }

    Task<> ready() {
        driver_.find<QAction>("AutoConnect1").trigger();
        const QString what = QStringLiteral("Connecting");
        co_await driver_.waitUntilReady(what, limit);
    }

    Task<> running() {
        Task<> connecting = ready();
        co_await connecting;
        driver_.click("Command2");
        Task<> rows = waitForRows(rowsBefore);
        co_await rows;
    }

    Task<> asked() {
        Task<> run = running();
        co_await run;
        driver_.find<QAction>("Quit").trigger();
        require(Driver::dialog<QMessageBox>() != nullptr, "the question");
    }

    Task<> saveDialog() {
        Task<> run = running();
        co_await run;
        program_.saveAs();
        require(Driver::dialog<QFileDialog>() != nullptr, "the dialog");
    }

    Task<> openDialog() {
        program_.openSheet();
        require(Driver::dialog<QFileDialog>() != nullptr, "the dialog");
        co_return;
    }

    Task<> sending() {
        Task<> connecting = ready();
        co_await connecting;
        LoggerSettings settings = program_.settings.shown.record;
        settings.logEnabled = false; // or a block without end would be refused
        program_.settings.shown.record = settings;
        program_.settings.sender.applySettings();
        require(!program_.link.procedures.isIdle(), "the sending");
    }

    Task<> shutterReset() {
        Task<> connecting = ready();
        co_await connecting;
        program_.resetShutter();
        co_await driver_.pause(500);
        require(!program_.link.procedures.isIdle(), "the shutter reset");
    }

    Task<> downloadSheet() {
        Task<> connecting = ready();
        co_await connecting;
        program_.vwhp();
        Task<> rows = waitForRows(rowsBefore);
        co_await rows;
    }

    Task<> downloadText() {
        Task<> connecting = ready();
        co_await connecting;
        program_.sheet.download.saveAsText(QStringLiteral("memory.txt"));
        constexpr qint64 some = 1000;
        const QString what = QStringLiteral("Downloading");
        const std::function<bool()> reached = [] { return QFileInfo(QStringLiteral("memory.txt")).size() > some; };
        co_await driver_.waitFor(what, limit, reached);
    }

    /// No file may grow any more, and the operator has been told.
    Task<> diskFull() {
        Task<> run = running();
        co_await run;
        bool isTold = false; // what a log without room tells may come right behind it
        const Subscription telling = messages_.told.subscribe([&isTold](const Message& message) {
            isTold = isTold || message.text.english().startsWith(QLatin1String("The record file"));
        });
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit size{};
        getrlimit(RLIMIT_FSIZE, &size);
        size.rlim_cur = static_cast<rlim_t>(QFileInfo(QStringLiteral("Orvtemp.tmp")).size());
        setrlimit(RLIMIT_FSIZE, &size);
        const QString what = QStringLiteral("Full disk");
        const std::function<bool()> told = [this, &isTold] {
            driver_.forgetMessage();
            return isTold;
        };
        co_await driver_.waitFor(what, limit, told);
    }

    Task<> waitForRows(int rows) {
        const QString what = QStringLiteral("Rows");
        const std::function<bool()> reached = [this, rows] { return program_.sheet.data.rowCount() >= rows; };
        co_await driver_.waitFor(what, limit, reached);
    }

    static void require(bool holds, const char* what) {
        if (!holds) {
            throw Driver::Failure(QStringLiteral("there is not %1").arg(QLatin1String(what)));
        }
    }

    Program& program_;
    Driver& driver_;
    MessageBoxes& messages_;
};

int stayIn(const QString& state, const QString& device) {
    SystemClock clock;
    MessageBoxes messages;
    QuestionDialogs questions;
    Program program({.clock = clock, .messages = messages, .questions = questions, .makePort = [&](const QString& of) {
                         return makePort(of, clock);
                     }});
    program.link.ports.setDevice(1, device);
    MainWindow window(program);
    messages.setParent(&window);
    questions.setParent(&window);
    const SessionEnd sessionEnd(program, messages);
    window.show();
    Driver driver(program, window, messages);
    States states(program, driver, messages);
    const int status = driver.run([&states, state] { return states.reach(state); });
    return sessionEnd.statusOr(status);
}

} // namespace

} // namespace orv

#ifdef __SANITIZE_ADDRESS__
/// What the libraries of the message bus and of session management keep until the process ends is no leak of ours.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libdbus-1\nleak:libSM\nleak:libICE\n";
}
#endif

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("orvstates STATE DEVICE\n", stderr);
        return 2;
    }
    return orv::stayIn(arguments[1], arguments[2]);
}
