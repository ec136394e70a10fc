// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/fuzzing.h"
#include "sheet/sheetformat.h"
#include "testing/programrig.h"

#include <QDir>
#include <QSet>

#include <algorithm>
#include <fcntl.h>
#include <set>

namespace orv::fuzzing {

namespace {

/// The lowest number that a file would be opened with: it shows whether one was left open.
int nextDescriptor() {
    const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::close(descriptor);
    return descriptor;
}

/// What the operator sees of a row in any of the files and on the sheet: number, date, time, first value.
QByteArray signOf(int number, const DataRow& row) {
    return QStringList{QString::number(number), row.date, row.time, row.values.value(0)}.join(u'\t').toLatin1();
}

QByteArray settled(const DataSheet& sheet) {
    QByteArray cells;
    for (int row = 0; row < sheet.rowCount(); ++row) {
        cells += '\n';
        sheet.writeCells(row, DataSheet::columnCount, cells);
    }
    return cells;
}

/// One program after another in one folder, the operator and the far end of the line. Each byte of the input is an
/// action; some take more bytes. What must hold is looked at after every action.
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
            act();
            look();
        }
        endWell();
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

    /// A program starts in the folder, as after a crash or for the first time.
    void start() {
        const auto maker = [](const QString& device, TestClock& clock) { return simulatedInstrument(device, clock); };
        if (simulated_) {
            rig_.emplace(maker);
            rig_->ports.setDevice(1, QLatin1String(devices[input_.below(std::size(devices))]));
            rig_->ports.setDevice(2, QStringLiteral("sim:trx"));
        } else {
            rig_.emplace();
        }
        QDir::setCurrent(folder_.path());
        rig_->clock.set(now_);
        taking_ = rig_->collection.taken.subscribe([this](int number, const DataRow& row) { take(number, row); });
        closing_ = rig_->program.link.connection.aboutToClose.subscribe([this] { delivering_ = false; });
        rig_->program.load();
        rig_->answers.yes = input_.below(4) != 0;
        rig_->program.offerUnendedRun();
        calm();
    }

    /// The program is gone in the middle of whatever it did.
    void stop() {
        now_ = rig_->clock.now();
        taking_.reset();
        closing_.reset();
        rig_.reset();
        limit_.reset();
        expectTaken_.clear();
    }

    void act() {
        ProgramRig& rig = *rig_;
        Program& program = rig.program;
        CommandState& commands = rig.commands;
        told_ = rig.messages.shown.size();
        switch (input_.below(40)) {
        case 0:
        case 1:
            connect();
            break;
        case 2:
            answerSettings();
            break;
        case 3:
        case 4:
            arrive({}); // what came before the run is not its own
            if (commands.canRun) {
                delivering_ = rig.rxbuffer.isEmpty() && bytesOnLine() == 0;
                program.run();
            }
            break;
        case 5:
        case 6:
            rows();
            break;
        case 7:
            delivering_ = false;
            arrive(input_.bytes(input_.byte() % 64));
            break;
        case 8:
            delivering_ = false;
            arrive(">");
            break;
        case 9:
            live();
            break;
        case 10:
            rig.ticks(1 + input_.below(8));
            break;
        case 11:
            pull();
            break;
        case 12:
            plug();
            break;
        case 13:
            if (commands.resetEnabled) {
                program.reset();
            }
            break;
        case 14:
            program.abort2();
            break;
        case 15:
            if (commands.closePortEnabled) {
                program.closePort();
            }
            break;
        case 16:
            if (commands.canClearAll) {
                program.clearAll();
            }
            break;
        case 17:
        case 18:
            if (commands.canSaveAs) {
                choose("sheet.txt");
                program.saveAs();
            }
            break;
        case 19:
            if (commands.canOpenSheet) {
                open();
                program.openSheet();
            }
            break;
        case 20:
            if (commands.canCommand) {
                choose("download.txt");
                program.downloadText();
            }
            break;
        case 21:
            if (commands.canCommand) {
                program.vwhp();
            }
            break;
        case 22:
            dump();
            break;
        case 23:
            if (commands.canResetShutter) {
                program.resetShutter();
            }
            break;
        case 24:
            type();
            rig.sender.applySettings();
            break;
        case 25:
            rig.sender.synchronizeClock();
            break;
        case 26:
            rig.sender.displayLoggerTime();
            break;
        case 27:
            rig.sender.retrieveSettings();
            break;
        case 28:
            modes();
            break;
        case 29:
            quit();
            break;
        case 30:
            stop();
            start();
            break;
        case 31:
            if (rig.answers.stands()) {
                const int choice = input_.below(3);
                rig.answers.answer(choice == 0 ? QString() : choice == 1 ? Question::yes() : name("late.txt"));
            }
            break;
        case 32:
            rig.answers.late = input_.below(2) == 0;
            rig.answers.yes = input_.below(2) == 0;
            break;
        case 33:
            setComputersClock();
            break;
        case 34:
            fillDisk();
            break;
        case 35:
            service();
            break;
        case 36:
            manual();
            break;
        case 37:
            choose(".csv");
            program.exportSheet();
            break;
        case 38:
            if (rig.answers.late) {
                rig.settings.syncTimeDate = !rig.settings.syncTimeDate;
            }
            change(rig.settings.record, [this](LoggerSettings& record) { record.logEnabled = input_.below(2) == 0; });
            break;
        case 39:
            rig.settings.trxProvideRawCounts = input_.below(2) == 0;
            rig.settings.glowProvideRawCounts = input_.below(2) == 0;
            rig.settings.trxCalibration[0].scale = QString::fromLatin1(input_.bytes(input_.below(6)));
            break;
        default:
            break;
        }
    }

