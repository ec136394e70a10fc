// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/style.h"

#include "ui/tabstrip.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace orv {

namespace {

/// Relative luminance of a colour, 0 to 1, as the contrast rules for the web define it.
double luminance(const QColor& colour) {
    const auto linear = [](float part) {
        const auto value = static_cast<double>(part);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor between(const QColor& from, const QColor& to, float part) {
    return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * part,
                            from.greenF() + (to.greenF() - from.greenF()) * part,
                            from.blueF() + (to.blueF() - from.blueF()) * part);
}

// Found by a search that started from Okabe's and Ito's colours: under normal vision and each of the three kinds of
// colour blindness any two lie at least 35 apart in CIE Lab, and each has a contrast of 3 to the background.
constexpr std::array<QRgb, 6> curvesOnLight{0xff343eb5, 0xffd97e04, 0xff00a976, 0xffaa87c7, 0xff613300, 0xff110d16};
constexpr std::array<QRgb, 6> curvesOnDark{0xff4181fc, 0xffcf6b0a, 0xff19e987, 0xffb16faa, 0xffffe41a, 0xffd6ffff};

bool isDark(const QColor& colour) {
    constexpr int middle = 128;
    return colour.lightness() < middle;
}

/// Can be seen on a dark window.
QColor outlineOnDark(const QPalette& palette) {
    constexpr float visible = 0.4F;
    return between(palette.color(QPalette::Window), palette.color(QPalette::WindowText), visible);
}

/// For a style that makes its outlines from the window's colour by darkening it, which on dark shows nothing.
template <typename Option>
Option withLightOutline(Option option) {
    constexpr int darkened = 150;
    option.palette.setColor(QPalette::Window, outlineOnDark(option.palette).lighter(darkened));
    return option;
}

/// For a style that draws a button in a paler or a darker shade of the colour it is given: the nearest one on which the
/// text can be read either way.
QColor groundFor(const QColor& text, const QColor& wanted) {
    constexpr double readable = 4.5;
    constexpr float step = 0.02F;
    const QColor away = luminance(text) > luminance(wanted) ? Qt::black : Qt::white;
    const auto canBeRead = [&text](const QColor& ground) {
        constexpr float saturationKept = 0.75F;
        constexpr int lightened = 112;
        constexpr int darkened = 115;
        const QColor pale =
            QColor::fromHsvF(std::max(0.0F, ground.hueF()), ground.saturationF() * saturationKept, ground.valueF())
                .lighter(lightened);
        return contrast(text, pale) >= readable && contrast(text, pale.darker(darkened)) >= readable;
    };
    QColor ground = wanted;
    for (float part = step; part < 1.0F && !canBeRead(ground); part += step) {
        ground = between(wanted, away, part);
    }
    return ground;
}

void markChosen(const QStyleOptionTab& tab, QPainter& painter) {
    constexpr int height = 2;
    const QRect& all = tab.rect;
    const bool below = tab.shape == QTabBar::RoundedSouth;
    painter.fillRect(
        QRect(all.left() + height, below ? all.bottom() + 1 - height : all.top(), all.width() - 2 * height, height),
        tab.palette.color(QPalette::Highlight));
}

/// What the kinds of messages show; `Other` is any other picture.
enum class Sign { Information, Question, Warning, Critical, Other };

Sign signOf(QStyle::StandardPixmap picture) {
    switch (picture) {
    case QStyle::SP_MessageBoxInformation:
        return Sign::Information;
    case QStyle::SP_MessageBoxQuestion:
        return Sign::Question;
    case QStyle::SP_MessageBoxWarning:
        return Sign::Warning;
    case QStyle::SP_MessageBoxCritical:
        return Sign::Critical;
    default:
        return Sign::Other;
    }
}

/// On a field of 48 by 48: a disc with an i, a question mark or a bar, or a triangle with an exclamation mark.
void drawSign(QPainter& painter, Sign sign) {
    painter.setPen(Qt::NoPen);
    if (sign == Sign::Warning) {
        constexpr double round = 5;
        QPainterPath corners;
        corners.addPolygon(QPolygonF({{24, 6.5}, {44.5, 42.5}, {3.5, 42.5}}));
        corners.closeSubpath();
        painter.setBrush(QColor(245, 185, 30));
        painter.setPen(QPen(painter.brush(), round, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(corners);
        const QColor dark(45, 40, 30);
        painter.setPen(QPen(dark, round, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(24, 18.5), QPointF(24, 29));
        painter.setPen(Qt::NoPen);
        painter.setBrush(dark);
        painter.drawEllipse(QPointF(24, 37), 3, 3);
        return;
    }
    painter.setBrush(sign == Sign::Critical ? QColor(205, 60, 55) : QColor(45, 120, 190));
    painter.drawEllipse(QPointF(24, 24), 22, 22);
    constexpr double stroke = 4.8;
    painter.setPen(QPen(Qt::white, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    QPointF dot(24, 13.5);
    switch (sign) {
    case Sign::Information:
        painter.drawLine(QPointF(24, 22), QPointF(24, 35));
        break;
    case Sign::Question: {
        QPainterPath hook(QPointF(16.5, 18.5));
        hook.cubicTo(16.5, 8.5, 31.5, 8.5, 31.5, 18.5);
        hook.cubicTo(31.5, 23.5, 24, 23.5, 24, 29);
        painter.drawPath(hook);
        dot = {24, 36.5};
        break;
    }
    default:
        painter.drawLine(QPointF(14.5, 24), QPointF(33.5, 24));
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(dot, 3, 3);
}

/// Draws a sign anew for each size, so that it is sharp on every screen.
class SignEngine final : public QIconEngine {
public:
    explicit SignEngine(Sign sign)
        : sign_(sign) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        constexpr double field = 48;
        constexpr double faint = 0.5;
        const double side = std::min(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center() - QPointF(side / 2, side / 2));
        painter->scale(side / field, side / field);
        painter->setOpacity(mode == QIcon::Disabled ? faint : 1);
        drawSign(*painter, sign_);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new SignEngine(sign_); }

private:
    Sign sign_;
};

PlotTheme themeOf(const QColor& background, const QColor& text, const QColor& focus) {
    constexpr float faint = 0.15F;
    PlotTheme theme{
        .background = background, .text = text, .grid = between(background, text, faint), .focus = focus, .curves = {}};
    const auto& colours = isDark(background) ? curvesOnDark : curvesOnLight;
    std::copy(colours.begin(), colours.end(), theme.curves.begin());
    return theme;
}

} // namespace

QSize ProgramStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                     const QWidget* widget) const {
    constexpr QSize room(16, 2);
    const QSize proposed = QProxyStyle::sizeFromContents(type, option, size, widget);
    // A style that leaves room already keeps it.
    const bool tight = type == CT_PushButton && proposed.width() < size.width() + room.width();
    return tight ? proposed.expandedTo(size + room) : proposed;
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const bool isBox = button != nullptr && (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton);
    const auto* base = qstyleoption_cast<const QStyleOptionTabBarBase*>(option);
    if (element == PE_FrameTabBarBase && base != nullptr) {
        const auto* strip = dynamic_cast<const ChoiceTabBar*>(widget);
        QStyleOptionTabBarBase line(*base);
        if (strip != nullptr && !strip->isChosen()) {
            line.selectedTabRect = QRect();
        }
        QProxyStyle::drawPrimitive(element, &line, painter, widget);
        return;
    }
    if (element == PE_FrameMenu && isDark(option->palette)) {
        painter->save();
        painter->setPen(outlineOnDark(option->palette));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        painter->restore();
        return;
    }
    const bool isFrame = frame != nullptr && (element == PE_FrameLineEdit || element == PE_Frame);
    if (isBox && isDark(button->palette)) {
        const QStyleOptionButton light = withLightOutline(*button);
        QProxyStyle::drawPrimitive(element, &light, painter, widget);
    } else if (isFrame && isDark(frame->palette)) {
        const QStyleOptionFrame light = withLightOutline(*frame);
        QProxyStyle::drawPrimitive(element, &light, painter, widget);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    const auto* chooser = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && chooser != nullptr && chooser->editable && isDark(chooser->palette)) {
        const QStyleOptionComboBox light = withLightOutline(*chooser);
        QProxyStyle::drawComplexControl(control, &light, painter, widget);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    if (element == CE_ProgressBarGroove && bar != nullptr && isDark(bar->palette)) {
        const QStyleOptionProgressBar light = withLightOutline(*bar);
        QProxyStyle::drawControl(element, &light, painter, widget);
        return;
    }
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator &&
        item->text.isEmpty() && isDark(item->palette)) {
        constexpr int margin = 5;
        painter->fillRect(item->rect.left() + margin, item->rect.center().y(), item->rect.width() - 2 * margin, 1,
                          outlineOnDark(item->palette));
        return;
    }
    const bool isButton = element == CE_PushButtonBevel || element == CE_PushButtonLabel;
    if (!isButton || button == nullptr || (button->state & State_On) == 0) {
        QProxyStyle::drawControl(element, option, painter, widget);
        const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        if (element == CE_TabBarTabShape && tab != nullptr && (tab->state & State_Selected) != 0 &&
            isDark(tab->palette)) {
            markChosen(*tab, *painter);
        }
        return;
    }
    QStyleOptionButton coloured(*button);
    const QColor text = button->palette.color(QPalette::HighlightedText);
    coloured.palette.setColor(QPalette::Button, groundFor(text, button->palette.color(QPalette::Highlight)));
    coloured.palette.setColor(QPalette::ButtonText, text);
    QProxyStyle::drawControl(element, &coloured, painter, widget);
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* details) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) {
        return 0;
    }
    if (hint == SH_Table_GridLineColor && option != nullptr && isDark(option->palette)) {
        constexpr float visible = 0.25F;
        const QPalette& palette = option->palette;
        return static_cast<int>(between(palette.color(QPalette::Base), palette.color(QPalette::Text), visible).rgb());
    }
    return QProxyStyle::styleHint(hint, option, widget, details);
}

void ProgramStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    // Of a pair of colours with a low contrast less can be told apart on dark.
    const bool dark = isDark(palette);
    const double readable = dark ? 4.5 : 2.5;
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {{QPalette::WindowText, QPalette::Window},
                                                                         {QPalette::ButtonText, QPalette::Button},
                                                                         {QPalette::Text, QPalette::Base}};
    for (const auto& [text, ground] : pairs) {
        const QColor behind = palette.color(QPalette::Active, ground);
        if (contrast(palette.color(QPalette::Disabled, text), behind) < readable) {
            const QColor front = palette.color(QPalette::Active, text);
            constexpr float step = 0.05F;
            float share = 0.5F;
            while (share < 1 && contrast(between(behind, front, share), behind) < readable) {
                share += step;
            }
            palette.setColor(QPalette::Disabled, text, between(behind, front, share));
        }
    }
    if (dark) {
        palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Active, QPalette::Window));
    }
    // A desktop that knows no hints leaves them as on a light ground.
    const double readableHint = dark ? 4.5 : 3.5;
    constexpr float hintShare = 0.65F;
    const QColor behind = palette.color(QPalette::Active, QPalette::Window);
    const QColor hint = palette.color(QPalette::Active, QPalette::PlaceholderText);
    if (contrast(between(behind, hint, static_cast<float>(hint.alphaF())), behind) < readableHint) {
        palette.setColor(QPalette::PlaceholderText,
                         between(behind, palette.color(QPalette::Active, QPalette::WindowText), hintShare));
    }
}

