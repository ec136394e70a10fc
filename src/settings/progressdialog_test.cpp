// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/progressdialog.h"

#include "settings/screentest.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <gtest/gtest.h>

namespace orv {

namespace {

class ProgressDialogTest : public testing::Test {
protected:
    QProgressBar& bar() const { return control<QProgressBar>(dialog, "ProgressBar"); }
    QString text(const char* name) const { return control<QLabel>(dialog, name).text(); }

    ProgressPanel panel;
    ProgressDialog dialog{panel};
};

TEST_F(ProgressDialogTest, FollowsThePanel) {
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Processing"));
    panel.show();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(text("ProgressLabel"), QStringLiteral("%"));
    panel.value = 40;
    panel.valueLabel = QStringLiteral("40");
    EXPECT_EQ(bar().value(), 40);
    EXPECT_EQ(text("ProgressValue"), QStringLiteral("40"));
    panel.label = QStringLiteral("Bytes Downloaded");
    panel.percentage = QStringLiteral("45");
    EXPECT_EQ(text("ProgressLabel"), QStringLiteral("Bytes Downloaded"));
    EXPECT_EQ(text("ProgressPercentage"), QStringLiteral("45"));
    panel.visible = false;
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ProgressDialogTest, TheBarStaysWithinItsMaximum) {
    panel.maximum = 50;
    panel.value = 200;
    EXPECT_EQ(bar().value(), 50);
    EXPECT_EQ(bar().maximum(), 50);
    panel.maximum = 0;
    panel.value = -3;
    EXPECT_EQ(bar().value(), 0);
    EXPECT_EQ(bar().maximum(), 1) << "a maximum of 0 would be a busy bar";
}

TEST_F(ProgressDialogTest, ClosingItOnlyHidesIt) {
    panel.show();
    dialog.close();
    EXPECT_FALSE(panel.visible.value());
    panel.show();
    press(dialog, Qt::Key_Escape);
    EXPECT_FALSE(panel.visible.value());
}

TEST_F(ProgressDialogTest, AbortDoesWhatItIsGivenOrNothing) {
    panel.show();
    auto& button = control<QPushButton>(dialog, "Abort");
    EXPECT_EQ(button.text().remove(QLatin1Char('&')), QStringLiteral("Abort"));
    EXPECT_TRUE(button.toolTip().contains(QStringLiteral("\"Reset\"")));
    button.click();
    EXPECT_TRUE(panel.visible.value());
    int aborts = 0;
    dialog.abort = [&aborts] { ++aborts; };
    button.click();
    EXPECT_EQ(aborts, 1);
}

} // namespace

} // namespace orv
