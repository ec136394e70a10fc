// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"
#include "ui/tooltips.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

namespace orv {
namespace {

const QString longText = QStringLiteral("Write the rows as CSV or NetCDF for other programs, with what is known of "
                                        "the instrument: those that are selected, else all.");

TEST(ToolTips, OnlyATextOfMoreThanALineIsBroken) {
    EXPECT_EQ(ToolTips::inLines(QString()), QString());
    EXPECT_EQ(ToolTips::inLines(QStringLiteral("Short <b>")), QStringLiteral("Short <b>"));
    const QString full = QString(29, u'a') + u' ' + QString(30, u'b');
    EXPECT_EQ(ToolTips::inLines(full), full);
    EXPECT_EQ(ToolTips::inLines(full + u'\n' + full + QStringLiteral(" c  d")),
              full + u'\n' + full + QStringLiteral("\nc  d"));
    EXPECT_EQ(ToolTips::inLines(QString(70, u'a') + QStringLiteral(" b")), QString(70, u'a') + QStringLiteral("\nb"));
}

class ToolTipsTest : public WindowTest {
protected:
    /// How wide the tool tip of a control is on the screen.
    static int widthOf(QWidget& control) {
        const QPoint place = control.rect().center();
        QHelpEvent help(QEvent::ToolTip, place, control.mapToGlobal(place));
        QApplication::sendEvent(&control, &help);
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->inherits("QTipLabel") && widget->isVisible()) {
                return widget->width();
            }
        }
        return 0;
    }
};

TEST_F(ToolTipsTest, TheLongestFitASmallScreenInTheProgramItself) {
    showPage(QStringLiteral("Output: Spread Sheet"));
    auto& control = button("ExportSheet");
    ASSERT_EQ(control.toolTip(), longText) << "what assistive programs are told stays as it is";
    const int width = widthOf(control);
    EXPECT_GT(width, 100);
    EXPECT_LT(width, control.fontMetrics().horizontalAdvance(longText) * 3 / 4);
    EXPECT_EQ(QToolTip::text().count(u'\n'), 2);
    QToolTip::hideText();
}

} // namespace
} // namespace orv
