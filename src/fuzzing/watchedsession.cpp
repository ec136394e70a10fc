// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/watchedsession.h"

#include "fuzzing/fuzzing.h"
#include "sheet/sheetformat.h"

#include <QDir>
#include <QSet>

#include <fcntl.h>
#include <unistd.h>

namespace orv::fuzzing {

namespace {

int nextDescriptor() {
    const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::close(descriptor);
    return descriptor;
}

/// What the operator sees of a row in any of the files and on the sheet: number, date, time, first value.
QByteArray signOf(int number, const DataRow& row) {
    return QStringList{QString::number(number), row.date, row.time, row.values.value(0)}.join(u'\t').toLatin1();
}

QByteArray cellsOf(const DataSheet& sheet) {
    QByteArray cells;
    for (int row = 0; row < sheet.rowCount(); ++row) {
        cells += '\n';
        sheet.writeCells(row, DataSheet::columnCount, cells);
    }
    return cells;
}

} // namespace

WatchedSession::WatchedSession()
    : descriptors_(nextDescriptor()) {}

void WatchedSession::start(const char* device, bool yes) {
    simulated_ = device != nullptr;
    if (simulated_) {
        rig_.emplace([](const QString& name, TestClock& clock) { return simulatedInstrument(name, clock); });
        rig_->ports.setDevice(1, QLatin1String(device));
        rig_->ports.setDevice(2, QStringLiteral("sim:trx"));
    } else {
        rig_.emplace();
    }
    QDir::setCurrent(folder_.path());
    told_ = 0;
    rig_->clock.set(now_);
    taking_ = rig_->collection.taken.subscribe([this](int number, const DataRow& row) { take(number, row); });
    closing_ = rig_->program.link.connection.aboutToClose.subscribe([this] { delivering_ = false; });
    rig_->program.load();
    rig_->answers.yes = yes;
    rig_->program.offerUnendedRun();
    calm();
}

void WatchedSession::stop() {
    now_ = rig_->clock.now();
    taking_.reset();
    closing_.reset();
    rig_.reset();
    limit_.reset();
    expectTaken_.clear();
}

void WatchedSession::connect(const QByteArray& greeting) {
    if (!simulated_) {
        rig_->replies = {greeting};
    }
    rig_->program.autoConnect1();
    calm();
}

void WatchedSession::run() {
    arrive({}); // what came before the run is not its own
    if (rig_->commands.canRun) {
        delivering_ = rig_->rxbuffer.isEmpty() && rig_->ports.inputCount() == 0;
        rig_->program.run();
    }
}

bool WatchedSession::quit() {
    const bool ended = rig_->quit();
    if (ended) {
        require(!rig_->ports.isOpen(), "the program has ended with its port open");
        require(expectTaken_.empty(), "a complete row was not taken at the end");
        stop();
    }
    return ended;
}

void WatchedSession::calm() {
    constexpr int steps = 120;
    constexpr qint64 step = 100;
    for (int count = 0; count < steps && !rig_->procedures.isIdle(); ++count) {
        rig_->clock.advance(step);
    }
}

void WatchedSession::arrive(const QByteArray& bytes) {
    if (rig_->line != nullptr && rig_->ports.isOpen()) {
        rig_->receive(bytes);
    }
}

void WatchedSession::disturb(const QByteArray& bytes) {
    delivering_ = false;
    arrive(bytes);
}

void WatchedSession::answerSettings() {
    disturb(settingsReport());
    rig_->ticks(14);
    arrive("C\r\n11/21/26\t25661\r\n");
    rig_->ticks(3);
}

QByteArray WatchedSession::dataLine(int values) {
    QByteArray line = "11/21/26\t" + QByteArray::number(2700 + lines_ % 60000);
    for (int value = 0; value < values; ++value) {
        line += '\t' + QByteArray::number(100'000 + lines_);
    }
    ++lines_;
    return line + "\r\n";
}

/// What comes now comes to the run whole.
bool WatchedSession::deliversToRun() {
    const ProgramRig& rig = *rig_;
    return delivering_ && !simulated_ && rig.state.Ctrlscrn == Operation::Collecting && rig.ports.isOpen() &&
           !rig.line->unplugged && rig.line->failureReason->isEmpty() &&
           rig.rows.connectedLayout() != RowLayout::Unknown;
}

void WatchedSession::rowsCome(int count, int parts) {
    const bool delivers = deliversToRun();
    QByteArray bytes;
    for (int row = 0; row < count; ++row) {
        const QByteArray line = dataLine(valueCount(rig_->rows.connectedLayout()));
        bytes += line;
        if (delivers) {
            expectTaken_.insert(line.split('\t')[2].trimmed());
        }
    }
    if (rig_->line == nullptr || !rig_->ports.isOpen()) {
        return;
    }
    if (parts == 0) {
        rig_->line->input += bytes;
    } else {
        arrive(bytes.first(bytes.size() / parts));
        arrive(bytes.sliced(bytes.size() / parts));
    }
}

void WatchedSession::dumpComes(int records, const char* end) {
    QByteArray bytes = ">O\r\n";
    for (int record = 0; record < records; ++record) {
        bytes += dataLine(valueCount(rig_->rows.connectedLayout()));
    }
    disturb(bytes + end);
    rig_->ticks(8);
}

void WatchedSession::pull(bool readable) {
    if (rig_->line == nullptr) {
        return;
    }
    if (!readable && expectTaken_.empty()) {
        rig_->line->unplugged = true;
    } else {
        rig_->line->failureReason = QStringLiteral("Pulled.");
    }
    delivering_ = false;
}

void WatchedSession::plug() {
    if (rig_->line != nullptr) {
        rig_->line->unplugged = false;
        rig_->line->failureReason = QString();
    }
}

QString WatchedSession::newName(const char* kind) {
    return QDir(folder_.path()).filePath(QString::number(++names_) + QLatin1String(kind));
}

void WatchedSession::take(int number, const DataRow& row) {
    expectTaken_.erase(row.values.value(0).toLatin1());
    if (!limit_ && rig_->recordFile.isOpen()) { // else the operator has been told
        taken_.push_back(signOf(number, row));
    }
}

void WatchedSession::beginAction() {
    told_ = rig_->messages.shown.size();
    sendsTwice_ = rig_->commands.activity.value() == Activity::ResettingShutter;
}

void WatchedSession::look() {
    const ProgramRig& rig = *rig_;
    std::multiset<QString> texts;
    for (std::size_t at = told_; at < rig.messages.shown.size(); ++at) {
        const QString& text = rig.messages.shown[at].text;
        texts.insert(text);
        const std::size_t most = sendsTwice_ && text.startsWith(QLatin1String("Error Sending Prefs.")) ? 2 : 1;
        require(texts.count(text) <= most, "the operator is told the same twice", [&text] { return text; });
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
    // What comes during a dialogue waits for its end, which does not come when the clock falls back meanwhile.
    constexpr qsizetype mostLeft = 65536;
    require(rig.rxbuffer.size() < mostLeft || !rig.procedures.isIdle(), "the receive buffer grows");
    if (activity != Activity::Collecting && activity != Activity::Connecting) {
        require(expectTaken_.empty(), "a complete row that came during the run was not taken",
                [this] { return QString::fromLatin1(*expectTaken_.begin()); });
    }
}

/// Each row that a run has taken while there was room is on the sheet or in a file.
void WatchedSession::lookForRows() {
    QByteArray all = rig_ ? cellsOf(rig_->sheet) : QByteArray();
    for (const QString& file : files()) {
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

void WatchedSession::lookAtFiles() const {
    for (const QString& file : files()) {
        if (file.endsWith(QLatin1String("sheet.txt")) || file.startsWith(QLatin1String("Untitled"))) {
            const LoadedSheet loaded = readSheetFile(QDir(folder_.path()).filePath(file));
            require(loaded.error.isEmpty(), "a saved sheet cannot be opened", [&loaded] { return loaded.error; });
        }
    }
}

void WatchedSession::endWell(bool yes) {
    lookForRows();
    stop();
    lookForRows();
    lookAtFiles();
    now_.setTime(QTime(12, 0)); // a wait that runs across midnight does not end by itself
    start(nullptr, yes);
    runAndSave();
    require(rig_->quit(), "the program does not end");
    stop();
    lookForRows();
    require(!QFile::exists(folder_.path("Orvtemp.tmp.lock")), "rows are offered again although all are saved");
    require(nextDescriptor() == descriptors_, "a file was left open");
}

void WatchedSession::runAndSave() {
    ProgramRig& rig = *rig_;
    rig.answers.late = false;
    rig.answers.yes = true;
    rig.answers.openName.clear();
    rig.answers.fileName = newName("sheet.txt");
    const std::size_t told = rig.messages.shown.size();
    connect("V512\r");
    answerSettings();
    require(rig.commands.canRun, "no run can begin", [&rig] { return rig.status.status.value(); });
    rig.program.run();
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
    require(recorded.sheet.rows.size() >= some && recorded.unreadableLines == 0, "rows are missing in the record file");
    for (std::size_t at = told; at < rig.messages.shown.size(); ++at) {
        const Message& message = rig.messages.shown[at];
        require(message.icon == Message::Icon::Information, "something went wrong",
                [&message] { return message.text; });
    }
}

} // namespace orv::fuzzing
