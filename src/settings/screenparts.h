// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>

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

} // namespace orv
