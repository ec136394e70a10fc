// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "console/commands.h"

#include <limits>
#include <utility>

namespace orv {

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

Task<> watchLine(Visit& visit) {
    Watcher watcher(visit);
    Link& link = visit.program.link;
    const Subscription watching = link.ports.passed.subscribe([&watcher](const LineEvent& event) {
        if (event.kind == LineEvent::Kind::Sent || event.kind == LineEvent::Kind::Received) {
            watcher.take(event.kind == LineEvent::Kind::Sent, event.bytes);
        }
    });
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
