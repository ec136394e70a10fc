// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/capturestore.h"

#include "base/files.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace orv {

namespace {

/// Of what one entry tells.
constexpr qsizetype mostOfOne = 4096;

QJsonValue shortened(const QJsonValue& value) {
    if (value.isString() && value.toString().size() > mostOfOne) {
        return value.toString().left(mostOfOne) + QStringLiteral("...");
    }
    if (!value.isObject()) {
        return value;
    }
    QJsonObject object = value.toObject();
    for (auto&& member : object) {
        if (member.isString()) {
            member = shortened(member);
        }
    }
    return object;
}

} // namespace

CaptureStore::CaptureStore(Clock& clock, const CaptureLimits& limits)
    : clock_(clock)
    , began_(clock.now())
    , header_(captureHeader(began_, {}))
    , limits_(limits)
    , start_(clock.monotonicMilliseconds()) {}

CaptureStore::~CaptureStore() {
    end();
}

void CaptureStore::add(CaptureKind kind, QByteArrayView bytes) {
    const qint64 moment = now();
    do {
        const QByteArrayView part = bytes.first(std::min(bytes.size(), mostOfOne));
        take(moment, captureLine(moment, kind, part));
        bytes = bytes.sliced(part.size());
    } while (!bytes.isEmpty());
}

void CaptureStore::add(CaptureKind kind, const QJsonValue& value) {
    const qint64 moment = now();
    take(moment, captureLine(moment, kind, shortened(value)));
}

void CaptureStore::take(qint64 now, const QByteArray& line) {
    const bool fits = !segments_.empty() && segments_.back().lines.size() + line.size() <= limits_.segmentBytes &&
                      now - segments_.back().first < limits_.segmentMilliseconds;
    if (!fits) {
        if (!segments_.empty()) {
            segments_.back().lines.squeeze();
        }
        segments_.push_back({.lines = {}, .first = now, .last = now});
    }
    segments_.back().lines += line;
    segments_.back().last = now;
    size_ += line.size();
    dropOld(now);
    if (!file_.isOpen()) {
        return;
    }
    pending_ += line;
    if (pending_.size() >= limits_.segmentBytes) {
        flush();
    } else if (!flushing_) {
        constexpr qint64 second = 1000;
        flushing_ = clock_.callAfter(second, [this] { flush(); });
    }
}

void CaptureStore::dropOld(qint64 now) {
    while (segments_.size() > 1 &&
           (size_ > limits_.memoryBytes || now - segments_.front().last > limits_.memoryMilliseconds)) {
        size_ -= segments_.front().lines.size();
        segments_.pop_front();
        hasDropped_ = true;
    }
}

QByteArray CaptureStore::newest() const {
    QByteArray all = header_;
    if (hasDropped_) {
        all += captureLine(segments_.front().first, CaptureKind::Dropped, QJsonValue(true));
    }
    for (const Segment& segment : segments_) {
        all += segment.lines;
    }
    return all;
}

QString CaptureStore::earlierName(const QString& path) {
    const QFileInfo info(path);
    const QString suffix = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
    const QString name = info.completeBaseName() + QLatin1String("-earlier") + suffix;
    return info.path() == QLatin1String(".") ? name : info.dir().filePath(name);
}

Words CaptureStore::begin(const QString& path) {
    end();
    for (const QString& name : {path, earlierName(path)}) {
        const QFileInfo info(name);
        if (info.exists() && !info.isFile()) {
            return Words::tr("it is no file"); // a device must not get another name
        }
        Words reason = keepUnderDatedName(name, clock_.now());
        if (!reason.isEmpty()) {
            return reason;
        }
    }
    file_.setFileName(path);
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return errorText(file_);
    }
    pending_ = newest();
    Words reason = write();
    if (!reason.isEmpty()) {
        file_.close();
    }
    return reason;
}

void CaptureStore::end() {
    if (file_.isOpen()) {
        write();
        file_.close();
    }
    flushing_.reset();
}

/// Writes what is pending. Returns the empty text, or why it failed.
Words CaptureStore::write() {
    const QByteArray lines = std::exchange(pending_, QByteArray());
    if (file_.size() + lines.size() > limits_.fileBytes && file_.size() > header_.size()) {
        Words reason = beginNextPart();
        if (!reason.isEmpty()) {
            return reason;
        }
    }
    return appendWhole(file_, lines);
}

Words CaptureStore::beginNextPart() {
    const QString name = file_.fileName();
    const QString earlier = earlierName(name);
    file_.close();
    QFile::remove(earlier);
    if (!QFile::rename(name, earlier)) {
        return Words::tr("%1 cannot be renamed").arg(QFileInfo(name).fileName());
    }
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return errorText(file_);
    }
    return appendWhole(file_, header_ + captureLine(now(), CaptureKind::Dropped, QJsonValue(true)));
}

void CaptureStore::flush() {
    flushing_.reset();
    const Words reason = write();
    if (!reason.isEmpty()) {
        file_.close();
        // Not inside whatever has just happened on the line.
        flushing_ = clock_.callAfter(0, [this, reason] {
            flushing_.reset();
            failed.tell(reason);
        });
    }
}

} // namespace orv
