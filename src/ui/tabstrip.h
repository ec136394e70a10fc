// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"

#include <QTabBar>

namespace orv {

/// A tab strip on which no tab need be selected: none is until the operator chooses one, by the mouse, by a key, by an
/// assistive program or through choose(), and none once it has been told that its tab is no longer the chosen one. The
/// tab that was selected last can then be chosen again.
class ChoiceTabBar final : public QTabBar {
public:
    explicit ChoiceTabBar(const QStringList& captions, QWidget* parent = nullptr);

    bool isChosen() const { return chosen_; }

    /// Whether the current tab is the chosen one; calls nobody.
    void setChosen(bool chosen);

    /// Selects a tab as the operator would.
    void choose(int index);

    /// Tells the caption of every tab that is chosen.
    Signal<QString> tabChosen;

protected:
    void initStyleOption(QStyleOptionTab* option, int tabIndex) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool chosen_ = false;
};

/// A strip with the name by which the program finds it and what is told of it.
ChoiceTabBar* makeStrip(const QStringList& captions, const char* name, const char* accessibleName, const char* toolTip);

} // namespace orv
