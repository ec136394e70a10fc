// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "settings/loggersettings.h"

#include <QAbstractButton>
#include <QColor>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QWidget>

#include <functional>

namespace orv {

/// A label whose text can be selected, with the object name by which it is found.
QLabel* makeValueLabel(const QString& name, const QString& accessibleName);

/// A label that belongs to `buddy`: its mnemonic moves the focus there.
QLabel* makeCaption(const QString& text, QWidget* buddy);

QPushButton* makeButton(const QString& caption, const QString& name, const std::function<void()>& clicked,
                        const QString& toolTip = {});

/// Lets a check box or option button show the property and set it when the operator clicks.
void bindChecked(Bindings& bindings, QAbstractButton* button, QProperty<bool>& checked);

/// Whether the Tab key stops at an option button: only at the selected one of its group, the arrow keys go on from
/// there.
void setTabStop(QAbstractButton* option, bool on);

/// Lets two option buttons of one group show the property, one for each of its values, and set it.
void bindChoice(Bindings& bindings, QAbstractButton* whenTrue, QAbstractButton* whenFalse, QProperty<bool>& choice);

/// The lamp's colour: red while a report is read, yellow while settings are sent, green when they were sent, blue when
/// a report has been read; an invalid colour while it is off.
QColor lampColour(Lamp lamp);

/// What the lamp says, in words, for those who cannot tell it by its colour.
QString lampText(Lamp lamp);

/// The status lamp: a filled circle.
class StatusLamp final : public QWidget {
public:
    explicit StatusLamp(QWidget* parent = nullptr);

    void show(Lamp lamp);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Lamp lamp_ = Lamp::Off;
};

/// A tab strip on which no tab need be selected: none is until the operator chooses one, by the mouse, by a key or
/// through choose(), and none once it has been told that its tab is no longer the chosen one. The tab that was selected
/// last can then be chosen again.
class ChoiceTabBar final : public QTabBar {
public:
    explicit ChoiceTabBar(const QStringList& captions, QWidget* parent = nullptr);

    bool isChosen() const { return chosen_; }

    /// Whether the current tab is the chosen one; calls nobody.
    void setChosen(bool chosen);

    /// Selects a tab as the operator would.
    void choose(int index);

    /// Called with the caption of every tab that is chosen.
    std::function<void(const QString& caption)> tabChosen;

protected:
    void initStyleOption(QStyleOptionTab* option, int tabIndex) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool chosen_ = false;
};

/// From now on assistive programs hear a label that shows a value as "Status: Ready". By itself a label with an
/// accessible name is heard as "Status" and its value never. Further calls change nothing.
void speakLabelValues();

} // namespace orv
