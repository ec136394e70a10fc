// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/standardoutput.h"

#include "base/files.h"

#include <algorithm>
#include <cerrno>
#include <climits>

#include <poll.h>
#include <unistd.h>

namespace orv {

namespace {

/// How much of it a pipe with some room takes without having its writer wait: whole lines, if one is short enough.
qsizetype nextPart(const QByteArray& bytes) {
    const qsizetype most = std::min<qsizetype>(bytes.size(), PIPE_BUF);
    const qsizetype lines = QByteArrayView(bytes).first(most).lastIndexOf('\n') + 1;
    return lines > 0 ? lines : most;
}

} // namespace

StandardOutput::StandardOutput(int descriptor)
    : descriptor_(descriptor)
    , ready_(descriptor, QSocketNotifier::Write) {
    ready_.setEnabled(false);
    connect(&ready_, &QSocketNotifier::activated, this, [this] {
        send();
        if (waiting_.isEmpty()) {
            drained.tell();
        }
    });
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

Words StandardOutput::sync() const {
    return syncToDisk(descriptor_);
}

qint64 StandardOutput::readData(char* /*data*/, qint64 /*most*/) {
    return -1;
}

qint64 StandardOutput::writeData(const char* data, qint64 size) {
    if (!hasFailed_ && waiting_.size() + size > mostWaiting) {
        setErrorString(QStringLiteral("its reader does not read"));
        return -1;
    }
    const bool mayGo = waiting_.isEmpty();
    waiting_.append(data, size);
    if (mayGo) {
        send();
    }
    return hasFailed_ ? -1 : size;
}

/// Asks first, because a terminal or pipe that is set not to have its writers wait is so for all programs that use it.
void StandardOutput::send() {
    pollfd reader{.fd = descriptor_, .events = POLLOUT, .revents = 0};
    while (!waiting_.isEmpty() && ::poll(&reader, 1, 0) > 0) {
        const ssize_t taken = ::write(descriptor_, waiting_.constData(), static_cast<size_t>(nextPart(waiting_)));
        if (taken >= 0) {
            waiting_.remove(0, taken);
        } else if (errno == EAGAIN) {
            break;
        } else if (errno != EINTR) {
            hasFailed_ = true;
            setErrorString(qt_error_string(errno));
            waiting_.clear();
        }
    }
    ready_.setEnabled(!waiting_.isEmpty());
}

} // namespace orv
