// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orv {

/// What a screen keeps to follow the panels it draws. The panels outlive it.
class Bindings {
public:
    /// Calls `draw` with the property's value now and after every change, until this object dies.
    template <typename T, typename Draw>
    void bind(const QProperty<T>& property, Draw draw) {
        draw(property.value());
        // Following a property does not change it, although Qt 6.4 asks for one that may be changed.
        auto& observed = const_cast<QProperty<T>&>(property); // NOLINT(cppcoreguidelines-pro-type-const-cast)
        notifiers_.push_back(observed.addNotifier([&property, draw = std::move(draw)] { draw(property.value()); }));
    }

private:
    std::vector<QPropertyNotifier> notifiers_;
};

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
