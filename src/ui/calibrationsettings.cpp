// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/words.h"
#include "ui/numberbox.h"
#include "ui/settingspage.h"
#include "ui/settingspages.h"
#include "ui/widgets.h"

#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

namespace orv {

namespace {

QString offsetColumn() {
    return Screen::tr("Clean Water Offset");
}

/// `remarks` gets the place for what is wrong with the text in the box.
NumberBox* makeBox(const QString& name, const QString& accessibleName, QProperty<QString>& value,
                   QVBoxLayout* remarks) {
    NumberBox* box = NumberBox::forDecimals();
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->follow(value);
    QLabel* remark = makeValueLabel(name + QLatin1String("Remark"), Screen::tr("Remark"));
    remark->setWordWrap(true);
    remarks->addWidget(remark);
    box->showProblem(remark);
    return box;
}

/// The lower part of either frame: whether raw counts are provided, and the device file buttons.
QLayout* makeFoot(SettingsPage* page, QProperty<bool>& provideRawCounts, QRadioButton* calculate, const char* rawName,
                  QPushButton* load, QPushButton* save) {
    auto* raw = makeOption(Screen::tr("&Provide Raw Counts"), rawName);
    bindChoice(page->bindings, raw, calculate, provideRawCounts);
    auto* foot = new QHBoxLayout;
    const auto addColumn = [foot](QWidget* upper, QWidget* lower) {
        auto* column = new QVBoxLayout;
        column->setSpacing(8);
        column->addWidget(upper);
        column->addWidget(lower);
        column->addStretch(1);
        foot->addLayout(column);
    };
    addColumn(calculate, raw);
    foot->addStretch(1);
    addColumn(load, save);
    return foot;
}

/// The other pages' settings are sent, these are not.
QLabel* makeUse(const char* name) {
    QLabel* use = makeValueLabel(name, Screen::tr("Description"));
    use->setText(Screen::tr("Nothing of this page is sent: it acts on the rows that come from now on."));
    use->setWordWrap(true);
    return use;
}

/// The place for remarks, with the room of one, so that nothing moves for it.
QWidget* makeRoomForRemark() {
    auto* room = new QWidget;
    auto* layout = new QVBoxLayout(room);
    layout->setContentsMargins(0, 0, 0, 0);
    room->setMinimumHeight(room->fontMetrics().lineSpacing());
    return room;
}

QGridLayout* makeAngles(SettingsState& shown, QVBoxLayout* remarks) {
    struct Angle {
        const char* caption;
        const char* offset;
        const char* scale;
    };
    constexpr Angle angles[] = {
        {QT_TRANSLATE_NOOP("orv", "Angle &100 (l1)"), "Text10", "Text13"},
        {QT_TRANSLATE_NOOP("orv", "Angle 1&25 (l2)"), "Text8", "Text11"},
        {QT_TRANSLATE_NOOP("orv", "Angle 1&50 (l3)"), "Text9", "Text12"},
    };
    const QString scaleColumn = QStringLiteral("1/mC");
    auto* layout = makeGrid(16, 8);
    layout->setColumnStretch(3, 1);
    layout->addWidget(new QLabel(offsetColumn()), 0, 1);
    layout->addWidget(new QLabel(scaleColumn), 0, 2);
    int row = 1;
    for (const Angle& angle : angles) {
        CalibrationBoxes& boxes = shown.trxCalibration.at(static_cast<std::size_t>(row - 1));
        const QString caption = Screen::tr(angle.caption);
        const QString name = QString(caption).remove(u'&') + QStringLiteral(", ");
        NumberBox* offset = makeBox(QString::fromLatin1(angle.offset), name + offsetColumn(), boxes.offset, remarks);
        layout->addWidget(makeCaption(caption, offset), row, 0);
        layout->addWidget(offset, row, 1);
        layout->addWidget(makeBox(QString::fromLatin1(angle.scale), name + scaleColumn, boxes.scale, remarks), row, 2);
        ++row;
    }
    return layout;
}

} // namespace

QWidget* makeTrxCalibrationPage(Program& program) {
    auto* page = new SettingsPage(Screen::tr("TRX Calibration: Offsets and B calculations"), "TrxCalibrationFrame");
    DeviceFiles& files = program.settings.deviceFiles;
    auto* load = makeButton(Screen::tr("&Load Device File"), "Command6", [&files] { files.loadDeviceFile(); });
    auto* save = makeButton(Screen::tr("&Save Device File"), "Command11", [&files] { files.saveDeviceFile(); });
    for (QPushButton* button : {load, save}) {
        bindEnabled(page->bindings, button, program.link.session.commands.canAsk);
    }
    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(20);
    auto* remarks = makeRoomForRemark();
    layout->addLayout(makeAngles(program.settings.shown, static_cast<QVBoxLayout*>(remarks->layout())));
    layout->addWidget(remarks);
    layout->addLayout(makeFoot(page, program.settings.shown.trxProvideRawCounts,
                               makeOption(Screen::tr("Calc &B Values"), "CalcBValues"), "TrxProvideRawCounts", load,
                               save));
    layout->addWidget(makeUse("TrxCalibrationUse"), 1, Qt::AlignTop);
    return page;
}

QWidget* makeGlowCalibrationPage(Program& program) {
    auto* page = new SettingsPage(Screen::tr("GLW Calibration: Offsets and B calculations"), "GlowCalibrationFrame");
    CalibrationBoxes& boxes = program.settings.shown.glowCalibration;
    auto* room = makeRoomForRemark();
    auto* remarks = static_cast<QVBoxLayout*>(room->layout());
    NumberBox* offset = makeBox(QStringLiteral("GlowOffset"), offsetColumn(), boxes.offset, remarks);
    NumberBox* scale = makeBox(QStringLiteral("GlowScale"), QStringLiteral("ug/IC"), boxes.scale, remarks);
    // Reads as the formula by which counts become a concentration: counts less the offset, times the scale.
    auto* formula = makeGrid(8, 8);
    formula->addWidget(new QLabel(offsetColumn()), 0, 2);
    formula->addWidget(new QLabel(QStringLiteral("Fchl =")), 1, 0);
    formula->addWidget(makeCaption(Screen::tr("C&ounts -"), offset), 1, 1);
    formula->addWidget(offset, 1, 2);
    formula->setColumnMinimumWidth(3, 16);
    formula->addWidget(scale, 1, 4);
    formula->addWidget(makeCaption("u&g/IC", scale), 1, 5);
    formula->setColumnStretch(6, 1);

    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(20);
    layout->addLayout(formula);
    layout->addWidget(room);
    // Device files hold the scattering meter's six values; a fluorometer has none, so its two buttons do nothing.
    const auto nothing = [] {};
    const QString toolTip = Screen::tr("Device files are for the TRX only.");
    layout->addLayout(makeFoot(page, program.settings.shown.glowProvideRawCounts,
                               makeOption(Screen::tr("Calc Consentration in &ug/L"), "CalcConsentrationInUgL"),
                               "GlowProvideRawCounts",
                               makeButton(Screen::tr("&Load Device File"), "Command13", nothing, toolTip),
                               makeButton(Screen::tr("&Save Device File"), "Command12", nothing, toolTip)));
    layout->addWidget(makeUse("GlowCalibrationUse"), 1, Qt::AlignTop);
    return page;
}

} // namespace orv
