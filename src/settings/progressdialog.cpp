// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/progressdialog.h"

#include "settings/screenparts.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QVBoxLayout>

#include <algorithm>

namespace orv {

ProgressDialog::ProgressDialog(ProgressPanel& panel, QWidget* parent)
    : QDialog(parent)
    , panel_(panel) {
    setObjectName(QStringLiteral("Processing"));
    setWindowTitle(QStringLiteral("Processing"));
    setModal(false);

    auto* bar = new QProgressBar;
    bar->setObjectName(QStringLiteral("ProgressBar"));
    bar->setAccessibleName(QStringLiteral("Progress"));
    bar->setTextVisible(false); // the labels tell it
    QLabel* label = makeValueLabel(QStringLiteral("ProgressLabel"), QStringLiteral("What is counted"));
    QLabel* value = makeValueLabel(QStringLiteral("ProgressValue"), QStringLiteral("Value"));
    QLabel* percentage = makeValueLabel(QStringLiteral("ProgressPercentage"), QStringLiteral("Percentage"));
    QPushButton* abortButton = makeButton(
        QStringLiteral("&Abort"), QStringLiteral("Abort"),
        [this] {
            if (abort) {
                abort();
            }
        },
        QStringLiteral("A download is stopped with \"Reset\" on the main window."));

    auto* labels = new QHBoxLayout;
    labels->setSpacing(12);
    labels->addWidget(label);
    labels->addWidget(value);
    labels->addStretch(1);
    labels->addWidget(percentage);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(abortButton);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(labels);
    layout->addWidget(bar);
    layout->addStretch(1);
    layout->addLayout(buttons);
    constexpr int comfortableWidth = 360;
    setMinimumWidth(comfortableWidth);

    const auto drawBar = [this, bar] {
        const int maximum = std::max(panel_.maximum.value(), 1);
        bar->setRange(0, maximum);
        bar->setValue(std::clamp(panel_.value.value(), 0, maximum));
    };
    const auto follow = [this](const QProperty<QString>& text, QLabel* shown) {
        bindings_.bind(text, [shown](const QString& now) { shown->setText(now); });
    };
    bindings_.bind(panel.maximum, [drawBar](int /*maximum*/) { drawBar(); });
    bindings_.bind(panel.value, [drawBar](int /*value*/) { drawBar(); });
    follow(panel.label, label);
    follow(panel.valueLabel, value);
    follow(panel.percentage, percentage);
    bindings_.bind(panel.visible, [this](bool on) { setVisible(on); });
}

void ProgressDialog::reject() {
    panel_.visible = false;
}

} // namespace orv
