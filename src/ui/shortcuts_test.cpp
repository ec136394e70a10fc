// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QRegularExpression>
#include <QThread>
#include <QWindow>
#include <QtTest/QTest>

namespace orv {
namespace {

class ShortcutsTest : public WindowTest {
protected:
    ShortcutsTest() { comeForward(); }

    void comeForward() {
        QCoreApplication::processEvents(); // a window that has just been shown takes the focus
        QApplication::setActiveWindow(window.get());
        window->setFocus();
        QCoreApplication::processEvents();
    }

    void connectAndComeForward() {
        connectAndRead();
        comeForward();
        ASSERT_TRUE(window->isActiveWindow());
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(window->windowHandle(), key, modifiers);
        QCoreApplication::processEvents();
    }

    std::string saidAfter(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        said();
        press(key, modifiers);
        return said();
    }

    /// What a key leads to, on each page in turn.
    void expectOnEveryPage(Qt::Key key, Qt::KeyboardModifiers modifiers, const std::string& announcement) {
        onEachPage([&](const std::string& caption) {
            EXPECT_EQ(saidAfter(key, modifiers), announcement) << "on the page " << caption;
        });
    }
};

TEST_F(ShortcutsTest, OpenWorksOnEveryPage) {
    program.toggleServiceMode();
    expectOnEveryPage(Qt::Key_O, Qt::ControlModifier, "Loading Spread Sheet\r");
}

TEST_F(ShortcutsTest, SaveAsWorksOnEveryPageOnceItsButtonDoes) {
    program.toggleServiceMode();
    program.link.connection.fixit();
    expectOnEveryPage(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, "");
    connectAndComeForward();
    expectOnEveryPage(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, "Save Spread Sheet\r");
}

TEST_F(ShortcutsTest, RunStartsARunFromAnyPage) {
    program.link.connection.fixit();
    EXPECT_EQ(saidAfter(Qt::Key_F5), "") << "nothing is connected";
    connectAndComeForward();
    program.selectUpperTab(QStringLiteral("Output: Graphical"));
    EXPECT_EQ(saidAfter(Qt::Key_F5), "Run 1\rStart Running Profile\r");
    EXPECT_EQ(saidAfter(Qt::Key_F5), "") << "a run is under way";
}

TEST_F(ShortcutsTest, NothingIsOpenedOverARun) {
    connectAndComeForward();
    program.run();
    EXPECT_EQ(saidAfter(Qt::Key_O, Qt::ControlModifier), "");
}

TEST_F(ShortcutsTest, AHiddenRunButtonIsNotPressedByItsKey) {
    connectAndComeForward();
    commands.runVisible = false;
    EXPECT_EQ(saidAfter(Qt::Key_F5), "");
}

TEST_F(ShortcutsTest, PagesAreChosenByTheirNumber) {
    const auto pageAfter = [this](Qt::Key key) {
        press(key, Qt::ControlModifier);
        return program.pages.shown.value();
    };
    EXPECT_EQ(pageAfter(Qt::Key_2), Page::Sheet);
    EXPECT_EQ(pageAfter(Qt::Key_3), Page::Graphical);
    EXPECT_EQ(pageAfter(Qt::Key_5), Page::Graphical) << "service pages only in service mode";
    program.toggleServiceMode();
    EXPECT_EQ(pageAfter(Qt::Key_5), Page::Testing);
    EXPECT_EQ(pageAfter(Qt::Key_3), Page::Graphical) << "the strip's own tab comes back";
}

TEST_F(ShortcutsTest, ToolTipsHoldNoKeys) {
    connectAndComeForward();
    program.toggleServiceMode();
    program.run();
    receive("R\r\n");
    receiveRow();
    window->refreshNow();
    const QRegularExpression key(QStringLiteral("(Ctrl|Alt|Shift)\\+|\\bF[0-9]+\\b"));
    int toolTips = 0;
    for (const QWidget* widget : QApplication::allWidgets()) {
        QStringList texts{widget->toolTip()};
        if (const auto* strip = qobject_cast<const QTabBar*>(widget)) {
            for (int index = 0; index < strip->count(); ++index) {
                texts << strip->tabToolTip(index);
            }
        }
        for (const QString& text : texts) {
            toolTips += text.isEmpty() ? 0 : 1;
            EXPECT_FALSE(text.contains(key)) << text.toStdString();
        }
    }
    EXPECT_GT(toolTips, 100);
    EXPECT_EQ(button("Command11").toolTip().toStdString(),
              "Save all Data on the Spread Sheet to a Tab Delimited Text File.");
    EXPECT_EQ(item("Quit").shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
}

TEST_F(ShortcutsTest, ServiceModeIsToggledOnceAPressWithAnyFocus) {
    connectAndComeForward();
    program.calibration.shown.colour = LightColour::Red;
    program.calibration.addInstrument();
    QWindow* handle = window->windowHandle();
    const auto key = [handle](bool down, bool repeated) {
        QTest::simulateEvent(handle, down, Qt::Key_H, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("\b"),
                             repeated);
    };
    for (const QString& caption : upperCaptions() + lowerCaptions()) {
        if (state.trouble == 0) {
            program.toggleServiceMode();
        }
        showPage(caption);
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            const bool taken = (widget->focusPolicy() & Qt::StrongFocus) != 0 && widget->isVisible() &&
                               widget->window() == window.get();
            if (!taken) {
                continue;
            }
            if (state.trouble == 0) {
                program.toggleServiceMode();
                showPage(caption);
            }
            widget->setFocus();
            if (!widget->hasFocus()) {
                continue;
            }
            const auto* box = qobject_cast<const QLineEdit*>(widget);
            const QString text = box != nullptr ? box->text() : QString();
            key(true, false);
            for (int repeat = 0; repeat < 3; ++repeat) {
                key(true, true);
            }
            key(false, false);
            QThread::msleep(2); // nobody presses it again in the same millisecond
            EXPECT_EQ(state.trouble, 0) << widget->metaObject()->className() << ' '
                                        << widget->objectName().toStdString() << " on " << caption.toStdString();
            EXPECT_EQ(box != nullptr ? box->text() : QString(), text);
        }
    }
}

TEST_F(ShortcutsTest, ServiceModeIsToggledWithAnOpenList) {
    showPage(QStringLiteral("Output: Graphical"));
    auto& axis = find<QComboBox>("PlotAxis");
    axis.showPopup();
    QTest::keyClick(axis.view()->window()->windowHandle(), Qt::Key_H, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(state.trouble, 1);
    axis.hidePopup();
}

TEST_F(ShortcutsTest, AKeyHeldDownIsKnownByItsTimesToo) {
    connectAndComeForward();
    static constexpr Qt::KeyboardModifiers modifiers = Qt::ControlModifier | Qt::AltModifier;
    const auto press = [this](unsigned long time) {
        qt_sendShortcutOverrideEvent(window.get(), time, Qt::Key_H, modifiers, {}, false, 1);
    };
    const auto release = [this](quint64 time, Qt::Key key) {
        QKeyEvent event(QEvent::KeyRelease, key, modifiers);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(window.get(), &event);
    };
    press(1000);
    EXPECT_EQ(state.trouble, 1);
    for (const unsigned long time : {1660UL, 1700UL, 1740UL}) {
        release(time, Qt::Key_H);
        press(time);
        EXPECT_EQ(state.trouble, 1) << time;
    }
    release(1745, Qt::Key_H);
    press(1746);
    EXPECT_EQ(state.trouble, 0) << "pressed once more";
    release(1800, Qt::Key_X);
    press(1800);
    EXPECT_EQ(state.trouble, 1) << "another key was let go";
}

TEST_F(ShortcutsTest, EscClosesTheDialogs) {
    item("About").trigger();
    auto& about = find<QDialog>("AboutDialog");
    QTest::keyClick(&about, Qt::Key_Escape);
    EXPECT_FALSE(about.isVisible());

    item("ManualConnect1").trigger();
    auto& manual = find<QDialog>("ManualConnection");
    ASSERT_TRUE(manual.isVisible());
    QTest::keyClick(&manual, Qt::Key_Escape);
    EXPECT_FALSE(manual.isVisible());
}

TEST_F(ShortcutsTest, EscHidesTheProcessingDialogAndTheDownloadGoesOn) {
    connectAndRead();
    item("DownloadView").trigger();
    auto& dialog = find<QDialog>("Processing");
    ASSERT_TRUE(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(state.Ctrlscrn, Operation::Importing);
    EXPECT_EQ(commands.activity.value(), Activity::Downloading);
}

TEST_F(ShortcutsTest, EscLeavesTheSettingsOpen) {
    SettingsWindow& settings = openSettings();
    QTest::keyClick(&settings, Qt::Key_Escape);
    EXPECT_TRUE(settings.isVisible()) << "it is a window of its own, which \"Close\" closes";
}

} // namespace
} // namespace orv
