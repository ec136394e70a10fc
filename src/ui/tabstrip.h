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
    /// `captions`: in English; the tabs show them in the language of the screen.
    explicit ChoiceTabBar(QStringList captions, QWidget* parent = nullptr);

    /// The English caption of a tab; the empty text if there is no such tab.
    QString caption(int index) const { return captions_.value(index); }

    bool isChosen() const { return chosen_; }

    /// Whether the current tab is the chosen one; calls nobody.
    void setChosen(bool chosen);

    /// Selects a tab as the operator would.
    void choose(int index);

    /// Tells the English caption of every tab that is chosen.
    Signal<QString> tabChosen;

protected:
    void initStyleOption(QStyleOptionTab* option, int tabIndex) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QStringList captions_;
    bool chosen_ = false;
};

/// A strip with the name by which the program finds it and what is told of it.
ChoiceTabBar* makeStrip(const QStringList& captions, const char* name, const QString& accessibleName,
                        const QString& toolTip);

} // namespace orv
