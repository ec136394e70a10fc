// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets.h"

#include <QApplication>
#include <QProcess>
#include <QScreen>

#include <gtest/gtest.h>

#include <cmath>

namespace orv {
namespace {

TEST(StatusLampTest, TheRingIsSeenOnADarkWindow) {
    StatusLamp lamp;
    lamp.setPalette(QPalette(QColor(45, 45, 48)));
    lamp.resize(20, 20);
    lamp.show(Lamp::Read);
    const QImage image = lamp.grab().toImage();
    EXPECT_GE(qGreen(image.pixel(image.width() / 2, 1)), 128);
}

/// A page of one colour with empty number labels on it, also at edges within pixels.
class NumberLabels : public testing::Test {
protected:
    NumberLabels() {
        for (int each = 0; each < 16; ++each) {
            QLabel* label = makeNumberLabel("Number", "Number", "00000");
            label->setParent(&page_);
            label->setFixedSize(40 + each % 4, 12 + each % 4);
            label->move(10 + each / 4 * 61, 5 + each % 4 * 20 + each / 4);
        }
        QPalette palette;
        palette.setColor(QPalette::Active, QPalette::Window, Qt::red);
        palette.setColor(QPalette::Inactive, QPalette::Window, Qt::blue);
        page_.setPalette(palette);
        page_.resize(300, 120);
        page_.show();
        page_.activateWindow();
        QCoreApplication::processEvents();
    }

    static bool isWhole(qreal ratio) { return std::floor(ratio) == ratio; }

    /// Pixels of the page, as it stands on the screen, of another colour.
    int spots(const QColor& colour) {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents(); // a change of the active window paints the labels after the page
        const QImage shown = page_.screen()->grabWindow(page_.winId()).toImage();
        int found = shown.isNull() ? -1 : 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                found += shown.pixelColor(x, y) == colour ? 0 : 1;
            }
        }
        return found;
    }

    QWidget page_;
};

TEST_F(NumberLabels, LeaveNothingOfThePageUnpainted) {
    EXPECT_EQ(spots(Qt::red), 0);
    for (const QLabel* label : page_.findChildren<QLabel*>()) {
        EXPECT_EQ(label->testAttribute(Qt::WA_OpaquePaintEvent), isWhole(label->devicePixelRatioF()));
    }
}

TEST_F(NumberLabels, HaveTheGroundOfTheirPageAlsoBehindAnotherWindow) {
    ASSERT_EQ(spots(Qt::red), 0);
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_EQ(spots(Qt::blue), 0);
    page_.activateWindow();
    EXPECT_EQ(spots(Qt::red), 0);
}

TEST(NumberLabelsOnAFineScreen, LeaveNothingOfThePageUnpainted) {
    for (const char* factor : {"1.25", "1.5", "1.75", "2"}) {
        QProcess scaled;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(factor));
        scaled.setProcessEnvironment(environment);
        scaled.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_filter=NumberLabels.*")});
        ASSERT_TRUE(scaled.waitForFinished()) << factor;
        EXPECT_EQ(scaled.exitCode(), 0) << factor << ": " << scaled.readAllStandardOutput().toStdString();
    }
}

} // namespace
} // namespace orv
