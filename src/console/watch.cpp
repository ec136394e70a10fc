// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/watch.h"

#include "console/commands.h"

#include <limits>
#include <utility>

namespace orv {

WatchedPort::WatchedPort(std::unique_ptr<Port> port, const Traffic& traffic)
    : port_(std::move(port))
    , traffic_(traffic)
    , stirring_(port_->stirred.subscribe([this] { stirred.tell(); })) {}

QByteArray WatchedPort::readAll() {
    QByteArray block = port_->readAll();
    if (!block.isEmpty()) {
        traffic_.tell(false, block);
    }
    return block;
}

void WatchedPort::write(const QByteArray& bytes) {
    port_->write(bytes);
    traffic_.tell(true, bytes);
}

QString inVisibleCharacters(const QByteArray& bytes) {
    QString text;
    for (const char character : bytes) {
        constexpr uchar firstPrintable = 0x20;
        constexpr uchar lastPrintable = 0x7e;
        const auto code = static_cast<uchar>(character);
        if (character == '\r') {
            text += QLatin1String("\\r");
        } else if (character == '\n') {
            text += QLatin1String("\\n");
        } else if (character == '\t') {
            text += QLatin1String("\\t");
        } else if (character == '\\') {
            text += QLatin1String("\\\\");
        } else if (code < firstPrintable || code > lastPrintable) {
            text += QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
        } else {
            text += QLatin1Char(character);
        }
    }
    return text;
}

namespace {

/// Joins what passes to lines and prints them, with the time of their first character.
class Watcher {
public:
    explicit Watcher(Visit& visit)
        : visit_(visit) {}
    ~Watcher() { print(); }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    void take(bool sent, const QByteArray& bytes) {
        if (sent != sent_) {
            print();
            sent_ = sent;
        }
        qsizetype at = 0;
        while (at < bytes.size()) {
            const qsizetype lineFeed = bytes.indexOf('\n', at);
            const qsizetype end = lineFeed < 0 ? bytes.size() : lineFeed + 1;
            if (line_.isEmpty()) {
                began_ = visit_.clock.now();
            }
            line_ += bytes.sliced(at, end - at);
            at = end;
            if (lineFeed >= 0) {
                print();
            }
        }
        // What has no end, such as a prompt, is shown when nothing follows.
        constexpr qint64 quiet = 100;
        pause_ = visit_.clock.callAfter(quiet, [this] { print(); });
    }

    bool readerIsGone() const { return readerIsGone_; }

private:
    void print() {
        const QByteArray line = std::exchange(line_, QByteArray());
        if (line.isEmpty()) {
            return;
        }
        const auto direction = sent_ ? QStringLiteral("sent") : QStringLiteral("received");
        bool taken = false;
        if (visit_.options.json) {
            taken = visit_.terminal.print(QJsonObject{
                {QStringLiteral("time"), began_.toOffsetFromUtc(began_.offsetFromUtc()).toString(Qt::ISODateWithMs)},
                {QStringLiteral("direction"), direction},
                {QStringLiteral("text"), QString::fromLatin1(line)}});
        } else {
            taken = visit_.terminal.print(QStringLiteral("%1 %2 %3")
                                              .arg(began_.toString(QStringLiteral("HH:mm:ss.zzz")),
                                                   sent_ ? QStringLiteral(">") : QStringLiteral("<"),
                                                   inVisibleCharacters(line)));
        }
        if (!taken) {
            readerIsGone_ = true;
            visit_.look();
        }
    }

    Visit& visit_;
    bool sent_ = false;
    QByteArray line_;
    QDateTime began_;
    bool readerIsGone_ = false;
    Subscription pause_;
};

} // namespace

Task<> watchLine(Visit& visit, Traffic& traffic) {
    Watcher watcher(visit);
    const Subscription watching =
        traffic.subscribe([&watcher](bool sent, const QByteArray& bytes) { watcher.take(sent, bytes); });
    Link& link = visit.program.link;
    link.ports.setDevice(1, visit.options.port);
    visit.program.autoConnect1();
    const std::function<bool()> over = [&watcher, &link] {
        // The line of an instrument that does not answer is watched as well.
        return watcher.readerIsGone() || (link.procedures.isIdle() && !link.ports.isOpen());
    };
    co_await visit.reached(std::numeric_limits<int>::max(), over);
    if (!watcher.readerIsGone()) {
        throw Failure(QString()); // the line could not be opened or was lost, which has been told
    }
}

} // namespace orv
