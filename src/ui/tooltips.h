// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace orv {

/// Shows the long tool tips of controls in lines that fit a small screen: plain ones would stand in one line of any
/// length. Installed on the application; what a tool tip says stays with its control as it is, for assistive programs.
class ToolTips final : public QObject {
public:
    using QObject::QObject;

    /// With an end of line wherever a line would be longer than 60 letters, but for a longer word; those it has stay.
    static QString inLines(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace orv
