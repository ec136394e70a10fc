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
    QString reason = appendWhole(file_, block + "\r\n");
    const bool isTold = std::exchange(failureTold_, !reason.isEmpty());
    return isTold ? QString() : reason;
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
    searchWhatIsNew();

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
    } else if (searched_.lineFeed < 0 && ports_.checkFailure()) {
        return {}; // the operator is told after the last complete line has been taken
    }

    rxbuffer += block;
    if (rxbuffer.isEmpty()) {
        return {};
    }
    searchWhatIsNew();
    if (state.gatherstart == 1) {
        if (searched_.ready >= 0) {
            state.Gatherstop = 1;
        } else if (searched_.other >= 0) {
            state.Gatherstop = 3;
        }
    }
    if (searched_.lineFeed >= 0) {
        takeLine();
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

void Poll::searchWhatIsNew() {
    if (rxbuffer.size() < searched_.end) {
        searched_ = {}; // it has been emptied
    }
    const auto fresh = QByteArrayView(rxbuffer).sliced(searched_.end);
    const auto note = [this](qsizetype& place, qsizetype found) { place = found < 0 ? place : searched_.end + found; };
    if (searched_.lineFeed < 0) {
        note(searched_.lineFeed, fresh.indexOf('\n'));
    }
    note(searched_.ready, fresh.lastIndexOf('>'));
    note(searched_.other, fresh.lastIndexOf('!'));
    searched_.end = rxbuffer.size();
}

void Poll::takeLine() {
    // A line feed that comes first ends an empty line.
    const qsizetype length = std::max<qsizetype>(searched_.lineFeed - 1, 0);
    session_.state.Rtn = QString::fromLatin1(rxbuffer.constData(), length);
    const qsizetype taken = searched_.lineFeed + 1;
    rxbuffer.remove(0, taken);
    searched_ = {.end = searched_.end - taken,
                 .lineFeed = rxbuffer.indexOf('\n'),
                 .ready = std::max<qsizetype>(searched_.ready - taken, -1),
                 .other = std::max<qsizetype>(searched_.other - taken, -1)};
}

} // namespace orv
