// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/captureformat.h"
#include "base/clock.h"
#include "base/words.h"

#include <QFile>

#include <deque>

namespace orv {

/// How much a CaptureStore keeps.
struct CaptureLimits {
    qsizetype segmentBytes = qsizetype{64} * 1024;
    qint64 segmentMilliseconds = 60'000;
    qsizetype memoryBytes = qsizetype{4} * 1024 * 1024;
    qint64 memoryMilliseconds = 600'000;
    qsizetype fileBytes = largestCapture / 2;
};

/// Keeps a capture: the newest entries in memory, and when it has begun() everything in a file.
///
/// Memory holds segments of up to 64 KB or a minute. When an entry comes, those whose last entry is ten minutes older
/// go, and the oldest as long as all of them would be more than 4 MB.
///
/// The file grows to half of `largestCapture`. Then it is renamed ("lake.jsonl" to "lake-earlier.jsonl", in the place
/// of the one before) and begun anew: the oldest half goes at once. Each of the two is a whole capture of its own.
/// Entries reach the file joined, after a second or 64 KB.
class CaptureStore {
public:
    /// The time of the entries begins now.
    explicit CaptureStore(Clock& clock, const CaptureLimits& limits = {});
    ~CaptureStore();
    CaptureStore(const CaptureStore&) = delete;
    CaptureStore& operator=(const CaptureStore&) = delete;

    /// What stands in the header of what is written from now on.
    void describe(const QJsonObject& facts) { header_ = captureHeader(began_, facts); }

    /// Adds an entry of now. Longer bytes become several entries; of longer texts the beginning is kept.
    void add(CaptureKind kind, QByteArrayView bytes);
    void add(CaptureKind kind, const QJsonValue& value);

    /// Begins to write the file, with what is in memory. Files of these names are kept under dated names. Returns the
    /// empty text, or why it cannot be written.
    Words begin(const QString& path);

    /// Writes what is still to be written and closes the file; nothing happens without one.
    void end();

    /// What is in memory, as the bytes of a capture file.
    QByteArray newest() const;

    /// Milliseconds since the capture began.
    qint64 now() const { return clock_.monotonicMilliseconds() - start_; }

    /// How many bytes are in memory.
    qsizetype size() const { return size_; }

    /// The file cannot be written any further, for that reason; what was written before stays. Told from the event
    /// loop.
    Signal<Words> failed;

    /// Where the older part of a capture file stands.
    static QString earlierName(const QString& path);

private:
    struct Segment {
        QByteArray lines;
        qint64 first = 0; ///< When its first and its last entry came.
        qint64 last = 0;
    };

    void take(qint64 now, const QByteArray& line);
    void dropOld(qint64 now);
    void flush();
    Words write();
    Words beginNextPart();

    Clock& clock_;
    QDateTime began_;
    QByteArray header_;
    const CaptureLimits limits_;
    qint64 start_;
    std::deque<Segment> segments_;
    qsizetype size_ = 0;
    bool hasDropped_ = false;
    QFile file_;
    QByteArray pending_; ///< For the file.
    Subscription flushing_;
};

} // namespace orv
