// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/numberbox.h"

#include "testing/windowrig.h"

#include <QAccessible>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QToolTip>

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

/// The ways in which text comes into a box in the place of what is selected.
const std::pair<const char*, void (*)(QLineEdit& box, const QString& text)> waysIn[] = {
    {"pasted",
     [](QLineEdit& box, const QString& text) {
         QGuiApplication::clipboard()->setText(text);
         press(box, Qt::Key_V, {}, Qt::ControlModifier);
     }},
    {"dropped",
     [](QLineEdit& box, const QString& text) {
         QMimeData data;
         data.setText(text);
         const QPoint middle = box.rect().center();
         QDragEnterEvent entering(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
         QDropEvent dropping(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
         box.del();
         QApplication::sendEvent(&box, &entering);
         QApplication::sendEvent(&box, &dropping);
     }},
    {"from an input method",
     [](QLineEdit& box, const QString& text) {
         QInputMethodEvent event;
         event.setCommitString(text);
         QApplication::sendEvent(&box, &event);
     }},
    {"from an assistive program",
     [](QLineEdit& box, const QString& text) {
         QAccessible::queryAccessibleInterface(&box)->editableTextInterface()->replaceText(
             0, static_cast<int>(box.text().size()), text);
     }},
};

TEST(NumberBox, HoldsNumbersAloneWhateverWayTextComesIn) {
    struct Case {
        bool decimals;
        const char* text;
        const char* expected; ///< Empty: refused.
    };
    const Case cases[] = {
        {false, "12", "12"},   {false, "12 ", "12"},  {false, " 6 ", "6"},    {false, "12\r\n", "12"},
        {false, "1a", ""},     {false, "x", ""},      {false, "1 2", ""},     {false, "-1", ""},
        {false, "123456", ""}, {false, "\uff11", ""}, {true, "-1.5", "-1.5"}, {true, "\t0,25 ", "0,25"},
        {true, "1.5e-3", ""},  {true, "1.2.3", ""},   {true, "1-2", ""},      {true, "++1", ""}};
    for (const auto& [way, put] : waysIn) {
        for (const auto& [decimals, text, expected] : cases) {
            QProperty<QString> value{QStringLiteral("60000")};
            const std::unique_ptr<NumberBox> box(decimals ? NumberBox::forDecimals() : NumberBox::forDigits(5));
            box->follow(value);
            box->selectAll();
            put(*box, QString::fromUtf8(text));
            const bool dropped = *expected == 0 && std::string(way) == "dropped"; // the test has emptied the box first
            const std::string kept = *expected == 0 ? (dropped ? "" : "60000") : expected;
            EXPECT_EQ(box->text().toStdString(), kept) << '"' << text << "\" " << way;
            EXPECT_EQ(value.value().toStdString(), kept) << '"' << text << "\" " << way;
        }
    }
}

TEST(NumberBox, RefusesAKeyOverASelection) {
    for (const char* key : {"x", " ", "-", "."}) {
        QProperty<QString> text{QStringLiteral("60000")};
        const std::unique_ptr<NumberBox> box(NumberBox::forDigits(5));
        box->follow(text);
        retype(*box, key);
        EXPECT_EQ(box->text().toStdString(), "60000") << key;
        EXPECT_EQ(text.value().toStdString(), "60000") << key;
    }
    EXPECT_EQ(typedInto(NumberBox::forDecimals(), "1.2.3,4-5"), "1.2345");
}

TEST(NumberBox, BlanksAreLeftOutWhereverTheTextGoesIn) {
    struct Case {
        const char* before;
        int start;
        int length;
        const char* pasted;
        const char* after;
    };
    const Case cases[] = {{"12", 0, 0, "3 ", "312"}, {"12", 1, 0, " 3 ", "132"}, {"12", 2, 0, " 12", "1212"},
                          {"12", 0, 2, "1 ", "1"},   {"12", 0, 1, "4 ", "42"},   {"12", 2, 0, "x ", "12"}};
    for (const auto& [before, start, length, pasted, after] : cases) {
        const std::unique_ptr<NumberBox> box(NumberBox::forDigits(5));
        box->setText(QString::fromLatin1(before));
        box->setSelection(start, length);
        if (length == 0) {
            box->setCursorPosition(start);
        }
        QGuiApplication::clipboard()->setText(QString::fromLatin1(pasted));
        box->paste();
        EXPECT_EQ(box->text().toStdString(), after) << '"' << pasted << '"';
    }
}

TEST(NumberBox, ACommaIsMarkedAtOnceWhateverWayItComesIn) {
    const std::unique_ptr<NumberBox> typed(NumberBox::forDecimals());
    typed->show();
    typed->setFocus();
    type(*typed, "1");
    EXPECT_FALSE(typed->isMarked());
    type(*typed, ",5");
    EXPECT_TRUE(typed->isMarked());
    EXPECT_EQ(QToolTip::text().toStdString(), "Only a number such as -0.5, with a point and no comma.");
    for (const auto& [way, put] : waysIn) {
        const std::unique_ptr<NumberBox> box(NumberBox::forDecimals());
        put(*box, QStringLiteral("1,5"));
        EXPECT_TRUE(box->isMarked()) << way;
        EXPECT_EQ(box->accessibleDescription().toStdString(), "Only a number such as -0.5, with a point and no comma.")
            << way;
        box->selectAll();
        put(*box, QStringLiteral("1.5"));
        EXPECT_FALSE(box->isMarked()) << way;
        EXPECT_EQ(box->accessibleDescription(), QString()) << way;
    }
}

TEST(NumberBox, WhatIsNoNumberIsMarkedWhenTheBoxIsLeftOrTheProgramSetsIt) {
    const std::unique_ptr<NumberBox> box(NumberBox::forDecimals());
    box->show();
    box->activateWindow();
    QApplication::processEvents();
    box->setFocus();
    ASSERT_TRUE(box->hasFocus());
    type(*box, "-");
    EXPECT_FALSE(box->isMarked());
    tellFocus(*box, QEvent::FocusOut);
    EXPECT_TRUE(box->isMarked());

    QProperty<QString> value;
    const std::unique_ptr<NumberBox> shown(NumberBox::forDecimals());
    shown->follow(value);
    for (const auto& [text, marked] : {std::pair("0.001x", true), {"-.5", false}, {"offset", true}, {"", false}}) {
        value = QString::fromLatin1(text);
        EXPECT_EQ(shown->isMarked(), marked) << text;
    }
}

TEST(NumberBox, UndoBringsNoOtherTextBackAndOpensTheBoxToNone) {
    QProperty<QString> text{QStringLiteral("1e+05")};
    const std::unique_ptr<NumberBox> box(NumberBox::forDigits(5));
    box->follow(text);
    retype(*box, "5");
    box->undo();
    EXPECT_EQ(text.value().toStdString(), "5");
    retype(*box, "x");
    EXPECT_EQ(box->text().toStdString(), "5");
    retype(*box, "77");
    box->undo();
    EXPECT_EQ(box->text().toStdString(), text.value().toStdString());
    EXPECT_EQ(box->text().toStdString(), "5");
}

TEST(NumberBox, WhatTheProgramShowsIsNotWrittenBack) {
    QProperty<QString> text;
    const std::unique_ptr<NumberBox> box(NumberBox::forDigits(5));
    box->follow(text);
    const QString longest(40'000, u'9'); // a box cuts it
    text = longest;
    EXPECT_EQ(text.value().size(), longest.size());
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
        box->markOutside(0, 65535, &remark);
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
