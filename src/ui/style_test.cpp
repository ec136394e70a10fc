// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/style.h"

#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace orv {
namespace {

using Vector = std::array<double, 3>;

double linear(float part) {
    return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

Vector linear(const QColor& colour) {
    return {linear(colour.redF()), linear(colour.greenF()), linear(colour.blueF())};
}

double dot(const Vector& left, const Vector& right) {
    return left[0] * right[0] + left[1] * right[1] + left[2] * right[2];
}

double luminance(const Vector& rgb) {
    return dot({0.2126, 0.7152, 0.0722}, rgb);
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(linear(one)) + 0.05;
    const double second = luminance(linear(other)) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

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

TEST(ProgramStyleTest, HintsCanBeReadWhereTheDesktopHasNoColourForThem) {
    ProgramStyle style(QStringLiteral("Fusion"));
    const auto polished = [&style](const QColor& window, const QColor& hint) {
        QPalette palette(window);
        palette.setColor(QPalette::PlaceholderText, hint);
        style.polish(palette);
        return palette.color(QPalette::PlaceholderText);
    };
    const QColor faint(0, 0, 0, 128);
    EXPECT_GE(polished(QColor(45, 45, 48), faint).lightness(), 150);
    EXPECT_EQ(polished(QColor(240, 240, 240), faint), faint);
    EXPECT_EQ(polished(QColor(45, 45, 48), QColor(170, 170, 170)), QColor(170, 170, 170));
}

TEST(ProgramStyleTest, OnDarkWhatIsDisabledAndHintsHaveTheContrastOfText) {
    ProgramStyle style(QStringLiteral("Fusion"));
    QPalette dark = paletteOf(QColor(228, 228, 228), QColor(45, 45, 48), QColor(125, 125, 125));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::PlaceholderText, QColor(120, 120, 120));
    style.polish(dark);
    const QColor window = dark.color(QPalette::Active, QPalette::Window);
    const QColor disabled = dark.color(QPalette::Disabled, QPalette::WindowText);
    EXPECT_GE(contrast(disabled, window), 4.5);
    EXPECT_LE(contrast(disabled, window), 7.0) << "it must not look enabled";
    EXPECT_GE(contrast(dark.color(QPalette::PlaceholderText), window), 4.5);
    EXPECT_EQ(dark.color(QPalette::Disabled, QPalette::Base), window) << "a disabled box has the window's ground";
    EXPECT_EQ(dark.color(QPalette::Active, QPalette::Base), QColor(30, 30, 32));
}

TEST(ProgramStyleTest, ThePicturesOfMessagesAreDrawnForEachSize) {
    const ProgramStyle style(QStringLiteral("Fusion"));
    const std::pair<QStyle::StandardPixmap, QColor> table[] = {{QStyle::SP_MessageBoxInformation, QColor(45, 120, 190)},
                                                               {QStyle::SP_MessageBoxQuestion, QColor(45, 120, 190)},
                                                               {QStyle::SP_MessageBoxWarning, QColor(245, 185, 30)},
                                                               {QStyle::SP_MessageBoxCritical, QColor(205, 60, 55)}};
    for (const auto& [which, colour] : table) {
        const QIcon icon = style.standardIcon(which, nullptr, nullptr);
        const QImage usual = icon.pixmap(QSize(48, 48), 1.0).toImage();
        const QImage large = icon.pixmap(QSize(48, 48), 2.0).toImage();
        ASSERT_EQ(usual.size(), QSize(48, 48)) << which;
        ASSERT_EQ(large.size(), QSize(96, 96)) << which;
        EXPECT_EQ(qAlpha(large.pixel(0, 0)), 0) << which;
        EXPECT_EQ(large.pixelColor(34, 80), colour) << which;
        const auto blurred = [](const QImage& image) {
            int count = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const int alpha = qAlpha(image.pixel(x, y));
                    count += alpha != 0 && alpha != 255 ? 1 : 0;
                }
            }
            return count;
        };
        // The edge is one pixel wide at either size; a picture that is scaled has two.
        EXPECT_LE(blurred(large), 3 * blurred(usual)) << which;
        EXPECT_EQ(style.standardPixmap(which, nullptr, nullptr).isNull(), false) << which;
    }
}

