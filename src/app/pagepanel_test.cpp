// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/pagepanel.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(PagePanel, EachCaptionNamesItsPage) {
    const std::pair<const char*, Page> captions[] = {
        {"Status and Controls", Page::Status},
        {"Output: Spread Sheet", Page::Sheet},
        {"Output: Graphical", Page::Graphical},
        {"Debug Screen", Page::Debug},
        {"Testing", Page::Testing},
        {"Calibration", Page::Calibration},
    };
    for (const auto& [caption, page] : captions) {
        EXPECT_EQ(pageOfCaption(QString::fromLatin1(caption)), page) << caption;
    }
}

TEST(PagePanel, AnyOtherTextNamesNoPage) {
    for (const char* caption : {"", "Status", "status and controls", "Status and Controls ", "Output: Spread  Sheet",
                                "Output: &Graphical", "Debug", "Form Loading"}) {
        EXPECT_EQ(pageOfCaption(QString::fromLatin1(caption)), Page::None) << caption;
    }
}

TEST(PagePanel, TheStripsHaveTheirTabsInOrder) {
    EXPECT_EQ(upperCaptions().join(u'|').toStdString(), "Status and Controls|Output: Spread Sheet|Output: Graphical");
    EXPECT_EQ(lowerCaptions().join(u'|').toStdString(), "Debug Screen|Testing|Calibration");
}

TEST(PagePanel, StartsOnTheStatusPageWithoutServiceMode) {
    const PagePanel panel;
    EXPECT_EQ(panel.shown.value(), Page::Status);
    EXPECT_EQ(pageOfCaption(panel.upperCaption), Page::Status);
    EXPECT_FALSE(panel.serviceMode);
}

} // namespace
} // namespace orv
