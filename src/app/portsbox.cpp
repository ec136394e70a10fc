// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/portsbox.h"

#include "app/portchooser.h"

#include <QGridLayout>
#include <QLabel>

namespace orv {

namespace {

constexpr int refreshInterval = 2000; ///< Milliseconds.
constexpr int gapBetween = 24;        ///< Between the two choosers, in pixels.

} // namespace

PortsBox::PortsBox(PortChoices& choices)
    : QGroupBox(QStringLiteral("Ports"))
    , choices_(choices) {
    setObjectName(QStringLiteral("PortsBox"));
    auto* layout = new QGridLayout(this);
    addChooser(*layout, 1);
    addChooser(*layout, 2);
    layout->setColumnMinimumWidth(2, gapBetween);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(4, 1);
    refreshTimer_.setObjectName(QStringLiteral("PortRefresh"));
    refreshTimer_.setInterval(refreshInterval);
    refreshTimer_.setTimerType(Qt::VeryCoarseTimer);
    connect(&refreshTimer_, &QTimer::timeout, this, [this] { choices_.refreshIfChanged(); });
}

void PortsBox::addChooser(QGridLayout& layout, int portNumber) {
    const int column = portNumber == 1 ? 0 : 3;
    auto* chooser = new PortChooser(choices_, portNumber);
    auto* caption = new QLabel(QStringLiteral("COM &%1").arg(portNumber));
    caption->setBuddy(chooser);
    auto* problem = new QLabel;
    problem->setObjectName(QStringLiteral("PortProblem%1").arg(portNumber));
    problem->setAccessibleName(QStringLiteral("What is wrong with the device for COM %1").arg(portNumber));
    problem->setTextFormat(Qt::PlainText);
    problem->setWordWrap(true);
    // One long word in it must not make the window wider.
    problem->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    layout.addWidget(caption, 0, column);
    layout.addWidget(chooser, 0, column + 1);
    layout.addWidget(problem, 1, column + 1, Qt::AlignTop);
    bindings_.bind(choices_.panel[portNumber].problem, [problem](const QString& text) {
        problem->setText(text);
        problem->setToolTip(text);
        problem->setVisible(!text.isEmpty());
    });
}

void PortsBox::showEvent(QShowEvent* event) {
    refreshTimer_.start();
    QGroupBox::showEvent(event);
}

void PortsBox::hideEvent(QHideEvent* event) {
    refreshTimer_.stop();
    QGroupBox::hideEvent(event);
}

} // namespace orv
