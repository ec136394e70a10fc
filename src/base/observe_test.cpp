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

TEST(Bindings, drawLastBoundFirstAfterAChange) {
    QProperty<int> property{0};
    std::vector<int> drawn;
    Bindings bindings;
    bindings.bind(property, [&drawn](int) { drawn.push_back(1); });
    bindings.bind(property, [&drawn](int) { drawn.push_back(2); });
    property = 1;
    EXPECT_THAT(drawn, ElementsAre(1, 2, 2, 1));
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

TEST(Signal, tellsAllWhoListenUntilTheyLetGo) {
    Signal<> signal;
    std::vector<int> told;
    const auto note = [&told](int listener) { return [&told, listener] { told.push_back(listener); }; };
    const Subscription first = signal.subscribe(note(1));
    Subscription second = signal.subscribe(note(2));
    signal.tell();
    second.reset();
    const Subscription third = signal.subscribe(note(3));
    Subscription once;
    once = signal.subscribe([&] {
        note(4)();
        once.reset(); // while it is told
    });
    signal.tell();
    signal.tell();
    EXPECT_THAT(told, ElementsAre(1, 2, 1, 3, 4, 1, 3));
}

TEST(Signal, tellsThoseSubscribedByAListenerFromTheNextEventOn) {
    constexpr int many = 100; // so that the list moves while it is told
    Signal<int> signal;
    std::vector<int> told;
    std::vector<Subscription> added;
    const Subscription first = signal.subscribe([&](int event) {
        for (int i = 0; event == 1 && i < many; ++i) {
            added.push_back(signal.subscribe([&told](int later) { told.push_back(later); }));
        }
    });
    const Subscription last = signal.subscribe([&told](int event) { told.push_back(-event); });
    signal.tell(1);
    EXPECT_THAT(told, ElementsAre(-1));
    signal.tell(2);
    EXPECT_EQ(told.size(), static_cast<std::size_t>(many + 2));
    EXPECT_EQ(told.at(1), -2) << "after those that subscribed before";
}

} // namespace
} // namespace orv
