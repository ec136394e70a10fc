// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tabstrip.h"

#include "base/words.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPointer>
#include <QStyleOptionTab>

#include <vector>

namespace orv {

namespace {

/// A tab for assistive programs.
class SpokenTab final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    SpokenTab(ChoiceTabBar* strip, int index)
        : strip_(strip)
        , index_(index) {}

    bool isValid() const override { return strip_ && index_ < strip_->count(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(strip_); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QWindow* window() const override { return isValid() ? parent()->window() : nullptr; }

    QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect place = strip_->tabRect(index_);
        return {strip_->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const bool current = index_ == strip_->currentIndex();
        state = parent()->state();
        state.focused = current && strip_->hasFocus();
        state.selectable = true;
        state.selected = current && strip_->isChosen();
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        return isValid() && kind == QAccessible::Name ? strip_->tabText(index_).remove(u'&') : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }
    void doAction(const QString& action) override {
        if (isValid() && strip_->isEnabled() && action == pressAction()) {
            strip_->choose(index_);
        }
    }

private:
    QPointer<ChoiceTabBar> strip_;
    int index_;
};

/// The strip, with its tabs as children. Qt's own lets only a tab be pressed that is not the current one.
class SpokenStrip final : public QAccessibleWidget {
public:
    explicit SpokenStrip(ChoiceTabBar* strip)
        : QAccessibleWidget(strip, QAccessible::PageTabList)
        , strip_(strip) {}
    ~SpokenStrip() override {
        for (const QAccessible::Id tab : tabs_) {
            QAccessible::deleteAccessibleInterface(tab);
        }
    }
    SpokenStrip(const SpokenStrip&) = delete;
    SpokenStrip& operator=(const SpokenStrip&) = delete;

    // It may be asked for before the strip has its tabs.
    int childCount() const override { return strip_ ? strip_->count() : 0; }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        while (static_cast<int>(tabs_.size()) <= index) {
            auto* tab = new SpokenTab(strip_, static_cast<int>(tabs_.size()));
            tabs_.push_back(QAccessible::registerAccessibleInterface(tab));
        }
        return QAccessible::accessibleInterface(tabs_[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        int index = childCount() - 1;
        while (index >= 0 && child(index) != wanted) {
            --index;
        }
        return index;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return strip_ ? child(strip_->tabAt(strip_->mapFromGlobal(QPoint(x, y)))) : nullptr;
    }

private:
    QPointer<ChoiceTabBar> strip_;
    mutable std::vector<QAccessible::Id> tabs_;
};

QAccessibleInterface* makeSpokenStrip(const QString& /*className*/, QObject* object) {
    auto* strip = dynamic_cast<ChoiceTabBar*>(object);
    return strip == nullptr ? nullptr : new SpokenStrip(strip);
}

} // namespace

ChoiceTabBar::ChoiceTabBar(QStringList captions, QWidget* parent)
    : QTabBar(parent)
    , captions_(std::move(captions)) {
    setExpanding(false);
    setUsesScrollButtons(true);
    for (const QString& caption : std::as_const(captions_)) {
        addTab(Screen::shown(caption));
    }
    QAccessible::installFactory(makeSpokenStrip);
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
    tabChosen.tell(caption(index));
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

ChoiceTabBar* makeStrip(const QStringList& captions, const char* name, const QString& accessibleName,
                        const QString& toolTip) {
    auto* strip = new ChoiceTabBar(captions);
    strip->setObjectName(QLatin1String(name));
    strip->setAccessibleName(accessibleName);
    strip->setToolTip(toolTip);
    strip->setDrawBase(false);
    return strip;
}

} // namespace orv
