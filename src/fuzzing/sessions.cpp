// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/fuzzing.h"
#include "fuzzing/watchedsession.h"

namespace orv::fuzzing {

namespace {

/// What the operator and the line do in a session: each byte of the input is an action; some take more bytes.
class Script {
public:
    explicit Script(Input input)
        : input_(input)
        , simulated_(input_.below(3) == 0) {
        start();
    }

    void play() {
        constexpr int mostActions = 200;
        for (int action = 0; action < mostActions && !input_.isEmpty(); ++action) {
            session_.beginAction();
            act();
            session_.look();
        }
        session_.endWell(answersYes());
    }

private:
    static constexpr const char* devices[] = {"sim:trx?rate=10&records=5",
                                              "sim:glow?rate=10&records=9&end=0&points=4",
                                              "sim:trx?firmware=310&points=1&rate=20&records=3&erased=2",
                                              "sim:trx?fault=cut&after=60&rate=10&records=9",
                                              "sim:glow?fault=unplug&after=300ms&rate=10",
                                              "sim:trx?fault=noise&rate=10&records=7",
                                              "sim:trx?fault=garbage&rate=20&records=7",
                                              "sim:trx?fault=late&delay=1.5&shutter=0",
                                              "sim:glow?fault=silent",
                                              "sim:trx?baud=0&rate=20&records=30&shutter=1"};

    ProgramRig& rig() { return session_.rig(); }
    Program& program() { return rig().program; }

    template <typename T, std::size_t size>
    T oneOf(const T (&choices)[size]) {
        return choices[input_.below(size)];
    }
    bool flag() { return input_.below(2) == 0; }
    bool answersYes() { return input_.below(4) != 0; }

    void act() {
        // Where an action stands is its byte in the kept inputs; what happens often stands there twice.
        using S = Script;
        using C = CommandState;
        static constexpr void (Script::*actions[])() = {
            &S::connect,
            &S::connect,
            &S::answerSettings,
            &S::run,
            &S::run,
            &S::rows,
            &S::rows,
            &S::noise,
            &S::prompt,
            &S::live,
            &S::tick,
            &S::pull,
            &S::plug,
            &S::click<&C::resetEnabled, &Program::reset>,
            &S::abort2,
            &S::click<&C::closePortEnabled, &Program::closePort>,
            &S::click<&C::canClearAll, &Program::clearAll>,
            &S::saveAs,
            &S::saveAs,
            &S::openSheet,
            &S::downloadText,
            &S::click<&C::canCommand, &Program::vwhp>,
            &S::dump,
            &S::click<&C::canResetShutter, &Program::resetShutter>,
            &S::applySettings,
            &S::send<&SettingsSender::synchronizeClock>,
            &S::send<&SettingsSender::displayLoggerTime>,
            &S::send<&SettingsSender::retrieveSettings>,
            &S::modes,
            &S::quit,
            &S::crash,
            &S::answer,
            &S::howToAnswer,
            &S::setComputersClock,
            &S::fillDisk,
            &S::service,
            &S::manual,
            &S::exportSheet,
            &S::tickBoxes,
            &S::calibrate,
        };
        (this->*oneOf(actions))();
    }

    // Programs.

    void start() {
        const char* device = simulated_ ? oneOf(devices) : nullptr;
        session_.start(device, answersYes());
    }

    void crash() {
        session_.stop();
        start();
    }

    void quit() {
        choose("sheet.txt");
        if (session_.quit()) {
            start();
        }
    }

    // The line and the time.

    void connect() {
        constexpr const char* greetings[] = {"V512\r", "F310\r", "V310\r",          "V499\r",
                                             "\r",     "V\r",    "x\x80V999V512\r", "V512"};
        session_.connect(oneOf(greetings));
    }

    void answerSettings() { session_.answerSettings(); }

    void rows() {
        const int count = 1 + input_.below(4);
        session_.rowsCome(count, input_.below(3));
    }

    void noise() { session_.disturb(input_.bytes(input_.below(64))); }

    void prompt() { session_.disturb(">"); }

    void dump() {
        const int records = input_.below(5);
        constexpr const char* ends[] = {"EOF\r\n>", "0\r\n", "65535\r\nEOF\r\n", ""};
        session_.dumpComes(records, oneOf(ends));
    }

    void pull() { session_.pull(!flag()); }

    void plug() { session_.plug(); }

    void live() {
        constexpr qint64 spans[] = {1, 20, 100, 500, 1000, 3000, 12'000, 61'000};
        rig().clock.advance(oneOf(spans));
    }

