// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/interruption.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <sys/socket.h>
#include <unistd.h>

namespace orv {

namespace {

constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};

// A signal handler may touch little else.
volatile std::sig_atomic_t pipeEnd = -1;

void passOn(int signal) {
    const auto number = static_cast<char>(signal);
    [[maybe_unused]] const ssize_t written = ::write(pipeEnd, &number, 1);
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

/// Whoever started the program wants it to go on: nohup, or a shell that put it into the background.
bool isIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

Interruption::Interruption() {
    std::array<int, 2> ends{-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0) {
        return; // signals then end the program at once
    }
    read_.reset(ends[0]);
    write_.reset(ends[1]);
    notifier_ = std::make_unique<QSocketNotifier>(read_.get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { takeSignal(); });
    pipeEnd = write_.get();
    for (const int signal : signals) {
        if (!isIgnored(signal)) {
            handle(signal, passOn);
        }
    }
}

Interruption::~Interruption() {
    for (const int signal : signals) {
        if (!isIgnored(signal)) {
            handle(signal, SIG_DFL);
        }
    }
    pipeEnd = -1;
}

void Interruption::takeSignal() {
    char number = 0;
    while (::read(read_.get(), &number, 1) == 1) {
        wanted.tell(number);
    }
}

} // namespace orv
