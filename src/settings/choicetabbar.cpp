// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/choicetabbar.h"

#include <QKeyEvent>
#include <QStyleOptionTab>

namespace orv {

ChoiceTabBar::ChoiceTabBar(const QStringList& captions, QWidget* parent)
    : QTabBar(parent) {
    setExpanding(false);
    setUsesScrollButtons(true);
    for (const QString& caption : captions) {
        addTab(caption);
    }
    connect(this, &QTabBar::currentChanged, this, [this](int index) { choose(index); });
    // The first tab counts as the current one already, so a click on it changes nothing by itself.
    connect(this, &QTabBar::tabBarClicked, this, [this](int index) {
        if (!chosen_ && index == currentIndex()) {
            choose(index);
        }
    });
}

void ChoiceTabBar::choose(int index) {
    chosen_ = true;
    if (index != currentIndex()) {
        setCurrentIndex(index);
        return;
    }
    update();
    if (tabChosen) {
        tabChosen(tabText(index));
    }
}

void ChoiceTabBar::setChosen(bool chosen) {
    if (chosen_ != chosen) {
        chosen_ = chosen;
        update();
    }
}

void ChoiceTabBar::initStyleOption(QStyleOptionTab* option, int tabIndex) const {
    QTabBar::initStyleOption(option, tabIndex);
    if (!chosen_) {
        option->state &= ~QStyle::State_Selected;
        option->selectedPosition = QStyleOptionTab::NotAdjacent;
    }
}

void ChoiceTabBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!chosen_) {
            choose(currentIndex());
            return;
        }
        break;
    default:
        break;
    }
    QTabBar::keyPressEvent(event);
}

} // namespace orv
