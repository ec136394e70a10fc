// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/capture.h"

#include "base/files.h"
#include "base/text.h"
#include "base/words.h"
#include "program/program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QLocale>
#include <QRegularExpression>
#include <QSysInfo>

#include <algorithm>
#include <array>
#include <utility>

namespace orv {

namespace {

/// Of this computer and this program.
QJsonObject facts() {
    QJsonArray words;
    for (const QString& argument : QCoreApplication::arguments().mid(1)) {
        words.append(withoutFolder(argument));
    }
    return {{QStringLiteral("program"),
             QString(QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion())},
            {QStringLiteral("arguments"), words},
            {QStringLiteral("qt"), QString::fromLatin1(qVersion())},
            {QStringLiteral("system"), QSysInfo::prettyProductName()},
            {QStringLiteral("kernel"), QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion()},
            {QStringLiteral("processor"), QSysInfo::currentCpuArchitecture()},
            {QStringLiteral("locale"), QLocale::system().name()}};
}

CaptureKind kindOf(LineEvent::Kind kind) {
    switch (kind) {
    case LineEvent::Kind::Opened:
        return CaptureKind::Opened;
    case LineEvent::Kind::NotOpened:
        return CaptureKind::NotOpened;
    case LineEvent::Kind::Closed:
        return CaptureKind::Closed;
    case LineEvent::Kind::DtrRaised:
    case LineEvent::Kind::DtrDropped:
        return CaptureKind::Dtr;
    case LineEvent::Kind::Sent:
        return CaptureKind::Sent;
    case LineEvent::Kind::Received:
        return CaptureKind::Received;
    case LineEvent::Kind::Discarded:
        return CaptureKind::Discarded;
    case LineEvent::Kind::Failed:
        break;
    }
    return CaptureKind::Failed;
}

QString nameOf(Question::Kind kind) {
    switch (kind) {
    case Question::Kind::YesNo:
        return QStringLiteral("yes or no");
    case Question::Kind::SaveName:
        return QStringLiteral("save");
    case Question::Kind::OpenName:
        break;
    }
    return QStringLiteral("open");
}

QString nameOf(Lamp lamp) {
    constexpr std::array names = {"off", "reading", "sending", "sent", "read", "failed"};
    return QString::fromLatin1(names.at(static_cast<std::size_t>(lamp)));
}

} // namespace

QString withoutFolder(const QString& argument) {
    static const QRegularExpression folder(QStringLiteral(R"([^=]*[/\\])"));
    const QLatin1String devices("/dev/");
    return argument.startsWith(devices) ? argument.mid(devices.size()) : QString(argument).remove(folder);
}

Capture::Capture(Program& program)
    : program_(program)
    , store_(program.link.session.clock) {
    listenToLine();
    listenToOperator();
    followState();
    subscriptions_.push_back(store_.failed.subscribe([this](const Words& reason) {
        program_.link.session.messages.show(operatorWarning(
            Words::tr("The capture has ended: %1 cannot be written any further: %2.\n\nWhat was captured before "
                      "is kept, and the program goes on. Make room on the disk and start it again to capture on.")
                .arg(file_, reason)));
    }));
}

void Capture::noteFile(const QString& file) {
    constexpr qsizetype shortest = 4; // the end of some word, for a name in this folder
    const QFileInfo info(file);
    folders_ << info.absolutePath() << QDir::cleanPath(info.absolutePath());
    if (info.path().size() >= shortest) {
        folders_ << info.path();
    }
}

void Capture::begin(const QString& file) {
    file_ = file;
    noteFile(file);
    store_.describe(facts());
    const Words reason =
        program_.link.questions.isOwn(file) ? Words::tr("the program keeps that file itself") : store_.begin(file);
    if (!reason.isEmpty()) {
        program_.link.session.messages.show(
            operatorWarning(Words::tr("Nothing is captured: %1 cannot be written: %2.\n\nThe program goes on "
                                      "without. Name a file in a folder where you may write, and start it again.")
                                .arg(file, reason)));
    }
}

void Capture::listenToLine() {
    subscriptions_.push_back(program_.link.ports.passed.subscribe([this](const LineEvent& event) {
        const CaptureKind kind = kindOf(event.kind);
        switch (kind) {
        case CaptureKind::Sent:
        case CaptureKind::Received:
        case CaptureKind::Discarded:
            store_.add(kind, QByteArrayView(event.bytes));
            break;
        case CaptureKind::Dtr:
            store_.add(kind, QJsonValue(event.kind == LineEvent::Kind::DtrRaised));
            break;
        case CaptureKind::Closed:
            store_.add(kind, QJsonValue(true));
            break;
        default:
            store_.add(kind, kind == CaptureKind::Opened ? withoutFolder(event.text) : withoutFolders(event.text));
        }
    }));
    subscriptions_.push_back(program_.link.waits.passed.subscribe([this](Waits::Event event, qint64 milliseconds) {
        if (event == Waits::Event::NothingCame) {
            store_.add(CaptureKind::NothingCame, QJsonValue(true));
        } else {
            store_.add(CaptureKind::Waits,
                       QJsonObject{{QStringLiteral("for"),
                                    event == Waits::Event::Time ? QStringLiteral("time") : QStringLiteral("input")},
                                   {QStringLiteral("ms"), milliseconds}});
        }
    }));
}

void Capture::listenToOperator() {
    subscriptions_.push_back(program_.link.session.messages.told.subscribe([this](const Message& message) {
        store_.add(CaptureKind::Told, QJsonObject{{QStringLiteral("title"), message.title},
                                                  {QStringLiteral("text"), withoutFolders(message.text.english())}});
    }));
    subscriptions_.push_back(program_.link.questions.asked.subscribe([this](const Question& question) {
        store_.add(CaptureKind::Asked, QJsonObject{{QStringLiteral("kind"), nameOf(question.kind)},
                                                   {QStringLiteral("title"), question.title},
                                                   {QStringLiteral("text"), withoutFolders(question.text.english())}});
    }));
    subscriptions_.push_back(
        program_.link.questions.answered.subscribe([this](const Question& question, const QString& answer) {
            const QFileInfo file(answer);
            const bool isFile = question.kind != Question::Kind::YesNo;
            if (isFile && !answer.isEmpty()) {
                noteFile(answer);
            }
            store_.add(CaptureKind::Answered, isFile ? file.fileName() : answer);
        }));
}

void Capture::did(const QString& control, const QString& caption, const QString& value) {
    QJsonObject deed{{QStringLiteral("control"), control}, {QStringLiteral("caption"), withoutFolders(caption)}};
    if (!value.isEmpty()) {
        deed.insert(QStringLiteral("value"), withoutFolders(value));
    }
    store_.add(CaptureKind::Did, deed);
}

void Capture::said(const QString& line) {
    store_.add(CaptureKind::Said, withoutFolders(line));
}

void Capture::followState() {
    const auto follow = [this](auto& property, const std::function<void()>& changed) {
        notifiers_.push_back(property.addNotifier(changed));
    };
    Link& link = program_.link;
    StatusState& status = link.session.status;
    follow(status.status, [this, &status] { store_.add(CaptureKind::Status, status.status.value()); });
    follow(status.notice,
           [this, &status] { store_.add(CaptureKind::Notice, withoutFolders(status.notice.value().english())); });
    follow(program_.settings.shown.lamp, [this] { store_.add(CaptureKind::Settings, settingsNow()); });
    CommandState& commands = link.session.commands;
    follow(commands.activity, [this, &commands] {
        if (commands.activity.value() == Activity::None) {
            tellSheet();
        }
    });
    follow(program_.progress.late, [this] { tellLate(program_.progress.late.value()); });
    SheetState& sheet = program_.sheet.shown;
    follow(sheet.clearedRows,
           [this, &sheet] { store_.add(CaptureKind::Cleared, QJsonValue(sheet.clearedRows.value())); });
    follow(sheet.saved, [this, &sheet] {
        if (const SavedRows saved = sheet.saved; saved.count > 0) {
            store_.add(CaptureKind::Saved, QJsonObject{{QStringLiteral("rows"), saved.count},
                                                       {QStringLiteral("name"), QFileInfo(saved.file).fileName()}});
        }
    });
    const auto take = [this](int /*number*/, const DataRow& row) {
        ++rows_;
        newestRow_ = row;
    };
    subscriptions_.push_back(program_.sheet.run.taken.subscribe(take));
    subscriptions_.push_back(program_.sheet.download.taken.subscribe(take));
    subscriptions_.push_back(link.connection.identified.subscribe([this] {
        const Session& session = program_.link.session;
        store_.add(CaptureKind::Instrument, QJsonObject{{QStringLiteral("type"), instrumentName(session.state.type())},
                                                        {QStringLiteral("firmware"), session.status.firmware.value()}});
    }));
}

void Capture::tellLate(const QString& late) {
    // Not each of its seconds.
    if (std::exchange(isLate_, !late.isEmpty()) == late.isEmpty()) {
        store_.add(CaptureKind::Late, QJsonValue(late));
    }
}

void Capture::tellSheet() {
    if (rows_ > 0) {
        const QStringList cells = QStringList{newestRow_.date, newestRow_.time} + newestRow_.values;
        store_.add(CaptureKind::Sheet, QJsonObject{{QStringLiteral("rows"), std::exchange(rows_, 0)},
                                                   {QStringLiteral("last"), cells.join(u'\t')}});
    }
}

QJsonObject Capture::settingsNow() const {
    const SettingsState& shown = program_.settings.shown;
    const LoggerSettings record = shown.record.value();
    QJsonObject settings{{QStringLiteral("lamp"), nameOf(shown.lamp.value())}};
    if (shown.lamp.value() == Lamp::Reading) {
        return settings; // half of them would be of before
    }
    for (const Setting& setting : allSettings) {
        settings.insert(QLatin1String(setting.name), setting.flag != nullptr ? QJsonValue(record.*setting.flag)
                                                                             : QJsonValue(record.*setting.number));
    }
    return settings;
}

QJsonObject Capture::stateNow() const {
    const Link& link = program_.link;
    const SettingsState& shown = program_.settings.shown;
    QJsonArray calibration;
    for (const CalibrationBoxes& boxes : shown.trxCalibration) {
        calibration.append(QJsonArray{boxes.offset.value(), boxes.scale.value()});
    }
    calibration.append(QJsonArray{shown.glowCalibration.offset.value(), shown.glowCalibration.scale.value()});
    const StatusState& status = link.session.status;
    return {{QStringLiteral("time"), link.session.clock.now().toString(Qt::ISODateWithMs)},
            {QStringLiteral("com1"), withoutFolder(link.ports.device(1))},
            {QStringLiteral("com2"), withoutFolder(link.ports.device(2))},
            {QStringLiteral("isOpen"), link.ports.isOpen()},
            {QStringLiteral("operation"), static_cast<int>(link.session.state.Ctrlscrn)},
            {QStringLiteral("status"), status.status.value()},
            {QStringLiteral("nextStep"), withoutFolders(program_.nextStep.text.value().english())},
            {QStringLiteral("instrument"), instrumentName(status.instrument.value())},
            {QStringLiteral("firmware"), status.firmware.value()},
            {QStringLiteral("clock"), QString(status.date.value() + u' ' + status.time.value())},
            {QStringLiteral("waitingCharacters"), status.bufferCount.value()},
            {QStringLiteral("memoryPointer"), shown.memoryPointer.value()},
            {QStringLiteral("settings"), settingsNow()},
            {QStringLiteral("calibration"), calibration},
            {QStringLiteral("rows"), program_.sheet.data.rowCount()},
            {QStringLiteral("unsaved"), program_.sheet.shown.unsaved.value()}};
}

QByteArray Capture::supportFile() {
    store_.describe(facts());
    return store_.newest() + captureLine(store_.now(), CaptureKind::State, stateNow());
}

Task<> Capture::saveSupportFile() {
    Session& session = program_.link.session;
    const Words title = Words::tr("Save Support File");
    const Question question =
        saveQuestion(title, QStringLiteral("support-%1.jsonl").arg(fileNameStamp(session.clock.now())),
                     QStringLiteral(".jsonl"), QStringLiteral("*.jsonl"));
    const QString name = co_await program_.link.waits.answer(question);
    if (name.isEmpty()) {
        co_return;
    }
    const Words reason = writeWholeFile(name, supportFile());
    if (reason.isEmpty()) {
        session.messages.show({.title = title,
                               .text = Words::tr("%1 tells what went over the line and what was done in the "
                                                 "last ten minutes. Send it along when you ask for help. It can "
                                                 "be read as text; your own files are not in it.")
                                           .arg(QFileInfo(name).fileName())});
    } else {
        session.messages.show(fileNotSaved(title, name, reason));
    }
}

/// Paths to files that the program has to do with become their names, in any text.
QString Capture::withoutFolders(QString text) const {
    QStringList folders = folders_.values() << QDir::currentPath() << QDir::homePath();
    std::ranges::sort(folders, [](const QString& one, const QString& other) { return one.size() > other.size(); });
    for (const QString& folder : folders) {
        if (folder.size() > 1) {
            for (const QString& written : {folder, QDir::toNativeSeparators(folder)}) {
                text.remove(written + u'/');
                text.remove(written + QDir::separator());
            }
        }
    }
    // A device is no file of the operator's.
    static const QRegularExpression devices(QStringLiteral(R"((?<![^\s"'(=])/dev/)"));
    text.remove(devices);
    // And the other folders that can be told from words.
    static const QRegularExpression path(
        QStringLiteral(R"((?<![^\s"'(=])(?:[A-Za-z]:)?(?:[/\\][^/\\\s"'()]+)*[/\\](?=[^/\\\s"'()]))"));
    return text.remove(path);
}

} // namespace orv
