// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/captureformat.h"
#include "base/clock.h"
#include "link/port.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <vector>

namespace orv {

/// Where the program does not send what it sent when the capture was made.
struct ReplayDifference {
    qint64 offset = 0; ///< In all bytes that the capture has as sent, from 0.
    QByteArray expected;
    QByteArray got;

    /// "byte 17: \"T30\\r\" was sent, now \"T31\\r\""
    QString text() const;

    bool operator==(const ReplayDifference&) const = default;
};

/// The instrument's side of a capture: answers as the captured line did.
///
/// It waits for the program where the program acted: opened or closed the line, moved DTR, sent bytes. What the line
/// did then follows with the captured delays after that act: characters come, or it fails. The program's dropping of
/// what has come is met by the captured one, if there is one before the next act, with its delays. One write is
/// compared with one captured write or with its beginning; one that differs stands for the captured one nevertheless,
/// so that the play goes on. Each opening of the line plays the next captured one.
class ReplayPort final : public Port {
public:
    /// What is told whenever the line is closed: how the bytes and the raising and dropping of DTR compare.
    using Told = std::function<void(const QString& text)>;

    /// At `speed` times the captured pace; 0: without any delay. `name` is of the capture, for what is told.
    ReplayPort(const CaptureContents& capture, QString name, double speed, Clock& clock, Told told = {});

    Words open() override;
    void close() override;
    bool isOpen() const override { return open_; }
    void setDataTerminalReady(bool on) override;
    QByteArray readAll() override;
    void write(const QByteArray& bytes) override;
    QByteArray discardInput() override;
    qsizetype inputCount() override;
    Words failure() const override { return failure_; }

    const std::vector<ReplayDifference>& differences() const { return differences_; }

    /// Every captured opening has been played.
    bool isOver() const { return next_ == steps_.size(); }

private:
    /// What happened on the captured line.
    struct Step {
        CaptureKind kind = CaptureKind::Other;
        qint64 milliseconds = 0;
        QByteArray bytes;
        QString text; ///< Why the line failed or could not be opened.
        bool on = false;
    };
    /// A step that comes from the line, by its number, and when.
    struct Coming {
        std::size_t step;
        qint64 due;
    };

    qint64 dueOf(const Step& step) const;
    void act(const Step& step);
    void goOn();
    void watch();
    void arrive();
    void skipOpening();
    void noteDifference(const QByteArray& expected, const QByteArray& got);
    void noteDtr(const QString& text, bool on);
    void tellResult();

    Clock& clock_;
    QString name_;
    double speed_;
    Told told_;
    std::vector<Step> steps_;
    std::size_t next_ = 0;  ///< The step for which the program is awaited.
    qsizetype matched_ = 0; ///< Bytes of it that the program has sent.
    qint64 passed_ = 0;     ///< Captured bytes that have been sent or should have been.
    qint64 actedAt_ = 0;    ///< When the program acted last, in the clock's milliseconds and in the capture's.
    qint64 actedAtThere_ = 0;
    std::deque<Coming> coming_;         ///< What is due later.
    std::deque<std::size_t> arrived_;   ///< Steps whose bytes can be read.
    std::deque<std::size_t> droppings_; ///< Captured ones since the program's last act.
    Subscription alarm_;
    bool open_ = false;
    Words failure_;
    std::vector<ReplayDifference> differences_;
    std::size_t differencesTold_ = 0;
    QStringList dtrDifferences_; ///< Since the line was opened, in words.
    qint64 beyond_ = 0;          ///< The same: bytes that were sent after the capture's end.
};

/// What a device text "sim:replay?file=NAME&speed=N" asks for: the capture, and the pace, 1 unless given.
struct ReplayOptions {
    QString file;
    double speed = 1.0;
    Words error; ///< Empty, or what is wrong and what is allowed, in whole sentences.
};

/// Whether a device text names a replay ("sim:replay..."), well formed or not.
bool namesReplay(const QString& device);

ReplayOptions parseReplayOptions(const QString& device);

} // namespace orv
