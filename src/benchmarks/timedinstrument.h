// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "base/filedescriptor.h"
#include "simulator/simulatedinstrument.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace orv {

inline double wallSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// A simulated instrument on a pseudo-terminal that a thread of its own serves. It notes when it has sent each data
/// line, whole with its LF (so `baud` is to be 0). It wakes up again and again until it hears something.
class TimedInstrument {
public:
    explicit TimedInstrument(const QString& device)
        : instrument_(parseSimulatorOptions(device).options, clock_)
        , master_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
        std::array<char, 128> name{};
        if (::grantpt(master_.get()) != 0 || ::unlockpt(master_.get()) != 0 ||
            ::ptsname_r(master_.get(), name.data(), name.size()) != 0) {
            throw std::runtime_error("there is no pseudo-terminal");
        }
        path = QFile::decodeName(name.data());
        slave_.reset(::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        termios settings{};
        ::tcgetattr(slave_.get(), &settings);
        ::cfmakeraw(&settings);
        ::tcsetattr(slave_.get(), TCSANOW, &settings);
        thread_ = std::thread([this] { serve(); });
    }
    ~TimedInstrument() {
        stopped_ = true;
        thread_.join();
    }
    TimedInstrument(const TimedInstrument&) = delete;
    TimedInstrument& operator=(const TimedInstrument&) = delete;

    /// Wall seconds of the data lines sent since the last call.
    std::vector<double> takeMoments() {
        const std::lock_guard lock(mutex_);
        return std::exchange(moments_, {});
    }

    QString path;

private:
    void serve() {
        constexpr qint64 longestWait = 20;
        constexpr qint64 wakeInterval = 500;
        bool heard = false;
        qint64 wokenAt = 0;
        while (!stopped_) {
            const qint64 now = clock_.monotonicMilliseconds();
            if (!heard && now - wokenAt >= wakeInterval) {
                instrument_.wake();
                wokenAt = now;
            }
            const qint64 wait = instrument_.nextChange().value_or(now + longestWait) - now;
            pollfd polled{master_.get(), POLLIN, 0};
            ::poll(&polled, 1, static_cast<int>(std::clamp<qint64>(wait, 0, longestWait)));
            std::array<char, 256> buffer{};
            const ssize_t size = ::read(master_.get(), buffer.data(), buffer.size());
            heard = (size > 0 && instrument_.receive(QByteArray(buffer.data(), size))) || heard;
            send(instrument_.takeArrived());
        }
    }

    void send(const QByteArray& block) {
        if (block.isEmpty()) {
            return;
        }
        if (block.contains('\t')) {
            const std::lock_guard lock(mutex_);
            moments_.insert(moments_.end(), static_cast<std::size_t>(block.count('\n')), wallSeconds());
        }
        if (::write(master_.get(), block.constData(), static_cast<std::size_t>(block.size())) != block.size()) {
            std::abort(); // the program does not read
        }
    }

    SystemClock clock_;
    SimulatedInstrument instrument_;
    FileDescriptor master_;
    FileDescriptor slave_; ///< Held open so that the line keeps its settings.
    std::mutex mutex_;
    std::vector<double> moments_;
    std::atomic<bool> stopped_ = false;
    std::thread thread_;
};

} // namespace orv
