// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/poll.h"

#include "base/files.h"

#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace orv {

QString ProgramLog::olderPath(const QString& path) {
    const qsizetype suffix = path.lastIndexOf(u'.');
    return path.first(std::max<qsizetype>(suffix, 0)) + QLatin1String("-older") +
           path.sliced(std::max<qsizetype>(suffix, 0));
}

Words ProgramLog::open(const QString& path) {
    file_.setFileName(path);
    isBegun_ = openFor(QIODevice::Truncate);
    if (!isBegun_) {
        return errorText(file_);
    }
    QFile::remove(olderPath(path));
    return {};
}

Words ProgramLog::write(const QByteArray& block) {
    const QByteArray line = block + "\r\n";
    if (file_.isOpen() && file_.pos() > 0 && file_.pos() + line.size() > std::max(next_, largest_)) {
        beginAnew();
    } else if (isBegun_ && !file_.isOpen()) {
        openFor(QIODevice::Append); // there was no new one, perhaps there can be now
    }
    if (!isBegun_) {
        return {};
    }
    Words reason = file_.isOpen() ? appendWhole(file_, line) : errorText(file_);
    const bool isTold = toldFailure_ > 0;
    toldFailure_ = reason.isEmpty() ? std::max<qsizetype>(toldFailure_ - line.size(), 0) : line.size();
    return isTold ? Words() : reason;
}

void ProgramLog::beginAnew() {
    const QFileInfo info(file_.fileName());
    next_ = file_.pos() + largest_; // if it fails
    file_.close();                  // some systems rename no open file
    // In one step, so that what was received last is in one of the two files whenever the computer stops.
    std::error_code error;
    std::filesystem::rename(info.filesystemFilePath(), QFileInfo(olderPath(file_.fileName())).filesystemFilePath(),
                            error);
    if (!error) {
        next_ = 0;
        anew_.begun = !std::exchange(anewTold_, true);
    } else {
        anew_.reason = systemErrorText(error.value());
    }
    openFor(error ? QIODevice::Append : QIODevice::Truncate);
}

bool ProgramLog::openFor(QIODevice::OpenMode mode) {
    return file_.open(QIODevice::WriteOnly | mode | QIODevice::Unbuffered);
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
        writeLog(block);
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
    expectRestOfLine();

    if (!state.Rtn.isEmpty() && state.trouble == 1) {
        if (debug_.showParsing) {
            debug_.list.append(state.Rtn);
        }
        debug_.list.selectLast();
    }
    return state.Rtn;
}

void Poll::writeLog(const QByteArray& block) {
    const Words reason = log.write(block);
    const QString& name = session_.fileNames.log;
    if (!reason.isEmpty()) {
        session_.messages.show(operatorWarning(Words::tr("The log file %1 can no longer be written: %2.\n\nThe "
                                                         "program goes on; make room on the disk so that the log is "
                                                         "complete again.")
                                                   .arg(name, reason)));
    }
    const ProgramLog::Anew anew = log.takeAnew();
    if (anew.begun) {
        session_.messages.show(
            {.title = programTitle(),
             .text = Words::tr("The log file %1 has become long and goes on in a new file. What was received "
                               "before is in %2.\n\nFrom now on this is done without a word, and only the "
                               "newest of the older files is kept. Copy them if you need more.")
                         .arg(name, ProgramLog::olderPath(name)),
             .icon = Message::Icon::Information});
    } else if (!anew.reason.isEmpty()) {
        session_.messages.show(
            operatorWarning(Words::tr("The log file %1 has become long, and no new one could be begun: %2.\n\nThe "
                                      "program goes on. Make room in the folder, and start the program again "
                                      "when you can.")
                                .arg(name, anew.reason)));
    }
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

void Poll::expectRestOfLine() {
    const bool isBegun = searched_.lineFeed < 0 && searched_.ready < 0 && searched_.other < 0 && !rxbuffer.isEmpty();
    const qsizetype rest = linesTogether * lineLength_ - rxbuffer.size();
    if (session_.state.gatherstart == 1 && isBegun && rest > 0) {
        ports_.expectRestOfLine(rest);
    }
}

void Poll::takeLine() {
    // A line feed that comes first ends an empty line.
    const qsizetype length = std::max<qsizetype>(searched_.lineFeed - 1, 0);
    session_.state.Rtn = QString::fromLatin1(rxbuffer.constData(), length);
    const qsizetype taken = searched_.lineFeed + 1;
    rxbuffer.remove(0, taken);
    lineLength_ = taken;
    searched_ = {.end = searched_.end - taken,
                 .lineFeed = rxbuffer.indexOf('\n'),
                 .ready = std::max<qsizetype>(searched_.ready - taken, -1),
                 .other = std::max<qsizetype>(searched_.other - taken, -1)};
}

} // namespace orv
