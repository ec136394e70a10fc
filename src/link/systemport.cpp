// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/systemport.h"

#include "base/files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QScopedValueRollback>
#include <QSerialPortInfo>
#include <QSocketNotifier>

#include <algorithm>
#include <utility>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <poll.h>
#endif

namespace orv {

Words explainOpenFailure(const OpenFailureFacts& facts) {
    if (!facts.exists) {
        return Words::tr("There is no such device. Plug the adapter in, check the device's name, and connect again.");
    }
    if (!facts.isSerialDevice) {
        return Words::tr("It is not a serial port. Choose the device of the serial adapter and connect again.");
    }
    if (!facts.accessible) {
        const QString group = facts.group.isEmpty() ? QStringLiteral("dialout") : facts.group;
        return Words::tr("You have no permission to use it. Ask for your user to be added to the group \"%1\" "
                         "(sudo usermod -aG %1 $USER), log out and in again, then connect again.")
            .arg(group);
    }
    if (facts.busy) {
        const Words holder = facts.lockedBy.isEmpty() ? Words() : Words(QStringLiteral(" (%1)")).arg(facts.lockedBy);
        return Words::tr("It is used by another program%1. Close that program, then connect again.").arg(holder);
    }
    if (!facts.lockFolderWritable) {
        return Words::tr("The lock file that keeps other programs off the port cannot be written in %1. Ask for "
                         "write permission to that folder, log out and in again, then connect again.")
            .arg(facts.lockFolder);
    }
    return Words::tr("The system says: %1. Unplug the adapter and plug it in again, then connect again.")
        .arg(facts.systemText);
}

namespace {

/// Output that waits for a far end which takes nothing; more is dropped. The longest command is a few characters, so
/// only the debug output to a stuck line ever gets there.
constexpr qint64 maximumPendingOutput = 65536;

/// Whether an error that was met while reading or writing means that the line is lost.
bool lineIsLost(QSerialPort::SerialPortError error, [[maybe_unused]] const QSerialPort& port) {
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError || error == QSerialPort::WriteError) {
        return false;
    }
#ifdef Q_OS_UNIX
    pollfd line{.fd = port.handle(), .events = 0, .revents = 0};
    const bool hungUp = ::poll(&line, 1, 0) > 0 && (line.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
    // The port library takes a read that finds nothing, because somebody else was quicker, for an error, and likewise
    // a write for which there is no room yet.
    return hungUp || (error != QSerialPort::ReadError && port.errorString() != qt_error_string(EAGAIN));
#else
    return true;
#endif
}

#ifdef Q_OS_UNIX
/// The path of the device's own file, whichever link to it the name is: a program that uses the device under another
/// name finds the same lock. The list of serial ports has no pseudo-terminals.
QString devicePath(const QString& name) {
    const bool isPath = name.startsWith(u'/') || name.startsWith(QLatin1String("./")) ||
                        name.startsWith(QLatin1String("../")); // as the port library tells
    const QString path = name.isEmpty() || isPath ? name : QLatin1String("/dev/") + name;
    const QString own = QFileInfo(path).canonicalFilePath();
    return own.isEmpty() ? path : own;
}

/// The first of the folders in which serial programs keep their lock files, as the port library searches them.
QString lockFolder() {
    for (const QString& folder : {QStringLiteral("/var/lock"), QStringLiteral("/etc/locks"),
                                  QStringLiteral("/var/spool/locks"), QStringLiteral("/var/spool/uucp")}) {
        if (QFileInfo(folder).isDir()) {
            return folder;
        }
    }
    return {};
}

QString lockFilePath(const QString& folder, const QString& device) {
    QString name = device;
    if (name.startsWith(QLatin1String("/dev/"))) {
        name.remove(0, 5);
    }
    return folder + QLatin1String("/LCK..") + name.replace(QLatin1Char('/'), QLatin1Char('_'));
}

/// "tio, process 4711", or without a name "process 4711".
Words holderText(const QString& program, const QString& process) {
    const Words number = Words::tr("process %1").arg(process);
    return program.isEmpty() ? number : program + QStringLiteral(", ") + number;
}

/// What the device's file and its lock file tell.
void lookAtFile(const QString& path, OpenFailureFacts& facts) {
    const QFileInfo file(path);
    facts.exists = file.exists();
    facts.isSerialDevice = !file.isFile() && !file.isDir();
    facts.accessible = file.isReadable() && file.isWritable();
    facts.group = file.group();
    facts.lockFolder = lockFolder();
    facts.lockFolderWritable = !facts.lockFolder.isEmpty() && QFileInfo(facts.lockFolder).isWritable();
    QLockFile lock(lockFilePath(facts.lockFolder, path));
    qint64 process = 0;
    QString host;
    QString application;
    if (QFileInfo::exists(lock.fileName()) && lock.getLockInfo(&process, &host, &application)) {
        facts.busy = true;
        facts.lockedBy = holderText(application, QString::number(process));
    }
}
#endif

} // namespace

SystemPort::SystemPort(const QString& device)
    : device_(device) {
    port_.setPortName(device);
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                     [this](QSerialPort::SerialPortError error) { noteError(error); });
    QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { tellOfInput(); });
    awaiting_.setSingleShot(true);
    awaiting_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&awaiting_, &QTimer::timeout, &port_, [this] { awaitNext(); });
}