    // What must hold after every action.

    void look() {
        ProgramRig& rig = *rig_;
        std::set<QString> texts;
        for (std::size_t at = told_; at < rig.messages.shown.size(); ++at) {
            const QString& text = rig.messages.shown[at].text;
            require(texts.insert(text).second, "the operator is told the same twice", [&text] { return text; });
        }
        require(rig.state.plc == rig.sheet.rowCount() &&
                    rig.sheetState.counter.value() == QString::number(rig.sheet.rowCount()),
                "rows are miscounted");
        require(rig.commands.portOpen == rig.ports.isOpen(), "it is not known whether the port is open");
        const Activity activity = rig.commands.activity;
        require(rig.ports.isOpen() || activity == Activity::None, "something goes on without a connection");
        require(activity != Activity::Collecting || rig.state.Ctrlscrn == Operation::Collecting,
                "a run goes on that takes no rows");
        require(rig.commands.asking == rig.answers.stands(), "a question is left over");
        constexpr qsizetype mostLeft = 65536;
        require(rig.rxbuffer.size() < mostLeft, "the receive buffer grows");
        if (activity != Activity::Collecting && rig.commands.activity != Activity::Connecting) {
            require(expectTaken_.empty(), "a complete row that came during the run was not taken",
                    [this] { return QString::fromLatin1(*expectTaken_.begin()); });
        }
    }

    /// Each row that a run has taken while there was room is on the sheet or in a file.
    void lookForRows() {
        QByteArray all = rig_ ? settled(rig_->sheet) : QByteArray();
        for (const QString& file : folder_.files()) {
            if (!file.endsWith(QLatin1String(".ohp"))) {
                all += contentsOf(QDir(folder_.path()).filePath(file));
            }
        }
        QSet<QByteArray> found;
        for (const QByteArray& line : all.replace('\r', '\n').split('\n')) {
            found.insert(line.split('\t').mid(0, sheetcolumn::firstValue + 1).join('\t'));
        }
        for (const QByteArray& row : taken_) {
            require(found.contains(row), "a row is lost", [&row] { return QString::fromLatin1(row); });
        }
    }

    void lookAtFiles() {
        for (const QString& file : folder_.files()) {
            if (file.endsWith(QLatin1String("sheet.txt")) || file.startsWith(QLatin1String("Untitled"))) {
                const LoadedSheet loaded = readSheetFile(QDir(folder_.path()).filePath(file));
                require(loaded.error.isEmpty(), "a saved sheet cannot be opened", [&loaded] { return loaded.error; });
            }
        }
    }

