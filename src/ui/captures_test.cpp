// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/replay.h"
#include "testing/captures.h"
#include "testing/windowrig.h"
#include "ui/tabstrip.h"

#include <QApplication>

namespace orv {
namespace {

/// The window on a captured line, and an operator who does again what he did.
class CapturedWindow : public testing::TestWithParam<std::string>, public ProgramRig {
protected:
    CapturedWindow()
        : ProgramRig([this](const QString& /*device*/, TestClock& testClock) {
            auto port = std::make_unique<ReplayPort>(contents, QStringLiteral("capture"), 1.0, testClock);
            replays.push_back(port.get());
            return port;
        }) {
        clock.set(contents.began);
        answers.late = true;
        eachMillisecond = [] { QCoreApplication::processEvents(); };
        for (const CaptureEntry& entry : contents.entries) {
            if (entry.kind == CaptureKind::Opened) {
                // Its name stands in messages.
                ports.setDevice(1, entry.value.toString());
                ports.setDevice(2, entry.value.toString() + u'2');
                break;
            }
        }
        window.emplace(program);
        window->show();
        program.load();
    }

    /// A control of that object name, and of that caption if others have the name too.
    template <typename Control, typename Caption>
    static Control* shown(const QString& name, const QString& caption, Caption captionOf) {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            for (auto* found : top->findChildren<Control*>(name)) {
                if (captionOf(*found).remove(u'&') == caption) {
                    return found;
                }
            }
        }
        return nullptr;
    }

    void doAgain(const QString& name, const QString& caption, const QString& value) {
        if (name.startsWith(QLatin1String("PortChooser")) || name.isEmpty()) {
            return; // the line is the captured one; a message has no name
        }
        if (auto* action = window->findChild<QAction*>(name)) {
            action->trigger();
        } else if (auto* button = shown<QAbstractButton>(name, caption, [](auto& of) { return of.text(); })) {
            if (value.isEmpty() || button->isChecked() != (value == QLatin1String("on"))) {
                button->click();
            }
        } else if (auto* box = shown<QLineEdit>(name, caption, [](auto& of) { return of.accessibleName(); })) {
            box->setText(value);
        } else if (auto* tabs = shown<ChoiceTabBar>(name, caption, [](auto& of) { return of.accessibleName(); })) {
            for (int index = 0; index < tabs->count(); ++index) {
                if (tabs->tabText(index).remove(u'&') == value) {
                    tabs->choose(index);
                }
            }
        } else if (name != QLatin1String("MainWindow")) {
            ADD_FAILURE() << "there is no control " << qPrintable(name) << ", " << qPrintable(caption);
        }
    }

    const CaptureContents contents = capture(GetParam());
    std::vector<ReplayPort*> replays;
    std::optional<MainWindow> window;
};

TEST_P(CapturedWindow, GoesTheSameWayAgain) {
    for (const CaptureEntry& entry : contents.entries) {
        if (entry.kind != CaptureKind::Did && entry.kind != CaptureKind::Answered) {
            continue;
        }
        live(static_cast<double>(entry.milliseconds - clock.monotonicMilliseconds()) / 1000.0);
        if (entry.kind == CaptureKind::Did) {
            const QJsonObject deed = entry.value.toObject();
            doAgain(deed.value(QLatin1String("control")).toString(), deed.value(QLatin1String("caption")).toString(),
                    deed.value(QLatin1String("value")).toString());
        } else if (answers.stands()) {
            const QString answer = entry.value.toString();
            const bool isFile = !answer.isEmpty() && answer != Question::yes() && answer != Question::no();
            answers.answer(isFile ? folder.path() + u'/' + answer : answer);
        }
    }
    live(static_cast<double>(contents.entries.back().milliseconds - clock.monotonicMilliseconds()) / 1000.0 + 1.0);
    for (const ReplayPort* replay : replays) {
        for (const ReplayDifference& difference : replay->differences()) {
            ADD_FAILURE() << qPrintable(difference.text());
        }
    }
    const CaptureContents again = readCapture(program.capture.supportFile());
    EXPECT_EQ(outcomeOf(again).join(u'\n').toStdString(), outcomeOf(contents).join(u'\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(All, CapturedWindow, testing::ValuesIn(capturesOf("orvhost")), testName);

} // namespace
} // namespace orv
