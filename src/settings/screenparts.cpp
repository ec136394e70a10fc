// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/screenparts.h"

namespace orv {

QLabel* makeValueLabel(const QString& name, const QString& accessibleName) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel* makeCaption(const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

QPushButton* makeButton(const QString& caption, const QString& name, const std::function<void()>& clicked,
                        const QString& toolTip) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button, clicked);
    return button;
}

void bindChecked(Bindings& bindings, QAbstractButton* button, QProperty<bool>& checked) {
    bindings.bind(checked, [button](bool on) { button->setChecked(on); });
    QObject::connect(button, &QAbstractButton::clicked, button, [&checked](bool on) { checked = on; });
}

void setTabStop(QAbstractButton* option, bool on) {
    option->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
}

void bindChoice(Bindings& bindings, QAbstractButton* whenTrue, QAbstractButton* whenFalse, QProperty<bool>& choice) {
    bindings.bind(choice, [whenTrue, whenFalse](bool on) {
        (on ? whenTrue : whenFalse)->setChecked(true);
        setTabStop(whenTrue, on);
        setTabStop(whenFalse, !on);
    });
    QObject::connect(whenTrue, &QAbstractButton::clicked, whenTrue, [&choice] { choice = true; });
    QObject::connect(whenFalse, &QAbstractButton::clicked, whenFalse, [&choice] { choice = false; });
}

} // namespace orv
