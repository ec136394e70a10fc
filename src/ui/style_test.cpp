// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/style.h"

#include <QImage>
#include <QPushButton>

#include <gtest/gtest.h>

namespace orv {

namespace {

int lightnessOfDisabledText(QPalette palette) {
    ProgramStyle style(QStringLiteral("Fusion"));
    style.polish(palette);
    return palette.color(QPalette::Disabled, QPalette::ButtonText).lightness();
}

QPalette paletteOf(const QColor& text, const QColor& ground, const QColor& disabled) {
    QPalette palette(text, ground, ground.lighter(), ground.darker(), ground.darker(), text, text, ground, ground);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    return palette;
}

TEST(ProgramStyleTest, FaintDisabledTextIsMadeReadable) {
    EXPECT_EQ(lightnessOfDisabledText(paletteOf(Qt::black, QColor(240, 240, 240), QColor(200, 200, 200))), 120);
    EXPECT_EQ(lightnessOfDisabledText(paletteOf(Qt::white, QColor(45, 45, 45), QColor(60, 60, 60))), 150);
}

TEST(ProgramStyleTest, ReadableDisabledTextStays) {
    EXPECT_EQ(lightnessOfDisabledText(paletteOf(Qt::black, QColor(240, 240, 240), QColor(100, 100, 100))), 100);
}

TEST(ProgramStyleTest, AButtonLeavesRoomAroundItsText) {
    ProgramStyle style(QStringLiteral("Fusion"));
    QPushButton button(QStringLiteral("Retrieve Settings"));
    button.setStyle(&style);
    EXPECT_GE(button.sizeHint().width(), button.fontMetrics().horizontalAdvance(button.text()) + 16);
}

TEST(ProgramStyleTest, AButtonThatIsSwitchedOnHasTheHighlightsColour) {
    ProgramStyle style(QStringLiteral("Fusion"));
    for (const QColor& ground : {QColor(239, 239, 239), QColor(45, 45, 48)}) {
        QPushButton button;
        button.setStyle(&style);
        button.setCheckable(true);
        QPalette palette(ground);
        palette.setColor(QPalette::Highlight, QColor(0, 90, 200));
        button.setPalette(palette);
        button.resize(80, 30);
        const auto blueness = [&button] {
            const QColor middle = button.grab().toImage().pixelColor(40, 15);
            return middle.blue() - middle.red();
        };
        const int off = blueness();
        button.setChecked(true);
        EXPECT_GT(blueness(), off + 60);
    }
}

} // namespace

namespace {

TEST(ApplicationIcon, IsADropOnNothingInEverySize) {
    const QIcon icon = applicationIcon();
    for (const int size : {16, 32, 48, 64}) {
        const QImage picture = icon.pixmap(QSize(size, size), 1.0).toImage();
        ASSERT_EQ(picture.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << size;
        EXPECT_EQ(qAlpha(picture.pixel(size - 1, size - 1)), 0) << size;
        const QColor water = picture.pixelColor(size / 2, size * 7 / 8);
        EXPECT_EQ(water.alpha(), 255) << size;
        EXPECT_GT(water.blue(), water.red()) << size;
    }
}

} // namespace

} // namespace orv
