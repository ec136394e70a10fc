// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/applicationicon.h"

#include <QImage>

#include <gtest/gtest.h>

namespace orv {
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
