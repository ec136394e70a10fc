// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/controlbitspage.h"

#include "settings/screenparts.h"
#include "settings/statuslamp.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace orv {

namespace {

struct Flag {
    const char* caption;
    const char* name;
    const char* toolTip;
    QProperty<bool> LoggerSettings::*value;
};

constexpr Flag flags[] = {
    {"Auto &Start", "AutoStart", "Auto Start: This tells the logger to start collecting data at power up.",
     &LoggerSettings::autoStart},
    {"App&end", "Append",
     "Append: This tells the logger to add new data blocks to the end of memory. If this is not set, all pervious data "
     "blocks will be erased.",
     &LoggerSettings::append},
    {"&Log Enabled", "LogEnabled", "Log Enabled: This tells the logger to record data in memory",
     &LoggerSettings::logEnabled},
    {"&Wake Up", "WakeUp",
     "Wake Up: This tells the logger to sleep after gathering a data block or stay ready to accept a command.",
     &LoggerSettings::wakeUp},
    {"Aux A&DC", "AuxAdc", "Function not available", &LoggerSettings::auxAdc},
    {"&Gain", "Gain", "Function not available", &LoggerSettings::gain},
};

} // namespace

ControlBitsPage::ControlBitsPage(SettingsPanel& panel)
    : QGroupBox(QStringLiteral("Control Bits")) {
    setObjectName(QStringLiteral("ControlBitsFrame"));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    for (const Flag& flag : flags) {
        auto* box = new QCheckBox(QString::fromLatin1(flag.caption));
        box->setObjectName(QString::fromLatin1(flag.name));
        box->setToolTip(QString::fromLatin1(flag.toolTip));
        bindChecked(bindings_, box, panel.record.*flag.value);
        layout->addWidget(box, 0, Qt::AlignLeft);
    }
    layout->addStretch(1);

    auto* lamp = new StatusLamp;
    lamp->setObjectName(QStringLiteral("Lamp"));
    QLabel* words = makeValueLabel(QStringLiteral("LampText"), QStringLiteral("Status"));
    auto* row = new QHBoxLayout;
    row->addWidget(lamp);
    row->addWidget(words, 1);
    layout->addLayout(row);
    bindings_.bind(panel.lamp, [lamp, words](Lamp shown) {
        lamp->show(shown);
        words->setText(lampText(shown));
    });
}

} // namespace orv
