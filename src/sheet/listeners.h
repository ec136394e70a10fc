// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace orv {

/// Those who want to be told of one kind of change.
class Listeners {
public:
    /// What a listener keeps for as long as it wants to be told; it may outlive what it listens to.
    using Subscription = std::shared_ptr<const std::function<void()>>;

    /// `listener` is called at each change, after those that came before it, until the last copy of what is returned
    /// has gone. It may let go of its own subscription but not add another to the same change.
    [[nodiscard]] Subscription add(std::function<void()> listener) {
        std::erase_if(listeners_, [](const auto& other) { return other.expired(); });
        auto subscription = std::make_shared<const std::function<void()>>(std::move(listener));
        listeners_.push_back(subscription);
        return subscription;
    }

    /// Tells the change to all.
    void tell() const {
        for (const auto& listener : listeners_) {
            if (const Subscription alive = listener.lock()) {
                (*alive)();
            }
        }
    }

private:
    std::vector<std::weak_ptr<const std::function<void()>>> listeners_;
};

} // namespace orv
