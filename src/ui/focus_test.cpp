// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/focus.h"

#include "testing/windowrig.h"

#include <QApplication>
#include <QVBoxLayout>
#include <QtTest/QTest>

namespace orv {
namespace {

/// Three buttons below each other that count what presses them.
class FocusTest : public testing::Test {
protected:
    class Window final : public QWidget {
    public:
        FocusKeeper focus{*this};

    protected:
        bool focusNextPrevChild(bool next) override { return focus.move(next) || QWidget::focusNextPrevChild(next); }
    };

    FocusTest() {
        auto* layout = new QVBoxLayout(&window);
        for (QPushButton*& button : buttons) {
            button = new QPushButton;
            layout->addWidget(button);
            QObject::connect(button, &QPushButton::clicked, button, [this] { ++presses; });
        }
        window.show();
        QApplication::setActiveWindow(&window);
        QCoreApplication::processEvents();
        buttons[0]->setFocus();
    }

    void key(Qt::Key which) {
        QTest::keyClick(window.windowHandle(), which);
        QCoreApplication::processEvents();
    }

    Window window;
    std::array<QPushButton*, 3> buttons{};
    int presses = 0;
};

TEST_F(FocusTest, ADisabledControlHandsItToNobodyAndGetsItBack) {
    ASSERT_TRUE(buttons[0]->hasFocus());
    buttons[0]->setEnabled(false);
    EXPECT_EQ(window.focusWidget(), nullptr);
    key(Qt::Key_Space);
    EXPECT_EQ(presses, 0);
    buttons[0]->setEnabled(true);
    EXPECT_TRUE(buttons[0]->hasFocus());
    key(Qt::Key_Space);
    EXPECT_EQ(presses, 1);
}

TEST_F(FocusTest, AHiddenControlToo) {
    buttons[0]->hide();
    EXPECT_EQ(window.focusWidget(), nullptr);
    buttons[0]->show();
    EXPECT_TRUE(buttons[0]->hasFocus());
}

TEST_F(FocusTest, TheTabKeyGoesOnFromThere) {
    buttons[1]->setFocus();
    buttons[1]->setEnabled(false);
    key(Qt::Key_Tab);
    EXPECT_TRUE(buttons[2]->hasFocus());
    buttons[1]->setEnabled(true);
    EXPECT_TRUE(buttons[2]->hasFocus()) << "another has got it meanwhile";
    buttons[1]->setFocus();
    buttons[1]->setEnabled(false);
    key(Qt::Key_Backtab);
    EXPECT_TRUE(buttons[0]->hasFocus());
}

TEST_F(FocusTest, WithoutAnythingElseToGoToItStaysNowhere) {
    buttons[1]->hide();
    buttons[2]->hide();
    buttons[0]->setEnabled(false);
    key(Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), nullptr);
}

TEST_F(FocusTest, AnEndingButtonTakesKeysOnlyAfterItWasChosen) {
    EndingButton ending;
    int ends = 0;
    QObject::connect(&ending, &QPushButton::clicked, &ending, [&ends] { ++ends; });
    window.layout()->addWidget(&ending);
    ending.show();
    ending.setFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_EQ(ends, 1);
    ending.disarm();
    key(Qt::Key_Space);
    EXPECT_EQ(ends, 1);
    buttons[0]->setFocus();
    ending.setFocus(Qt::ActiveWindowFocusReason);
    key(Qt::Key_Space);
    EXPECT_EQ(ends, 1) << "the window came to the front, nobody chose the button";
    clickAt(ending, ending.rect().center());
    EXPECT_EQ(ends, 2) << "the pointer always presses it";
    key(Qt::Key_Backtab);
    key(Qt::Key_Tab);
    ASSERT_TRUE(ending.hasFocus());
    key(Qt::Key_Space);
    EXPECT_EQ(ends, 3);
}

using SettingsFocusTest = SettingsWindowTest;

TEST_F(SettingsFocusTest, ItStaysOnApplySettingsWhileTheyAreSent) {
    auto& apply = find<QPushButton>("ApplySettings");
    apply.setFocus();
    apply.click();
    EXPECT_FALSE(apply.isEnabled());
    EXPECT_EQ(screen.focusWidget(), nullptr) << "not on its neighbour";
    finish();
    receive(settingsReport("60000"));
    ticks(12);
    ASSERT_TRUE(apply.isEnabled());
    EXPECT_EQ(screen.focusWidget(), &apply);
}

} // namespace
} // namespace orv
