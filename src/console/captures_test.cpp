// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/replay.h"
#include "testing/captures.h"
#include "testing/consolerig.h"

#include <QJsonArray>

namespace orv {
namespace {

/// The instrument's side of a capture for every line.
ProgramRig::LineMaker replaying(const CaptureContents& contents, ReplayPort*& made) {
    return [&contents, &made](const QString& /*device*/, TestClock& clock) {
        auto port = std::make_unique<ReplayPort>(contents, QStringLiteral("capture"), 1.0, clock);
        made = port.get();
        return port;
    };
}

/// A command of `orv` on the captured line. What the operator did was its options, and perhaps Ctrl+C.
class CapturedCommand : public testing::TestWithParam<std::string> {
protected:
    /// The captured command line on the captured device, without its capture.
    QString words() const {
        QStringList words;
        for (const QJsonValue& word : contents.header.value(QLatin1String("arguments")).toArray()) {
            words << word.toString();
        }
        const qsizetype capturing = words.indexOf(QStringLiteral("--capture"));
        if (capturing >= 0) {
            words.remove(capturing, 2);
        }
        for (QString& word : words) {
            // Its options would be taken for those of another instrument.
            word = word.startsWith(QLatin1String("sim:")) ? QString(device()) : word;
        }
        return words.join(u' ');
    }
    QString device() const {
        for (const CaptureEntry& entry : contents.entries) {
            if (entry.kind == CaptureKind::Opened) {
                return entry.value.toString();
            }
        }
        return QStringLiteral("ttyA");
    }

    const CaptureContents contents = capture(GetParam());
    ReplayPort* replay = nullptr;
    ConsoleRig rig{replaying(contents, replay)};
};

TEST_P(CapturedCommand, GoesTheSameWayAgain) {
    rig.clock.set(contents.began);
    rig.begin(words());
    for (const CaptureEntry& entry : contents.entries) {
        const QJsonObject deed = entry.value.toObject();
        if (entry.kind == CaptureKind::Did && deed.value(QLatin1String("caption")) == QLatin1String("signal")) {
            rig.live(static_cast<double>(entry.milliseconds - rig.clock.monotonicMilliseconds()) / 1000.0);
            rig.visit->interrupt(deed.value(QLatin1String("value")).toString().toInt());
        }
    }
    constexpr int patience = 120;
    for (int second = 0; second < patience && rig.answered.status < 0; ++second) {
        rig.live(1.0);
    }
    EXPECT_GE(rig.answered.status, 0);
    ASSERT_NE(replay, nullptr);
    for (const ReplayDifference& difference : replay->differences()) {
        ADD_FAILURE() << qPrintable(difference.text());
    }
    const CaptureContents again = readCapture(rig.program.capture.supportFile());
    EXPECT_EQ(outcomeOf(again).join(u'\n').toStdString(), outcomeOf(contents).join(u'\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(All, CapturedCommand, testing::ValuesIn(capturesOf("orv")), testName);

} // namespace
} // namespace orv
