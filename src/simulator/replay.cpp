// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/replay.h"

#include "base/text.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orv {

namespace {

constexpr int mostNamed = 5; ///< Differences of each kind that are told one by one.

} // namespace

QString ReplayDifference::text() const {
    const auto quoted = [](const QByteArray& bytes) {
        constexpr qsizetype longest = 60;
        return bytes.isEmpty() ? QStringLiteral("nothing")
                               : QStringLiteral("\"%1\"%2")
                                     .arg(inVisibleCharacters(bytes.left(longest)),
                                          bytes.size() > longest ? QStringLiteral("...") : QString());
    };
    return QStringLiteral("byte %1: %2 was sent, now %3").arg(QString::number(offset), quoted(expected), quoted(got));
}

ReplayPort::ReplayPort(const CaptureContents& capture, QString name, double speed, Clock& clock, Told told)
    : clock_(clock)
    , name_(std::move(name))
    , speed_(speed)
    , told_(std::move(told)) {
    for (const CaptureEntry& entry : capture.entries) {
        if (entry.kind <= CaptureKind::Failed) {
            steps_.push_back({.kind = entry.kind,
                              .milliseconds = entry.milliseconds,
                              .bytes = entry.bytes,
                              .text = entry.value.toString(),
                              .on = entry.value.toBool()});
        }
    }
}

Words ReplayPort::open() {
    if (open_) {
        return {};
    }
    while (!isOver() && steps_[next_].kind != CaptureKind::Opened && steps_[next_].kind != CaptureKind::NotOpened) {
        ++next_; // a capture that begins or breaks off in the middle
    }
    if (isOver()) {
        return Words::tr("The capture %1 has no further connection. Choose another port and then this one again "
                         "to play it from its beginning.")
            .arg(name_);
    }
    failure_.clear();
    const Step& step = steps_[next_];
    ++next_;
    if (step.kind == CaptureKind::NotOpened) {
        return step.text.isEmpty() ? Words::tr("It could not be opened.") : Words(step.text);
    }
    open_ = true;
    act(step);
    goOn();
    return {};
}

void ReplayPort::close() {
    if (!open_) {
        return;
    }
    open_ = false;
    alarm_.reset();
    coming_.clear();
    arrived_.clear();
    droppings_.clear();
    skipOpening();
    tellResult();
}

void ReplayPort::setDataTerminalReady(bool on) {
    if (!open_ || isOver()) {
        return;
    }
    if (steps_[next_].kind == CaptureKind::Dtr && steps_[next_].on == on) {
        act(steps_[next_]);
        ++next_;
        goOn();
    } else {
        noteDtr(QStringLiteral("DTR is %1 here, as it was not there"), on);
    }
}

QByteArray ReplayPort::readAll() {
    QByteArray block;
    for (const std::size_t step : std::exchange(arrived_, {})) {
        block += steps_[step].bytes;
    }
    return block;
}

qsizetype ReplayPort::inputCount() {
    qsizetype count = 0;
    for (const std::size_t step : arrived_) {
        count += steps_[step].bytes.size();
    }
    return count;
}

void ReplayPort::write(const QByteArray& bytes) {
    if (!open_ || !failure_.isEmpty()) {
        return;
    }
    for (QByteArray rest = bytes; !rest.isEmpty();) {
        while (!isOver() && steps_[next_].kind == CaptureKind::Dtr) {
            noteDtr(QStringLiteral("DTR was %1, now not"), steps_[next_].on);
            ++next_;
            goOn();
        }
        if (isOver()) {
            beyond_ += rest.size();
            return; // the capture ended with the line open: nothing is known of what followed
        }
        const Step& step = steps_[next_];
        if (step.kind != CaptureKind::Sent) {
            noteDifference({}, rest);
            return;
        }
        const QByteArray expected = step.bytes.sliced(matched_);
        if (expected.size() > rest.size() && expected.startsWith(rest)) {
            matched_ += rest.size();
            passed_ += rest.size();
            return;
        }
        if (rest.startsWith(expected)) {
            rest = rest.sliced(expected.size());
        } else {
            noteDifference(expected, std::exchange(rest, {}));
        }
        passed_ += expected.size();
        matched_ = 0;
        act(step);
        ++next_;
        goOn();
    }
}

QByteArray ReplayPort::discardInput() {
    if (!open_ || droppings_.empty()) {
        return readAll();
    }
    const std::size_t dropping = droppings_.front();
    droppings_.pop_front();
    // What came later than the captured dropping stays, however late the program is.
    QByteArray dropped;
    while (!arrived_.empty() && arrived_.front() <= dropping) {
        dropped += steps_[arrived_.front()].bytes;
        arrived_.pop_front();
    }
    while (!coming_.empty() && coming_.front().step <= dropping) {
        dropped += steps_[coming_.front().step].bytes;
        coming_.pop_front();
    }
    act(steps_[dropping]);
    for (Coming& coming : coming_) {
        coming.due = dueOf(steps_[coming.step]);
    }
    watch();
    return dropped;
}

/// The program has done what it did there.
void ReplayPort::act(const Step& step) {
    actedAt_ = clock_.monotonicMilliseconds();
    actedAtThere_ = step.milliseconds;
    if (step.kind != CaptureKind::Discarded) {
        droppings_.clear();
    }
}