QIcon ProgramStyle::standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const {
    const Sign sign = signOf(picture);
    return sign == Sign::Other ? QProxyStyle::standardIcon(picture, option, widget) : QIcon(new SignEngine(sign));
}

QPixmap ProgramStyle::standardPixmap(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const {
    const Sign sign = signOf(picture);
    if (sign == Sign::Other) {
        return QProxyStyle::standardPixmap(picture, option, widget);
    }
    const int side = pixelMetric(PM_MessageBoxIconSize, option, widget);
    return QIcon(new SignEngine(sign)).pixmap(QSize(side, side), widget == nullptr ? 1 : widget->devicePixelRatioF());
}

QPalette warningPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(255, 191, 0));
    palette.setColor(QPalette::WindowText, Qt::black);
    return palette;
}

bool isDark(const QPalette& palette) {
    return isDark(palette.color(QPalette::Window));
}

PlotTheme plotTheme(const QPalette& palette) {
    return themeOf(palette.color(QPalette::Base), palette.color(QPalette::Text), palette.color(QPalette::Highlight));
}

PlotTheme paperTheme() {
    return themeOf(Qt::white, Qt::black, Qt::black);
}

QIcon applicationIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64}) {
        icon.addFile(QStringLiteral(":/icon/orvhost-%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

} // namespace orv
