// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orv {

/// What a screen keeps to follow the values it shows. The values outlive it.
class Bindings {
public:
    /// Calls `draw` with the property's value now and after every change, until this object dies. Of several on one
    /// property the one bound last is called first after a change.
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

/// Changes a part of a shown value: `edit` is given a copy that it may write into, and who follows the value is told
/// once, if it has become another.
template <typename T, typename Edit>
void change(QProperty<T>& property, Edit edit) {
    T value = property.value();
    edit(value);
    property = std::move(value);
}

/// What a listener of a Signal keeps for as long as it wants to be told; it may outlive the signal.
using Subscription = std::shared_ptr<const void>;

/// An event that others may want to be told of. A value that is shown is a QProperty instead.
template <typename... Args>
class Signal {
public:
    using Listener = std::function<void(Args...)>;

    /// Calls `listener` at each event, after those that subscribed before it, until the last copy of what is returned
    /// has gone. A listener may let go of its own subscription and may subscribe others, who are told from the next
    /// event on.
    [[nodiscard]] Subscription subscribe(Listener listener) {
        std::erase_if(listeners_, [](const auto& other) { return other.expired(); });
        auto subscription = std::make_shared<const Listener>(std::move(listener));
        listeners_.push_back(subscription);
        return subscription;
    }

    /// Tells all of them.
    void tell(const Args&... args) const {
        const auto listeners = listeners_; // a listener may subscribe others
        for (const auto& listener : listeners) {
            if (const std::shared_ptr<const Listener> alive = listener.lock()) {
                (*alive)(args...);
            }
        }
    }

private:
    std::vector<std::weak_ptr<const Listener>> listeners_;
};

} // namespace orv
