// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/poll.h"

#include "base/files.h"

#include <algorithm>
#include <utility>

namespace orv {

QString ProgramLog::open(const QString& path) {
    file_.setFileName(path);
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) ? QString()
                                                                                          : errorText(file_);
}

QString ProgramLog::write(const QByteArray& block) {
    if (!file_.isOpen()) {
        return {};
    }
    const QByteArray line = block + "\r\n";
    if (file_.write(line) == line.size()) {
        failureTold_ = false;
        return {};
    }
    return std::exchange(failureTold_, true) ? QString() : errorText(file_);
}

Poll::Poll(Session& session, ComPorts& ports, DebugState& debug)
    : session_(session)
    , ports_(ports)
    , debug_(debug) {}

QString Poll::quary() {
    SessionState& state = session_.state;
    if (state.Tmr == 1) {
        state.Tmr = 0;
        rxbuffer.clear();
    }
    state.Rtn.clear();

    const QByteArray block = ports_.readAll();
    if (!block.isEmpty()) {
        if (state.trouble == 1 && debug_.rawBuffer) {
            debug_.list.append(QString::fromLatin1(block));
        }
        const QString reason = log.write(block);
        if (!reason.isEmpty()) {
            session_.messages.show(
                operatorWarning(QStringLiteral("The log file %1 can no longer be written: %2.\n\nThe "
                                               "program goes on; make room on the disk so that the log is "
                                               "complete again.")
                                    .arg(session_.fileNames.log, reason)));
        }
    } else if (!rxbuffer.contains('\n') && ports_.checkFailure()) {
        return {}; // the operator is told after the last complete line has been taken
    }

    rxbuffer += block;
    if (rxbuffer.isEmpty()) {
        return {};
    }
    if (state.gatherstart == 1) {
        if (rxbuffer.contains('>')) {
            state.Gatherstop = 1;
        } else if (rxbuffer.contains('!')) {
            state.Gatherstop = 3;
        }
    }
    const qsizetype lineFeed = rxbuffer.indexOf('\n');
    if (lineFeed >= 0) {
        // A line feed that comes first ends an empty line.
        const qsizetype length = std::max<qsizetype>(lineFeed - 1, 0);
        state.Rtn = QString::fromLatin1(rxbuffer.constData(), length);
        rxbuffer.remove(0, lineFeed + 1);
    }
    session_.status.bufferCount = static_cast<int>(rxbuffer.size());

    if (!state.Rtn.isEmpty() && state.trouble == 1) {
        if (debug_.showParsing) {
            debug_.list.append(state.Rtn);
        }
        debug_.list.selectLast();
    }
    return state.Rtn;
}

} // namespace orv
