// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>

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

} // namespace orv
