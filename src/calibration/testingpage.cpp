// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/testingpage.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orv {

TestingPage::TestingPage(Session& session, const std::function<void()>& resetShutter, QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("TestingPage"));
    auto* frame = new QGroupBox(QStringLiteral("Testing"));
    auto* layout = new QVBoxLayout(frame);

    auto* explanation = new QLabel(QStringLiteral(
        "Brings the shutter back to its rest position. The instrument only moves it with particular settings, so its "
        "own are read and kept, temporary ones are sent, the shutter moves for about half a minute, and the settings "
        "from before are sent back.\n\nLeave the cable in its place until the settings have been read back. \"Reset\", "
        "\"Close Port\" and \"Quit\" interrupt the reset; the instrument may then still hold the temporary settings."));
    explanation->setWordWrap(true);
    layout->addWidget(explanation);

    auto* button = new QPushButton(QStringLiteral("&Reset Shutter"));
    button->setObjectName(QStringLiteral("ResetShutter"));
    button->setToolTip(QStringLiteral("Moves the shutter to its rest position; takes up to a minute and a half."));
    QObject::connect(button, &QPushButton::clicked, this, resetShutter);
    bindings_.bind(session.commands.canResetShutter, [button](bool can) { button->setEnabled(can); });
    bindings_.bind(session.commands.resetShutterVisible, [button](bool visible) { button->setVisible(visible); });
    layout->addWidget(button, 0, Qt::AlignLeft);
    layout->addWidget(makeProgress(session));
    layout->addStretch();

    auto* pageLayout = new QVBoxLayout(this);
    pageLayout->addWidget(frame);
}

QWidget* TestingPage::makeProgress(Session& session) {
    auto* panel = new QWidget;
    auto* form = new QFormLayout(panel);
    form->setContentsMargins(0, 0, 0, 0);

    auto* status = new QLabel;
    status->setObjectName(QStringLiteral("TestingStatus"));
    status->setAccessibleName(QStringLiteral("Status"));
    bindings_.bind(session.status.status, [status](const QString& text) { status->setText(text); });
    form->addRow(QStringLiteral("Status:"), status);

    auto* progress = new QLineEdit;
    progress->setObjectName(QStringLiteral("TestingProgress"));
    progress->setReadOnly(true);
    QPalette shown = progress->palette();
    shown.setColor(QPalette::Base, shown.color(QPalette::Window)); // nothing can be typed here
    progress->setPalette(shown);
    progress->setAccessibleName(QStringLiteral("Progress of the shutter reset"));
    progress->setToolTip(QStringLiteral("The step of the shutter reset under way."));
    bindings_.bind(session.status.shutterProgress, [progress](const QString& text) { progress->setText(text); });

    auto* countdown = new QLabel;
    countdown->setObjectName(QStringLiteral("TestingCountdown"));
    countdown->setAccessibleName(QStringLiteral("Time left"));
    countdown->setToolTip(QStringLiteral("How long the shutter still moves."));
    countdown->setMinimumWidth(countdown->fontMetrics().horizontalAdvance(QStringLiteral("00 s ")));
    bindings_.bind(session.status.shutterCountdown, [countdown](const QString& text) { countdown->setText(text); });

    auto* row = new QHBoxLayout;
    row->addWidget(progress, 1);
    row->addWidget(countdown);
    auto* caption = new QLabel(QStringLiteral("Pro&gress:"));
    caption->setBuddy(progress);
    form->addRow(caption, row);
    return panel;
}

} // namespace orv
