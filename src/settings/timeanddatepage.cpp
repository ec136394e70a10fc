// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/timeanddatepage.h"

#include "settings/screenparts.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>

namespace orv {

TimeAndDatePage::TimeAndDatePage(Session& session, SettingsPanel& panel, SettingsCommands& commands)
    : QGroupBox(QStringLiteral("Time and Date")) {
    setObjectName(QStringLiteral("TimeAndDateFrame"));
    auto* display = makeButton(QStringLiteral("&Display Logger Time/Date"), QStringLiteral("DisplayLoggerTimeDate"),
                               [&commands] { commands.displayLoggerTime(); });

    const auto makeClock = [](const QString& caption, const QString& name, const QString& toolTip) {
        auto* box = new QGroupBox(caption);
        box->setObjectName(name);
        box->setToolTip(toolTip);
        auto* form = new QFormLayout(box);
        form->setHorizontalSpacing(24);
        form->setVerticalSpacing(8);
        return form;
    };
    const auto addRow = [this](QFormLayout* form, const QString& caption, const QString& name, const QString& whose,
                               const QProperty<QString>& value) {
        QLabel* label = makeValueLabel(name, whose + caption);
        form->addRow(caption, label);
        bindings_.bind(value, [label](const QString& text) { label->setText(text); });
    };
    const QString time = QStringLiteral("Time");
    const QString date = QStringLiteral("Date");
    QFormLayout* computer = makeClock(QStringLiteral("Computer Time / Date"), QStringLiteral("ComputerTimeDate"),
                                      QStringLiteral("This is the computers Time and Date."));
    addRow(computer, time, QStringLiteral("ComputerTime"), QStringLiteral("Computer "), panel.computerTime);
    addRow(computer, date, QStringLiteral("ComputerDate"), QStringLiteral("Computer "), panel.computerDate);
    QFormLayout* logger = makeClock(QStringLiteral("Logger Time / Date"), QStringLiteral("LoggerTimeDate"),
                                    QStringLiteral("This is the Loggers Time and Date at last display."));
    addRow(logger, date, QStringLiteral("LoggerDate"), QStringLiteral("Logger "), panel.loggerDate);
    addRow(logger, time, QStringLiteral("LoggerTime"), QStringLiteral("Logger "), panel.loggerTime);

    auto* sync = new QCheckBox(QStringLiteral("&Sync Time/Date"));
    sync->setObjectName(QStringLiteral("SyncTimeDate"));
    sync->setToolTip(QStringLiteral("This tells the Host to set the Loggers Time and Date to that of the Computer. "
                                    "(Updated after send settings)"));
    bindChecked(bindings_, sync, panel.syncTimeDate);

    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(16);
    layout->addWidget(display, 0, 0, 1, 2, Qt::AlignLeft);
    layout->addWidget(computer->parentWidget(), 1, 0);
    layout->addWidget(logger->parentWidget(), 1, 1);
    layout->addWidget(sync, 2, 0, 1, 2, Qt::AlignLeft);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(3, 1);

    bindings_.bind(session.commands.canCommand, [display](bool on) { display->setEnabled(on); });
}

} // namespace orv
