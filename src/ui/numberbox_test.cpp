// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/numberbox.h"

#include "testing/windowrig.h"

#include <memory>

#include <gtest/gtest.h>

namespace orv {
namespace {

std::string typedInto(NumberBox* made, const char* characters) {
    const std::unique_ptr<NumberBox> box(made);
    type(*box, characters);
    return box->text().toStdString();
}

TEST(NumberBox, RefusesWhatIsNoDigitAndWhatIsTooLong) {
    EXPECT_EQ(typedInto(NumberBox::forDigits(3), "1a2-.3"), "123");
    EXPECT_EQ(typedInto(NumberBox::forDigits(3), "12345"), "123");
    EXPECT_EQ(typedInto(NumberBox::forDigits(5), "99999"), "99999");
    EXPECT_EQ(typedInto(NumberBox::forDigits(5), "abc"), "");
}

TEST(NumberBox, DecimalsMayHaveSignPointAndComma) {
    EXPECT_EQ(typedInto(NumberBox::forDecimals(), "x-1.5e"), "-1.5");
    EXPECT_EQ(typedInto(NumberBox::forDecimals(), "1,5"), "1,5");
    EXPECT_EQ(typedInto(NumberBox::forDecimals(), "0.000012345678"), "0.000012345678");
}

TEST(NumberBox, CanBeEmptied) {
    QProperty<QString> text{QStringLiteral("7")};
    const std::unique_ptr<NumberBox> box(NumberBox::forDigits(3));
    box->follow(text);
    press(*box, Qt::Key_Backspace);
    EXPECT_EQ(text.value(), QString());
    type(*box, "8");
    EXPECT_EQ(text.value(), QStringLiteral("8"));
}

TEST(NumberBox, ShowsAReportedTextWholeAndLetsItBeShortened) {
    QProperty<QString> text{QStringLiteral("1e+05")};
    const std::unique_ptr<NumberBox> box(NumberBox::forDigits(3));
    box->follow(text);
    EXPECT_EQ(box->text(), QStringLiteral("1e+05"));
    type(*box, "1");
    EXPECT_EQ(text.value(), QStringLiteral("1e+05"));
    press(*box, Qt::Key_Backspace);
    EXPECT_EQ(text.value(), QStringLiteral("1e+0"));
}

class MarkedBoxTest : public testing::Test {
protected:
    MarkedBoxTest() {
        box->follow(text);
        box->setAccessibleName(QStringLiteral("Points"));
        box->markOver(65535, &remark);
    }

    QProperty<QString> text;
    QLabel remark;
    std::unique_ptr<NumberBox> box{NumberBox::forDigits(5)};
};

TEST_F(MarkedBoxTest, MarksWhatIsOverTheMaximum) {
    for (const char* fine : {"", "0", "65535", "00001"}) {
        text = QString::fromLatin1(fine);
        EXPECT_FALSE(box->isMarked()) << fine;
    }
    EXPECT_FALSE(remark.isVisible());
    text = QStringLiteral("65536");
    EXPECT_TRUE(box->isMarked());
    EXPECT_EQ(remark.text().toStdString(), "Points: 65536 is more than the maximum of 65535.");
    EXPECT_EQ(box->accessibleDescription().toStdString(), "65536 is more than the maximum of 65535.");
    EXPECT_TRUE(remark.isVisible());
    EXPECT_EQ(text.value(), QStringLiteral("65536"));
    text = QStringLiteral("65535");
    EXPECT_FALSE(box->isMarked());
    EXPECT_EQ(remark.text(), QString());
    EXPECT_EQ(box->accessibleDescription(), QString());
    EXPECT_FALSE(remark.isVisible());
}

TEST_F(MarkedBoxTest, WaitsUntilTheBoxIsLeft) {
    box->show();
    box->activateWindow();
    QApplication::processEvents();
    box->setFocus();
    ASSERT_TRUE(box->hasFocus());
    type(*box, "70000");
    EXPECT_FALSE(box->isMarked());
    tellFocus(*box, QEvent::FocusOut);
    EXPECT_TRUE(box->isMarked());
    press(*box, Qt::Key_Backspace);
    EXPECT_FALSE(box->isMarked());
}

} // namespace
} // namespace orv