TEST(ProgramStyleTest, AButtonLeavesRoomAroundItsText) {
    ProgramStyle style(QStringLiteral("Fusion"));
    QPushButton button(QStringLiteral("Retrieve Settings"));
    button.setStyle(&style);
    EXPECT_GE(button.sizeHint().width(), button.fontMetrics().horizontalAdvance(button.text()) + 16);
}

/// Draws with a dark window behind.
QImage drawnOnDark(const QPalette& dark, const std::function<void(QPainter&)>& draw) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(dark.color(QPalette::Window));
    QPainter painter(&image);
    draw(painter);
    return image;
}

TEST(ProgramStyleTest, OutlinesAndTheChosenTabAreSeenOnADarkWindow) {
    const ProgramStyle style(QStringLiteral("Fusion"));
    QPalette dark(QColor(45, 45, 48));
    dark.setColor(QPalette::Highlight, QColor(0, 90, 200));
    constexpr QRect place(2, 2, 14, 14);
    for (const QStyle::PrimitiveElement element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
        const QImage image = drawnOnDark(dark, [&](QPainter& painter) {
            QStyleOptionButton option;
            option.rect = place;
            option.palette = dark;
            option.state = QStyle::State_Enabled | QStyle::State_Off;
            style.drawPrimitive(element, &option, &painter, nullptr);
        });
        EXPECT_GE(image.pixelColor(place.left(), 9).lightness(), 90) << element;
    }
    const QImage edge = drawnOnDark(dark, [&](QPainter& painter) {
        QStyleOptionFrame option;
        option.rect = place;
        option.lineWidth = 1;
        option.palette = dark;
        option.state = QStyle::State_Enabled | QStyle::State_Sunken;
        style.drawPrimitive(QStyle::PE_FrameLineEdit, &option, &painter, nullptr);
    });
    EXPECT_GE(edge.pixelColor(place.left(), 9).lightness(), 90);
    const QImage groove = drawnOnDark(dark, [&](QPainter& painter) {
        QStyleOptionProgressBar option;
        option.rect = place;
        option.palette = dark;
        option.state = QStyle::State_Enabled | QStyle::State_Horizontal;
        style.drawControl(QStyle::CE_ProgressBarGroove, &option, &painter, nullptr);
    });
    EXPECT_GE(groove.pixelColor(place.left(), 9).lightness(), 90);
    const QImage chooser = drawnOnDark(dark, [&](QPainter& painter) {
        QStyleOptionComboBox option;
        option.rect = QRect(0, 0, 40, 20);
        option.palette = dark;
        option.editable = true;
        option.subControls = QStyle::SC_All;
        option.state = QStyle::State_Enabled;
        style.drawComplexControl(QStyle::CC_ComboBox, &option, &painter, nullptr);
    });
    EXPECT_GE(chooser.pixelColor(39, 10).lightness(), 90) << "at the arrow too";
    for (const bool chosen : {false, true}) {
        const QImage tab = drawnOnDark(dark, [&](QPainter& painter) {
            QStyleOptionTab option;
            option.rect = QRect(0, 0, 40, 20);
            option.palette = dark;
            option.state = chosen ? QStyle::State_Enabled | QStyle::State_Selected : QStyle::State_Enabled;
            style.drawControl(QStyle::CE_TabBarTabShape, &option, &painter, nullptr);
        });
        EXPECT_EQ(tab.pixelColor(20, 1) == dark.color(QPalette::Highlight), chosen);
    }
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

TEST(ProgramStyleTest, TheWordsOfAButtonThatIsSwitchedOnCanBeRead) {
    ProgramStyle style(QStringLiteral("Fusion"));
    struct Colours {
        QColor window;
        QColor highlight;
        QColor text;
    };
    const Colours all[] = {{QColor(239, 239, 239), QColor(48, 140, 198), Qt::white},
                           {QColor(45, 45, 48), QColor(38, 110, 190), Qt::white},
                           {QColor(45, 45, 48), QColor(61, 174, 233), Qt::white},
                           {QColor(239, 239, 239), QColor(250, 220, 150), Qt::black},
                           {QColor(45, 45, 48), QColor(120, 90, 60), Qt::black}};
    for (const auto& [window, highlight, text] : all) {
        QPalette palette(window);
        palette.setColor(QPalette::Highlight, highlight);
        palette.setColor(QPalette::HighlightedText, text);
        QStyleOptionButton option;
        option.rect = QRect(0, 0, 40, 20);
        option.palette = palette;
        for (const QStyle::State pointed : {QStyle::State_None, QStyle::State_MouseOver}) {
            option.state = QStyle::State_Enabled | QStyle::State_On | pointed;
            const QImage image = drawnOnDark(palette, [&](QPainter& painter) {
                style.drawControl(QStyle::CE_PushButtonBevel, &option, &painter, nullptr);
            });
            for (const int y : {4, 10, 16}) {
                EXPECT_GE(contrast(image.pixelColor(20, y), text), 4.5)
                    << highlight.name().toStdString() << " on " << window.name().toStdString();
            }
        }
    }
}

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

using Matrix = std::array<Vector, 3>;

/// What each kind of colour vision makes of linear red, green and blue, after Machado, Oliveira and Fernandes (2009),
/// the kinds of blindness at full severity.
constexpr Matrix visions[] = {
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}};