    /// Whatever has been: with the faults gone, connecting, a run, saving and "Quit" work.
    void endWell() {
        lookForRows();
        stop();
        lookForRows();
        lookAtFiles();
        simulated_ = false;
        now_.setTime(QTime(12, 0)); // a wait that runs across midnight does not end by itself
        start();
        ProgramRig& rig = *rig_;
        rig.answers.late = false;
        rig.answers.yes = true;
        rig.answers.openName.clear();
        rig.answers.fileName = name("sheet.txt");
        const std::size_t told = rig.messages.shown.size();
        connectTo("V512\r");
        answerSettings();
        require(rig.commands.canRun, "no run can begin", [&rig] { return rig.status.status.value(); });
        rig.program.run();
        delivering_ = true;
        const int before = rig.sheet.rowCount();
        constexpr int some = 3;
        rig.receive("R\r\n");
        for (int row = 0; row < some; ++row) {
            arrive(dataLine(4));
        }
        rig.ticks(some);
        require(rig.sheet.rowCount() == before + some, "rows of a run do not come");
        rig.receive(">");
        rig.ticks(2);
        require(rig.commands.activity == Activity::None, "the run does not end");
        rig.program.saveAs();
        require(!rig.sheetState.unsaved, "the sheet is not saved");
        const LoadedSheet saved = readSheetFile(rig.answers.fileName);
        require(saved.error.isEmpty(), "the saved sheet cannot be opened", [&saved] { return saved.error; });
        require(static_cast<int>(saved.rows.size()) == before + some, "rows are missing in the saved sheet");
        const RecordedRows recorded = readRecordedRows(rig.recordFile.path(), {});
        require(recorded.sheet.rows.size() >= some && recorded.unreadableLines == 0,
                "rows are missing in the record file");
        for (std::size_t at = told; at < rig.messages.shown.size(); ++at) {
            const Message& message = rig.messages.shown[at];
            require(message.icon == Message::Icon::Information, "something went wrong",
                    [&message] { return message.text; });
        }
        require(rig.quit(), "the program does not end");
        stop();
        lookForRows();
        require(!QFile::exists(QDir(folder_.path()).filePath(QStringLiteral("Orvtemp.tmp.lock"))),
                "rows are offered again although all are saved");
        require(nextDescriptor() == descriptors_, "a file was left open");
    }

    // The operator and the line.

    void connect() {
        constexpr const char* greetings[] = {"V512\r", "F310\r", "V310\r",          "V499\r",
                                             "\r",     "V\r",    "x\x80V999V512\r", "V512"};
        connectTo(greetings[input_.below(std::size(greetings))]);
    }

    void connectTo(const QByteArray& greeting) {
        if (!simulated_) {
            rig_->replies = {greeting};
        }
        rig_->program.autoConnect1();
        calm();
    }

    /// Lets the procedure under way end, if time alone brings that about.
    void calm() {
        constexpr int steps = 120;
        constexpr qint64 step = 100;
        for (int count = 0; count < steps && !rig_->procedures.isIdle(); ++count) {
            rig_->clock.advance(step);
        }
    }

    void live() {
        constexpr qint64 spans[] = {1, 20, 100, 500, 1000, 3000, 12'000, 61'000};
        rig_->clock.advance(spans[input_.below(std::size(spans))]);
    }

    void arrive(const QByteArray& bytes) {
        if (rig_->line != nullptr && rig_->ports.isOpen()) {
            rig_->receive(bytes);
        }
    }

    qsizetype bytesOnLine() { return rig_->ports.inputCount(); }

    void answerSettings() {
        delivering_ = false;
        arrive(settingsReport());
        rig_->ticks(14);
        arrive("C\r\n11/21/26\t25661\r\n");
        rig_->ticks(3);
    }

