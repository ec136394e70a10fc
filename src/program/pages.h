// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>
#include <QString>
#include <QStringList>

namespace orv {

/// The pages of the main window; they lie on top of each other and at most one is shown.
enum class Page { None, Status, Sheet, Graphical, Debug, Testing, Calibration };

/// The page with a tab of this caption; None for any other text.
Page pageOfCaption(const QString& caption);

QStringList upperCaptions();
QStringList lowerCaptions();

/// Which page is shown and what belongs to the service mode.
struct PageState {
    QProperty<Page> shown{Page::Status};
    QProperty<QString> upperCaption{QStringLiteral("Status and Controls")}; ///< Selected tab of the upper strip.
    QProperty<bool> serviceMode{false};
    QProperty<quint32> markerColour{0}; ///< Of the service mode's marker, blue-green-red; 0: the highlight.
};

} // namespace orv
