// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/observe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace orv {
namespace {

using testing::ElementsAre;

TEST(Bindings, drawAtOnceAndAfterEachChange) {
    QProperty<int> property{1};
    std::vector<int> drawn;
    Bindings bindings;
    bindings.bind(property, [&drawn](int value) { drawn.push_back(value); });
    property = 2;
    property = 2;
    property = 3;
    EXPECT_THAT(drawn, ElementsAre(1, 2, 3));
}

TEST(Bindings, drawAValueThatFollowsFromOthers) {
    QProperty<bool> first{false};
    QProperty<bool> both;
    both.setBinding([&first] { return !first.value(); });
    std::vector<bool> drawn;
    Bindings bindings;
    bindings.bind(both, [&drawn](bool value) { drawn.push_back(value); });
    first = true;
    EXPECT_THAT(drawn, ElementsAre(true, false));
}

TEST(Bindings, drawNothingOnceTheyAreGone) {
    QProperty<int> property{1};
    int draws = 0;
    auto bindings = std::make_unique<Bindings>();
    bindings->bind(property, [&draws](int) { ++draws; });
    bindings.reset();
    property = 2;
    EXPECT_EQ(draws, 1);
}

} // namespace
} // namespace orv