void SystemPort::tellOfInput() {
    const auto isEnd = [](char character) { return character == '\n' || character == '>' || character == '!'; };
    const bool isAwaited =
        awaited_ == Awaited::Anything || std::ranges::any_of(port_.peek(port_.bytesAvailable()), isEnd);
    if (isAwaited && !std::exchange(stirredTold_, true)) {
        tellStirred();
    }
}

void SystemPort::expectRestOfLine(qsizetype characters) {
    constexpr qsizetype bits = 10;    // of a character, with start and stop
    constexpr qsizetype onTheWay = 3; // milliseconds that a character may take from the line to here
    const qsizetype milliseconds = characters * bits * 1000 / QSerialPort::Baud9600 + onTheWay;
    if (port_.isOpen() && failure_.isEmpty()) {
        await(Awaited::RestOfLine, static_cast<int>(milliseconds));
    }
}

/// While the rest of a line comes, the system does not wake the program.
void SystemPort::await(Awaited awaited, int milliseconds) {
    awaited_ = awaited;
    // Also if it was awaited before: the port library has its notifier enabled again by each reading.
    for (QSocketNotifier* notifier : port_.findChildren<QSocketNotifier*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (notifier->type() == QSocketNotifier::Read) {
            notifier->setEnabled(awaited != Awaited::RestOfLine);
        }
    }
    if (awaited == Awaited::Anything) {
        awaiting_.stop();
    } else {
        awaiting_.start(milliseconds);
    }
}

void SystemPort::awaitNext() {
    constexpr int longest = 100; // milliseconds for the end of a line that is longer than expected
    if (awaited_ == Awaited::RestOfLine) {
        await(Awaited::EndOfLine, longest);
        return;
    }
    await(Awaited::Anything);
    if (port_.bytesAvailable() > 0) {
        tellOfInput();
    }
}

/// From the event loop: whoever hears of it may close the port, which the port's own signal would not survive.
void SystemPort::tellStirred() {
    QMetaObject::invokeMethod(
        &port_, [this] { stirred.tell(); }, Qt::QueuedConnection);
}

Words SystemPort::open() {
    if (port_.isOpen()) {
        return {};
    }
    const QScopedValueRollback settingUp(settingUp_, true);
    failure_.clear();
    stirredTold_ = false;
    port_.clearError();
#ifdef Q_OS_UNIX
    port_.setPortName(devicePath(device_)); // a link may lead elsewhere than at the last opening
#endif
    const bool opened = port_.open(QIODevice::ReadWrite) && port_.setBaudRate(QSerialPort::Baud9600) &&
                        port_.setDataBits(QSerialPort::Data8) && port_.setParity(QSerialPort::NoParity) &&
                        port_.setStopBits(QSerialPort::OneStop) && port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!opened) {
        Words reason = openFailure();
        port_.close();
        return reason;
    }
    port_.setDataTerminalReady(false);
    port_.clearError();
    return {};
}

void SystemPort::close() {
    await(Awaited::Anything);
    if (port_.isOpen()) {
        port_.close();
    }
}

bool SystemPort::isOpen() const {
    return port_.isOpen();
}

void SystemPort::setDataTerminalReady(bool on) {
    // A pseudo-terminal has no DTR and refuses; that must not end the connection.
    const QScopedValueRollback settingUp(settingUp_, true);
    if (port_.isOpen()) {
        port_.setDataTerminalReady(on);
    }
}

QByteArray SystemPort::readAll() {
    stirredTold_ = false;
    return port_.isOpen() ? port_.readAll() : QByteArray();
}

void SystemPort::write(const QByteArray& bytes) {
    if (port_.isOpen() && failure_.isEmpty() && port_.bytesToWrite() + bytes.size() <= maximumPendingOutput) {
        await(Awaited::Anything);
        port_.write(bytes);
        port_.flush(); // now, not when the event loop runs
    }
}