    QByteArray dataLine(int values) {
        QByteArray line = "11/21/26\t" + QByteArray::number(2700 + lines_ % 60000);
        for (int value = 0; value < values; ++value) {
            line += '\t' + QByteArray::number(100'000 + lines_);
        }
        ++lines_;
        return line + "\r\n";
    }

    /// Complete rows of the instrument's layout come, perhaps in two parts.
    void rows() {
        ProgramRig& rig = *rig_;
        const int count = 1 + input_.below(4);
        QByteArray bytes;
        for (int row = 0; row < count; ++row) {
            const QByteArray line = dataLine(valueCount(rig.rows.connectedLayout()));
            bytes += line;
            if (delivering_ && rig.state.Ctrlscrn == Operation::Collecting && rig.ports.isOpen() &&
                !rig.line->unplugged && rig.line->failureReason->isEmpty() &&
                rig.rows.connectedLayout() != RowLayout::Unknown && !simulated_) {
                expectTaken_.insert(line.split('\t')[2].trimmed());
            }
        }
        if (rig.line == nullptr || !rig.ports.isOpen()) {
            return;
        }
        const int manner = input_.below(3);
        if (manner == 0) {
            rig.line->input += bytes; // it waits to be read
        } else {
            arrive(bytes.first(bytes.size() / manner));
            arrive(bytes.sliced(bytes.size() / manner));
        }
    }

    void take(int number, const DataRow& row) {
        expectTaken_.erase(row.values.value(0).toLatin1());
        if (!limit_ && rig_->recordFile.isOpen()) { // else the operator has been told
            taken_.push_back(signOf(number, row));
        }
    }

    /// The cable: what has arrived can still be read, or not.
    void pull() {
        if (rig_->line == nullptr) {
            return;
        }
        if (input_.below(2) == 0 && expectTaken_.empty()) {
            rig_->line->unplugged = true;
        } else {
            rig_->line->failureReason = QStringLiteral("Pulled.");
        }
        delivering_ = false;
    }

    void plug() {
        if (rig_->line != nullptr) {
            rig_->line->unplugged = false;
            rig_->line->failureReason = QString();
        }
    }

    /// A name that no file has.
    QString name(const char* kind) {
        return QDir(folder_.path()).filePath(QString::number(++names_) + QLatin1String(kind));
    }

    void choose(const char* kind) { rig_->answers.fileName = input_.below(4) == 0 ? QString() : name(kind); }

    void open() {
        const QStringList files = folder_.files();
        rig_->answers.openName =
            files.isEmpty() ? QStringLiteral("none.txt") : files[input_.below(static_cast<int>(files.size()))];
    }

    /// Stored data comes, with its end or without.
    void dump() {
        delivering_ = false;
        QByteArray bytes = ">O\r\n";
        for (int record = input_.below(5); record > 0; --record) {
            bytes += dataLine(valueCount(rig_->rows.connectedLayout()));
        }
        constexpr const char* ends[] = {"EOF\r\n>", "0\r\n", "65535\r\nEOF\r\n", ""};
        arrive(bytes + ends[input_.below(4)]);
        rig_->ticks(8);
    }

    void type() {
        change(rig_->settings.record, [this](LoggerSettings& record) {
            record.pointsPerBlock = QString::number(input_.below(3));
            record.samplesPerPoint = QString::fromLatin1(input_.bytes(input_.below(4)));
        });
    }

    void modes() {
        Modes& modes = rig_->program.settings.modes;
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
            open();
            modes.loadMode();
            break;
        }
    }

    void quit() {
        choose("sheet.txt");
        const bool ended = rig_->quit();
        if (ended) {
            require(!rig_->ports.isOpen(), "the program has ended with its port open");
            require(expectTaken_.empty(), "a complete row was not taken at the end");
            stop();
            start();
        }
    }

    void setComputersClock() {
        const QDateTime now = rig_->clock.now();
        constexpr qint64 shifts[] = {-86400, -3600, -1, 1, 3600, 86400 * 400};
        const int choice = input_.below(std::size(shifts) + 1);
        rig_->clock.set(choice < static_cast<int>(std::size(shifts)) ? now.addSecs(shifts[choice])
                                                                     : QDateTime(now.date(), QTime(23, 59, 59)));
    }

    /// From now on files do not grow beyond a few bytes; or there is room again.
    void fillDisk() {
        if (limit_) {
            limit_.reset();
        } else {
            constexpr int steps = 40;
            limit_.emplace(static_cast<rlim_t>(steps * input_.below(16)));
        }
    }

    void service() {
        ProgramRig& rig = *rig_;
        switch (input_.below(5)) {
        case 0:
            rig.program.toggleServiceMode();
            break;
        case 1:
            rig.debug.rawBuffer = true;
            break;
        case 2:
            rig.debug.showParsing = true;
            break;
        case 3:
            rig.program.setComm2Output(!rig.debug.comm2Output);
            break;
        default:
            rig.program.selectLowerTab(QStringLiteral("Debug"));
            break;
        }
    }

    void manual() {
        ManualConnection& manual = rig_->manual;
        switch (input_.below(6)) {
        case 0:
            rig_->program.manualConnect(1);
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
    const int descriptors_ = nextDescriptor();
    OwnFolder folder_;
    QDateTime now_{QDate(2026, 11, 21), QTime(9, 30, 15)};
    std::optional<ProgramRig> rig_;
    std::optional<FileSizeLimit> limit_;
    Subscription taking_;
    Subscription closing_;
    int lines_ = 0; ///< Data lines so far; their values are this number.
    int names_ = 0;
    std::size_t told_ = 0;             ///< Messages before the action.
    bool delivering_ = false;          ///< Nothing but complete rows has come since the run began.
    std::set<QByteArray> expectTaken_; ///< First values of rows that came during a run and are still to be taken.
    std::vector<QByteArray> taken_;    ///< Signs of the rows that runs took while the record file could be written.
};

} // namespace

void sessions(Input input) {
    Script(input).play();
}

} // namespace orv::fuzzing