qint64 ReplayPort::dueOf(const Step& step) const {
    const auto delay = static_cast<double>(step.milliseconds - actedAtThere_);
    return speed_ == 0.0 ? actedAt_ : actedAt_ + std::llround(delay / speed_);
}

/// Lets come what came before the program's next act.
void ReplayPort::goOn() {
    for (; !isOver(); ++next_) {
        const Step& step = steps_[next_];
        if (step.kind == CaptureKind::Discarded) {
            droppings_.push_back(next_);
        } else if (step.kind != CaptureKind::Received && step.kind != CaptureKind::Failed) {
            break;
        }
        const qint64 before = coming_.empty() ? 0 : coming_.back().due;
        coming_.push_back({.step = next_, .due = std::max(dueOf(step), before)});
    }
    watch();
}

void ReplayPort::watch() {
    alarm_.reset();
    if (!coming_.empty()) {
        const qint64 left = coming_.front().due - clock_.monotonicMilliseconds();
        alarm_ = clock_.callAfter(std::max<qint64>(left, 0), [this] { arrive(); });
    }
}

void ReplayPort::arrive() {
    const qint64 now = clock_.monotonicMilliseconds();
    while (!coming_.empty() && coming_.front().due <= now) {
        const std::size_t number = coming_.front().step;
        coming_.pop_front();
        if (steps_[number].kind == CaptureKind::Failed) {
            failure_ = steps_[number].text.isEmpty() ? Words::tr("The line failed.") : Words(steps_[number].text);
        } else {
            arrived_.push_back(number);
        }
    }
    watch();
    stirred.tell(); // at the end: whoever is told may do anything with the port
}

/// Passes the rest of the captured opening.
void ReplayPort::skipOpening() {
    QByteArray missing;
    for (; !isOver() && steps_[next_].kind != CaptureKind::Opened && steps_[next_].kind != CaptureKind::NotOpened;
         ++next_) {
        if (steps_[next_].kind == CaptureKind::Sent) {
            missing += steps_[next_].bytes.sliced(std::exchange(matched_, 0));
        }
    }
    if (!missing.isEmpty()) {
        noteDifference(missing, {});
        passed_ += missing.size();
    }
}

void ReplayPort::noteDifference(const QByteArray& expected, const QByteArray& got) {
    differences_.push_back({.offset = passed_, .expected = expected, .got = got});
}

void ReplayPort::noteDtr(const QString& text, bool on) {
    dtrDifferences_ << QStringLiteral("byte %1: %2")
                           .arg(QString::number(passed_),
                                text.arg(on ? QStringLiteral("raised") : QStringLiteral("dropped")));
}

void ReplayPort::tellResult() {
    const QStringList dtr = std::exchange(dtrDifferences_, {});
    if (!told_) {
        return;
    }
    const std::size_t first = std::exchange(differencesTold_, differences_.size());
    const QString beyond =
        beyond_ == 0 ? QString()
                     : QStringLiteral("%1 bytes were sent after the end of the capture and are compared with nothing.")
                           .arg(std::exchange(beyond_, 0));
    if (first == differences_.size()) {
        const QString same = QStringLiteral("Replay of %1: the program has sent what was captured, %2 bytes so far.")
                                 .arg(name_, QString::number(passed_));
        told_((QStringList{same} + dtr.mid(0, mostNamed) + QStringList{beyond}).join(u'\n').trimmed());
        return;
    }
    QStringList lines{
        QStringLiteral("Replay of %1: the program has sent something else than was captured.").arg(name_)};
    for (std::size_t number = first; number < std::min(first + mostNamed, differences_.size()); ++number) {
        lines << differences_[number].text();
    }
    if (differences_.size() - first > mostNamed) {
        lines << QStringLiteral("and %1 more").arg(differences_.size() - first - mostNamed);
    }
    told_((lines + dtr.mid(0, mostNamed) + QStringList{beyond}).join(u'\n').trimmed());
}

bool namesReplay(const QString& device) {
    return device.startsWith(QLatin1String("sim:replay"));
}

ReplayOptions parseReplayOptions(const QString& device) {
    const QString start = QStringLiteral("sim:replay?");
    const auto failed = [&device](const Words& reason) {
        ReplayOptions options;
        options.error = Words::tr("\"%1\" names no replay. %2").arg(device, reason);
        return options;
    };
    ReplayOptions options;
    for (const QString& option : device.startsWith(start) ? device.mid(start.size()).split(u'&') : QStringList()) {
        const QString name = option.section(u'=', 0, 0);
        const QString value = option.section(u'=', 1);
        constexpr double fastest = 1000.0;
        if (name == QLatin1String("file")) {
            options.file = value;
        } else if (name == QLatin1String("speed")) {
            const std::optional<double> speed = numberText(value);
            if (!speed || !(*speed >= 0.0) || *speed > fastest) {
                return failed(Words::tr("The option %1 must be %2, not \"%3\".")
                                  .arg(name, Words::tr("a number from 0 (without any delay) to 1000"), value));
            }
            options.speed = *speed;
        } else {
            return failed(
                Words::tr("There is no option \"%1\". The options are %2.").arg(name, QStringLiteral("file, speed")));
        }
    }
    return options.file.isEmpty() ? failed(Words::tr("It must be %1.").arg(QStringLiteral("sim:replay?file=NAME")))
                                  : options;
}

} // namespace orv