    void tick() { rig().ticks(1 + input_.below(8)); }

    void setComputersClock() {
        const QDateTime now = rig().clock.now();
        constexpr qint64 day = 86400;
        constexpr qint64 lastSecond = 0; // of the day
        constexpr qint64 shifts[] = {-day, -3600, -1, 1, 3600, 400 * day, lastSecond};
        const qint64 shift = oneOf(shifts);
        rig().clock.set(shift == lastSecond ? QDateTime(now.date(), QTime(23, 59, 59)) : now.addSecs(shift));
    }

    void fillDisk() {
        constexpr rlim_t step = 40;
        if (session_.isDiskFull()) {
            session_.emptyDisk();
        } else {
            session_.fillDisk(step * static_cast<rlim_t>(input_.below(16)));
        }
    }

    // The operator.

    template <auto enabled, auto command>
    void click() {
        if (rig().commands.*enabled) {
            (program().*command)();
        }
    }

    template <auto command>
    void send() {
        (rig().sender.*command)();
    }

    void choose(const char* kind) {
        rig().answers.fileName = input_.below(4) == 0 ? QString() : session_.newName(kind);
    }

    void chooseToOpen() {
        const QStringList files = session_.files();
        rig().answers.openName =
            files.isEmpty() ? QStringLiteral("none.txt") : files[input_.below(static_cast<int>(files.size()))];
    }

    void run() { session_.run(); }

    void abort2() { program().abort2(); }

    void saveAs() {
        if (rig().commands.canSaveAs) {
            choose("sheet.txt");
            program().saveAs();
        }
    }

    void openSheet() {
        if (rig().commands.canOpenSheet) {
            chooseToOpen();
            program().openSheet();
        }
    }

    void downloadText() {
        if (rig().commands.canCommand) {
            choose("download.txt");
            program().downloadText();
        }
    }

    void exportSheet() {
        choose(".csv");
        program().exportSheet();
    }

    void applySettings() {
        change(rig().settings.record, [this](LoggerSettings& record) {
            record.pointsPerBlock = QString::number(input_.below(3));
            record.samplesPerPoint = QString::fromLatin1(input_.bytes(input_.below(4)));
        });
        rig().sender.applySettings();
    }

    void tickBoxes() {
        if (rig().answers.late) {
            rig().settings.syncTimeDate = !rig().settings.syncTimeDate;
        }
        change(rig().settings.record, [this](LoggerSettings& record) { record.logEnabled = flag(); });
    }

    void calibrate() {
        rig().settings.trxProvideRawCounts = flag();
        rig().settings.glowProvideRawCounts = flag();
        rig().settings.trxCalibration[0].scale = QString::fromLatin1(input_.bytes(input_.below(6)));
    }

    void modes() {
        Modes& modes = program().settings.modes;
        switch (input_.below(4)) {
        case 0:
            modes.profile();
            break;
        case 1:
            modes.moored();
            break;
        case 2:
            choose(".OCM");
            modes.saveMode();
            break;
        default:
            chooseToOpen();
            modes.loadMode();
            break;
        }
    }

    void answer() {
        if (rig().answers.stands()) {
            const QString answers[] = {QString(), Question::yes(), session_.newName("late.txt")};
            rig().answers.answer(oneOf(answers));
        }
    }

    void howToAnswer() {
        rig().answers.late = flag();
        rig().answers.yes = flag();
    }

    void service() {
        switch (input_.below(5)) {
        case 0:
            program().toggleServiceMode();
            break;
        case 1:
            rig().debug.rawBuffer = true;
            break;
        case 2:
            rig().debug.showParsing = true;
            break;
        case 3:
            program().setComm2Output(!rig().debug.comm2Output);
            break;
        default:
            program().selectLowerTab(QStringLiteral("Debug"));
            break;
        }
    }

    void manual() {
        ManualConnection& manual = rig().manual;
        switch (input_.below(6)) {
        case 0:
            program().manualConnect(1);
            break;
        case 1:
            manual.start();
            break;
        case 2:
            manual.retry();
            break;
        case 3:
            manual.proceed();
            break;
        case 4:
            manual.quit();
            break;
        default:
            manual.closed();
            break;
        }
    }

    Input input_;
    bool simulated_;
    WatchedSession session_;
};

} // namespace

void sessions(Input input) {
    Script(input).play();
}

} // namespace orv::fuzzing