/// CIE Lab of a colour as it is seen.
Vector lab(const QColor& colour, const Matrix& vision) {
    Vector seen{};
    for (std::size_t part = 0; part < 3; ++part) {
        seen[part] = std::clamp(dot(vision[part], linear(colour)), 0.0, 1.0);
    }
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
    const double x = f(dot({0.4124, 0.3576, 0.1805}, seen) / 0.9505);
    const double y = f(luminance(seen));
    const double z = f(dot({0.0193, 0.1192, 0.9505}, seen) / 1.089);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

void expectLegible(const PlotTheme& theme) {
    EXPECT_GE(contrast(theme.text, theme.background), 7.0);
    for (std::size_t one = 0; one < theme.curves.size(); ++one) {
        EXPECT_GE(contrast(theme.curves[one], theme.background), 3.0) << one;
        for (std::size_t other = 0; other < one; ++other) {
            for (std::size_t vision = 0; vision < std::size(visions); ++vision) {
                const Vector first = lab(theme.curves[one], visions[vision]);
                const Vector second = lab(theme.curves[other], visions[vision]);
                EXPECT_GE(std::hypot(first[0] - second[0], first[1] - second[1], first[2] - second[2]), 35.0)
                    << one << " and " << other << " under vision " << vision;
            }
        }
    }
}

QPalette palette(const QColor& base, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    return palette;
}

TEST(PlotTheme, ColoursCanBeToldApartOnLightAndDarkByEveryone) {
    expectLegible(plotTheme(palette(Qt::white, Qt::black)));
    expectLegible(plotTheme(palette(QColor(35, 38, 41), QColor(240, 240, 240))));
    expectLegible(plotTheme(palette(Qt::black, Qt::white)));
    expectLegible(paperTheme());
}

TEST(PlotTheme, FollowsThePaletteAndPaperDoesNot) {
    const PlotTheme dark = plotTheme(palette(Qt::black, Qt::white));
    EXPECT_EQ(dark.background, QColor(Qt::black));
    EXPECT_EQ(dark.text, QColor(Qt::white));
    EXPECT_NE(dark.curves, paperTheme().curves);
    EXPECT_EQ(plotTheme(palette(Qt::white, Qt::black)).curves, paperTheme().curves);
    EXPECT_EQ(paperTheme().background, QColor(Qt::white));
}

} // namespace
} // namespace orv