QByteArray SystemPort::discardInput() {
    if (!port_.isOpen() || !failure_.isEmpty()) {
        return {};
    }
    await(Awaited::Anything);
    QByteArray dropped = readAll();
    port_.clear(QSerialPort::Input); // what has only reached the system
    return dropped;
}

qsizetype SystemPort::inputCount() {
    return port_.isOpen() ? port_.bytesAvailable() : 0;
}

Words SystemPort::failure() const {
    return failure_;
}

void SystemPort::noteError(QSerialPort::SerialPortError error) {
    // After the far end has vanished several errors arrive while the port still counts as open: the first tells why.
    if (settingUp_ || !failure_.isEmpty() || !lineIsLost(error, port_)) {
        return;
    }
    failure_ = error == QSerialPort::ResourceError || error == QSerialPort::ReadError
                   ? Words::tr("The device is gone: the cable was pulled or the adapter switched off.")
                   : Words::tr("The system says: %1.").arg(errorText(port_));
    tellStirred();
}

Words SystemPort::openFailure() const {
    OpenFailureFacts facts;
    facts.systemText = errorText(port_);
    facts.accessible = true;
#ifdef Q_OS_UNIX
    const QString path = devicePath(device_);
    lookAtFile(path, facts);
    facts.isSerialDevice = facts.isSerialDevice && port_.error() != QSerialPort::UnsupportedOperationError;
#else
    facts.exists = !QSerialPortInfo(port_).isNull(); // a port's path names no file here
#endif
    // With everything above in order, a refusal means that somebody else holds the device.
    facts.busy = facts.busy || (facts.lockFolderWritable && port_.error() == QSerialPort::PermissionError);
#ifdef Q_OS_UNIX
    if (facts.busy && facts.lockedBy.isEmpty()) {
        facts.lockedBy = holderOf(path);
    }
#endif
    return explainOpenFailure(facts);
}

Words openObstacle([[maybe_unused]] const QString& device) {
#ifdef Q_OS_UNIX
    OpenFailureFacts facts;
    const QString path = devicePath(device);
    lookAtFile(path, facts);
    if (facts.lockedBy.isEmpty()) {
        facts.lockedBy = holderOf(path);
    }
    facts.busy = !facts.lockedBy.isEmpty();
    const bool stands = !facts.exists || !facts.isSerialDevice || !facts.accessible || facts.busy;
    return stands || !facts.lockFolderWritable ? explainOpenFailure(facts) : Words();
#else
    return {};
#endif
}

Words holderOf([[maybe_unused]] const QString& path) {
#ifdef Q_OS_LINUX
    const QString device = QFileInfo(path).canonicalFilePath();
    const QString own = QString::number(QCoreApplication::applicationPid());
    const QDir processes(QStringLiteral("/proc"));
    for (const QString& process : processes.entryList({QStringLiteral("[0-9]*")}, QDir::Dirs)) {
        const QDir files(processes.filePath(process + QLatin1String("/fd")));
        for (const QString& file : files.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot)) {
            if (process != own && !device.isEmpty() && QFile::symLinkTarget(files.filePath(file)) == device) {
                QFile name(processes.filePath(process + QLatin1String("/comm")));
                const bool isKnown = name.open(QIODevice::ReadOnly);
                const QString program = isKnown ? QString::fromLocal8Bit(name.readAll()).trimmed() : QString();
                return holderText(program, process);
            }
        }
    }
#endif
    return {};
}

namespace {

/// How long after its file has come an adapter's description may follow, in milliseconds.
constexpr qint64 settlingTime = 10'000;

} // namespace

SystemPortList::SystemPortList(const Clock& clock, QString deviceFolder)
    : clock_(clock)
    , deviceFolder_(std::move(deviceFolder)) {}

QString SystemPortList::systemDeviceFolder() {
#ifdef Q_OS_LINUX
    return QStringLiteral("/dev");
#else
    return {};
#endif
}

std::vector<ListedPort> SystemPortList::ports() {
    std::vector<ListedPort> list;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        list.push_back({.name = port.portName(),
                        .description = port.description(),
                        .manufacturer = port.manufacturer(),
                        .isAdapter = port.hasVendorIdentifier()});
    }
    return list;
}

bool SystemPortList::mayHaveChanged() {
    const QFileInfo folder(deviceFolder_);
    if (deviceFolder_.isEmpty() || !folder.exists()) {
        return true;
    }
    const QDateTime changed = folder.lastModified();
    const qint64 now = clock_.monotonicMilliseconds();
    if (folderChanged_ != changed) {
        folderChanged_ = changed;
        seenAt_ = now;
    }
    return now - seenAt_ < settlingTime;
}

} // namespace orv
