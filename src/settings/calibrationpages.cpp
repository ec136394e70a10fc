// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/calibrationpages.h"

#include "settings/numberbox.h"
#include "settings/screenparts.h"

#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

namespace orv {

namespace {

QString offsetColumn() {
    return QStringLiteral("Clean Water Offset");
}

NumberBox* makeBox(const QString& name, const QString& accessibleName, QProperty<QString>& value) {
    NumberBox* box = NumberBox::forDecimals();
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->follow(value);
    return box;
}

QRadioButton* makeOption(const QString& caption, const QString& name) {
    auto* option = new QRadioButton(caption);
    option->setObjectName(name);
    return option;
}

/// The lower part of either frame: two options and the device file buttons.
QLayout* makeFoot(QRadioButton* calculate, QRadioButton* raw, QPushButton* load, QPushButton* save) {
    auto* options = new QVBoxLayout;
    options->setSpacing(8);
    options->addWidget(calculate);
    options->addWidget(raw);
    options->addStretch(1);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(load);
    buttons->addWidget(save);
    buttons->addStretch(1);
    auto* foot = new QHBoxLayout;
    foot->addLayout(options);
    foot->addStretch(1);
    foot->addLayout(buttons);
    return foot;
}

} // namespace

TrxCalibrationPage::TrxCalibrationPage(SettingsPanel& panel, SettingsActions& actions)
    : QGroupBox(QStringLiteral("TRX Calibration: Offsets and B calculations")) {
    setObjectName(QStringLiteral("TrxCalibrationFrame"));
    auto* angles = new QGridLayout;
    addAngles(angles, panel);
    auto* calculate = makeOption(QStringLiteral("Calc &B Values"), QStringLiteral("CalcBValues"));
    auto* raw = makeOption(QStringLiteral("&Provide Raw Counts"), QStringLiteral("TrxProvideRawCounts"));
    bindChoice(bindings_, raw, calculate, panel.trxProvideRawCounts);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(20);
    layout->addLayout(angles);
    layout->addLayout(makeFoot(calculate, raw,
                               makeButton(QStringLiteral("&Load Device File"), QStringLiteral("Command6"),
                                          [&actions] { actions.loadDeviceFile(); }),
                               makeButton(QStringLiteral("&Save Device File"), QStringLiteral("Command11"),
                                          [&actions] { actions.saveDeviceFile(); })),
                      1);
}

void TrxCalibrationPage::addAngles(QGridLayout* layout, SettingsPanel& panel) {
    struct Angle {
        const char* caption;
        const char* offset;
        const char* scale;
    };
    constexpr Angle angles[] = {
        {"Angle &100 (l1)", "Text10", "Text13"},
        {"Angle 1&25 (l2)", "Text8", "Text11"},
        {"Angle 1&50 (l3)", "Text9", "Text12"},
    };
    const QString scaleColumn = QStringLiteral("1/mC");
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(8);
    layout->setColumnStretch(3, 1);
    layout->addWidget(new QLabel(offsetColumn()), 0, 1);
    layout->addWidget(new QLabel(scaleColumn), 0, 2);
    int row = 1;
    for (const Angle& angle : angles) {
        CalibrationBoxes& boxes = panel.trxCalibration.at(static_cast<std::size_t>(row - 1));
        const QString caption = QString::fromLatin1(angle.caption);
        const QString name = QString(caption).remove(QLatin1Char('&')) + QStringLiteral(", ");
        NumberBox* offset = makeBox(QString::fromLatin1(angle.offset), name + offsetColumn(), boxes.offset);
        layout->addWidget(makeCaption(caption, offset), row, 0);
        layout->addWidget(offset, row, 1);
        layout->addWidget(makeBox(QString::fromLatin1(angle.scale), name + scaleColumn, boxes.scale), row, 2);
        ++row;
    }
}

GlowCalibrationPage::GlowCalibrationPage(SettingsPanel& panel)
    : QGroupBox(QStringLiteral("GLW Calibration: Offsets and B calculations")) {
    setObjectName(QStringLiteral("GlowCalibrationFrame"));
    const QString unit = QStringLiteral("ug/IC");
    NumberBox* offset = makeBox(QStringLiteral("GlowOffset"), offsetColumn(), panel.glowCalibration.offset);
    NumberBox* scale = makeBox(QStringLiteral("GlowScale"), unit, panel.glowCalibration.scale);
    // Reads as the formula by which counts become a concentration: counts less the offset, times the scale.
    auto* formula = new QGridLayout;
    formula->setHorizontalSpacing(8);
    formula->setVerticalSpacing(8);
    formula->addWidget(new QLabel(offsetColumn()), 0, 2);
    formula->addWidget(new QLabel(QStringLiteral("Fchl =")), 1, 0);
    formula->addWidget(makeCaption(QStringLiteral("C&ounts -"), offset), 1, 1);
    formula->addWidget(offset, 1, 2);
    formula->setColumnMinimumWidth(3, 16);
    formula->addWidget(scale, 1, 4);
    formula->addWidget(makeCaption(QStringLiteral("u&g/IC"), scale), 1, 5);
    formula->setColumnStretch(6, 1);

    auto* calculate =
        makeOption(QStringLiteral("Calc Consentration in &ug/L"), QStringLiteral("CalcConsentrationInUgL"));
    auto* raw = makeOption(QStringLiteral("&Provide Raw Counts"), QStringLiteral("GlowProvideRawCounts"));
    bindChoice(bindings_, raw, calculate, panel.glowProvideRawCounts);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(20);
    layout->addLayout(formula);
    // Device files hold the scattering meter's six values; a fluorometer has none, so its two buttons do nothing.
    const auto nothing = [] {};
    const QString toolTip = QStringLiteral("Device files are for the TRX only.");
    layout->addLayout(
        makeFoot(calculate, raw,
                 makeButton(QStringLiteral("&Load Device File"), QStringLiteral("Command13"), nothing, toolTip),
                 makeButton(QStringLiteral("&Save Device File"), QStringLiteral("Command12"), nothing, toolTip)),
        1);
}

} // namespace orv
