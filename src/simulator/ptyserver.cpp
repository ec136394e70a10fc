// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/ptyserver.h"

#include <QFile>

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace orv {

namespace {

QString systemError(const QString& action) {
    return QStringLiteral("%1: %2.").arg(action, QString::fromLocal8Bit(std::strerror(errno)));
}

} // namespace

PtyServer::PtyServer(const SimulatorOptions& options, const Clock& clock)
    : clock_(clock)
    , isPaced_(options.baud != 0)
    , instrument_(options, clock) {}

QString PtyServer::open() {
    constexpr size_t longestPath = 128;
    std::array<char, longestPath> path{};
    master_.reset(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!master_.isOpen() || ::grantpt(master_.get()) != 0 || ::unlockpt(master_.get()) != 0 ||
        ::ptsname_r(master_.get(), path.data(), path.size()) != 0) {
        return systemError(QStringLiteral("No pseudo-terminal could be made"));
    }
    slave_.reset(::open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    watch_.reset(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    configureLine();
    int packetMode = 1;
    if (!slave_.isOpen() || ::ioctl(master_.get(), TIOCPKT, &packetMode) != 0 || !watch_.isOpen() ||
        ::inotify_add_watch(watch_.get(), path.data(), IN_OPEN | IN_CLOSE) < 0) {
        QString error = systemError(QStringLiteral("The pseudo-terminal could not be prepared"));
        vanish();
        return error;
    }
    path_ = QFile::decodeName(path.data());
    return {};
}

bool PtyServer::serve(int maximumMilliseconds) {
    if (!master_.isOpen()) {
        return false;
    }
    const auto masterEvents = static_cast<short>(POLLIN | POLLPRI | (rest_.isEmpty() ? 0 : POLLOUT));
    std::array<pollfd, 2> polled{{{master_.get(), masterEvents, 0}, {watch_.get(), POLLIN, 0}}};
    ::poll(polled.data(), polled.size(), waitingTime(maximumMilliseconds));
    followHosts();
    takeFromHost();
    giveToHost();
    if (instrument_.isUnplugged() && instrument_.arrivedCount() == 0 && rest_.isEmpty()) {
        vanish();
    }
    return master_.isOpen();
}

int PtyServer::waitingTime(int maximumMilliseconds) {
    if (!rest_.isEmpty()) {
        return maximumMilliseconds;
    }
    const std::optional<qint64> change = instrument_.nextChange();
    if (!change) {
        return maximumMilliseconds;
    }
    const qint64 due = std::max(*change, handOverAt_) - clock_.monotonicMilliseconds();
    return static_cast<int>(std::clamp<qint64>(due, 0, std::max(maximumMilliseconds, 0)));
}

void PtyServer::configureLine() {
    termios settings{};
    if (::tcgetattr(slave_.get(), &settings) == 0) {
        ::cfmakeraw(&settings);
        ::cfsetspeed(&settings, B9600);
        ::tcsetattr(slave_.get(), TCSANOW, &settings);
    }
    // A host that was killed while it held the line for itself must not lock out the next one.
    ::ioctl(slave_.get(), TIOCNXCL);
}

void PtyServer::followHosts() {
    bool followed = false;
    std::array<char, 4096> buffer{};
    for (;;) {
        const ssize_t size = ::read(watch_.get(), buffer.data(), buffer.size());
        if (size <= 0) {
            break;
        }
        followed = true;
        for (ssize_t offset = 0; offset < size;) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + offset, sizeof event);
            offset += static_cast<ssize_t>(sizeof event + event.len);
            if ((event.mask & (IN_OPEN | IN_CLOSE)) != 0) {
                hostCameOrWent((event.mask & IN_OPEN) != 0);
            }
        }
    }
    // Not while a host has it open: what that host does to the line must neither be undone nor be missed.
    if (followed && hosts_ == 0) {
        ::tcflush(slave_.get(), TCIFLUSH);
        configureLine();
    }
}

void PtyServer::hostCameOrWent(bool came) {
    hosts_ += came ? 1 : -1;
    if (hosts_ > 0) {
        return;
    }
    hosts_ = 0;
    heardHost_ = false;
    rest_.clear();
    instrument_.sleep();
}

void PtyServer::takeFromHost() {
    std::array<char, 4096> buffer{};
    for (;;) {
        // The first byte of every read tells whether data follow or something happened to the line.
        const ssize_t size = ::read(master_.get(), buffer.data(), buffer.size());
        if (size <= 0) {
            return;
        }
        if (buffer.front() != TIOCPKT_DATA) {
            if ((buffer.front() & TIOCPKT_FLUSHREAD) != 0) {
                hostDiscardedInput();
            }
            continue;
        }
        if (size > 1) {
            taken_ += size - 1;
            heardHost_ = instrument_.receive(QByteArray(buffer.data() + 1, size - 1)) || heardHost_;
        }
    }
}

void PtyServer::hostDiscardedInput() {
    followHosts(); // it may have opened the line only after the last look
    rest_.clear();
    instrument_.discardArrived();
    if (hosts_ > 0 && !heardHost_) {
        instrument_.wake();
    }
}

void PtyServer::giveToHost() {
    const qint64 now = clock_.monotonicMilliseconds();
    if (rest_.isEmpty() && (now < handOverAt_ || instrument_.arrivedCount() == 0)) {
        return;
    }
    handOverAt_ = isPaced_ ? now + handOverInterval : now;
    for (;;) {
        if (rest_.isEmpty()) {
            rest_ = instrument_.takeArrived();
        }
        if (rest_.isEmpty()) {
            return;
        }
        const ssize_t written = ::write(master_.get(), rest_.constData(), static_cast<size_t>(rest_.size()));
        if (written <= 0) {
            return;
        }
        given_ += written;
        rest_.remove(0, written);
    }
}

void PtyServer::vanish() {
    watch_.reset();
    slave_.reset();
    master_.reset();
}

} // namespace orv
