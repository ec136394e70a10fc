// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/manualconnectiondialog.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orv {

ManualConnectionDialog::ManualConnectionDialog(ManualConnection& manual, QWidget* parent)
    : QDialog(parent)
    , manual_(manual) {
    setObjectName(QStringLiteral("ManualConnection"));
    setWindowTitle(QStringLiteral("Manual Connection"));
    setModal(false);

    auto* text = new QPlainTextEdit;
    text->setObjectName(QStringLiteral("ManualText"));
    text->setAccessibleName(QStringLiteral("What to do"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setMinimumSize(420, 110);
    const auto addButton = [](const QString& caption, const QString& name) {
        auto* button = new QPushButton(caption);
        button->setObjectName(name);
        button->setAutoDefault(false);
        return button;
    };
    auto* start = addButton(QStringLiteral("&Start"), QStringLiteral("ManualStart"));
    auto* proceed = addButton(QStringLiteral("&Proceed"), QStringLiteral("ManualProceed"));
    auto* retry = addButton(QStringLiteral("&Retry"), QStringLiteral("ManualRetry"));
    auto* quit = addButton(QStringLiteral("&Quit"), QStringLiteral("ManualQuit"));

    auto* buttons = new QHBoxLayout;
    // A double click on "Proceed" must not press "Start", which appears as it goes.
    buttons->addWidget(proceed);
    buttons->addWidget(retry);
    buttons->addWidget(start);
    buttons->addStretch(1);
    buttons->addWidget(quit);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text, 1);
    layout->addLayout(buttons);

    connect(start, &QPushButton::clicked, this, [this] { manual_.start(); });
    connect(proceed, &QPushButton::clicked, this, [this] { manual_.proceed(); });
    connect(retry, &QPushButton::clicked, this, [this] { manual_.retry(); });
    connect(quit, &QPushButton::clicked, this, [this] { manual_.quit(); });

    const ManualConnectionPanel& panel = manual.panel;
    bindings_.bind(panel.text, [text](const QString& shown) { text->setPlainText(shown); });
    bindings_.bind(panel.startVisible, [start](bool on) { start->setVisible(on); });
    bindings_.bind(panel.startEnabled, [start](bool on) { start->setEnabled(on); });
    bindings_.bind(panel.proceedVisible, [proceed](bool on) { proceed->setVisible(on); });
    bindings_.bind(panel.retryEnabled, [retry](bool on) { retry->setEnabled(on); });
    bindings_.bind(panel.visible, [this](bool on) { setVisible(on); });
}

void ManualConnectionDialog::reject() {
    manual_.closed();
}

} // namespace orv
