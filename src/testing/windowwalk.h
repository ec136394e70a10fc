// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>

namespace orv {

/// A control that needs no access key of its own, and why.
using KeyExemption = std::function<QString(const QWidget& control)>;

/// Looks at everything that is visible in a window at once, as an operator does who cannot see it or has no mouse:
/// names, access keys, the way of the Tab key. One sentence for each thing amiss, which names the widget; empty means
/// all is well.
std::string findingsIn(
    QWidget& window, const KeyExemption& exemption = [](const QWidget&) { return QString(); });

} // namespace orv
