// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settingspages.h"

#include "ui/numberbox.h"
#include "ui/widgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace orv {

namespace {

constexpr int maximumOfFiveDigits = 65535;

// The rows of the frame: the four numbers, the memory used, and what there is to remark on the numbers.
constexpr int capacityRow = 4;
constexpr int firstRemarkRow = 5;

/// The access key of a rate is its last digit, of "1/2" the stroke: "2" has it already.
QString withKey(QString caption) {
    const bool half = caption == QLatin1String("1/2");
    return caption.insert(half ? caption.indexOf(u'/') : caption.size() - 1, u'&');
}

} // namespace

SamplesPage::SamplesPage(Session& session, SettingsState& shown, SettingsCommands& commands)
    : QGroupBox(QStringLiteral("Samples and Intervals")) {
    setObjectName(QStringLiteral("SamplesFrame"));
    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(8);
    layout->setColumnStretch(2, 1);
    addNumbers(layout, shown.record, makeOptions(session, shown, commands));
    addCapacity(layout, shown);
    layout->setRowStretch(layout->rowCount(), 1);
}

void SamplesPage::addNumbers(QGridLayout* layout, QProperty<LoggerSettings>& record, QWidget* options) {
    int row = 0;
    for (const Setting& setting : numberSettings) {
        NumberBox* box = NumberBox::forDigits(setting.digits);
        box->setObjectName(QString::fromLatin1(setting.control));
        box->setToolTip(QString::fromLatin1(setting.toolTip));
        box->setAccessibleName(setting.plainCaption());
        box->follow(record, setting.number);
        layout->addWidget(makeCaption(QString::fromLatin1(setting.caption), box), row, 0);
        layout->addWidget(box, row, 1);
        if (row == 0) {
            layout->addWidget(options, row, 2);
        } else if (row == 1) {
            // Stands over the two boxes of five digits, like the head of a column.
            layout->addWidget(new QLabel(QStringLiteral("Max Values")), row, 2);
        } else {
            layout->addWidget(new QLabel(QString::number(maximumOfFiveDigits)), row, 2);
            box->markOver(maximumOfFiveDigits, makeRemark(layout, *box));
        }
        ++row;
    }
}

std::function<void(const QString&)> SamplesPage::makeRemark(QGridLayout* layout, const NumberBox& box) {
    QLabel* remark = makeValueLabel(box.objectName() + QStringLiteral("Remark"), QStringLiteral("Remark"));
    remark->setWordWrap(true);
    remark->hide();
    layout->addWidget(remark, std::max(layout->rowCount(), firstRemarkRow), 0, 1, 3);
    return [remark, caption = box.accessibleName()](const QString& text) {
        remark->setText(text.isEmpty() ? text : caption + QStringLiteral(": ") + text);
        remark->setVisible(!text.isEmpty());
    };
}

void SamplesPage::addCapacity(QGridLayout* layout, SettingsState& shown) {
    const QString caption = QStringLiteral("Logger Capacity (% full)");
    const QString toolTip = QStringLiteral("This is the % of data memory used in the logger.");
    QLabel* capacity = makeValueLabel(QStringLiteral("LoggerCapacity"), caption);
    QLabel* pointer = makeValueLabel(QStringLiteral("MemoryPointer"), QStringLiteral("Memory pointer"));
    auto* name = new QLabel(caption);
    name->setToolTip(toolTip);
    capacity->setToolTip(toolTip);
    pointer->setToolTip(QStringLiteral("Memory pointer as the logger reports it, 0 to 65525."));
    layout->addWidget(name, capacityRow, 0);
    layout->addWidget(capacity, capacityRow, 1);
    layout->addWidget(pointer, capacityRow, 2);
    bindings_.bind(shown.capacity, [capacity](const QString& text) { capacity->setText(text); });
    bindings_.bind(shown.memoryPointer, [pointer](const QString& text) { pointer->setText(text); });
}

QWidget* SamplesPage::makeOptions(Session& session, SettingsState& shown, SettingsCommands& commands) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    auto* group = new QButtonGroup(row);
    int option = 0;
    for (QRadioButton*& button : options_) {
        ++option;
        button = new QRadioButton;
        button->setObjectName(QStringLiteral("SamplingOption%1").arg(option));
        group->addButton(button);
        layout->addWidget(button);
        // Only the operator's choice writes the preset; an option that a report selects must leave the text alone.
        connect(button, &QRadioButton::clicked, this, [&commands, option] { commands.chooseSamplingOption(option); });
    }
    layout->addStretch(1);
    bindings_.bind(session.status.instrument, [this](InstrumentType type) {
        const auto presets = samplingPresets(type == InstrumentType::Glow);
        for (std::size_t i = 0; i < options_.size(); ++i) {
            options_.at(i)->setText(withKey(presets.at(i).caption));
            options_.at(i)->setAccessibleName(presets.at(i).caption + QStringLiteral(" data points per second"));
        }
    });
    bindings_.bind(shown.samplingOption, [this](int selected) { select(selected); });
    return row;
}

void SamplesPage::select(int option) {
    QButtonGroup* group = options_.front()->group();
    const bool known = option >= 1 && option <= 4;
    // A group that insists on a selection cannot lose it.
    group->setExclusive(known);
    int number = 0;
    for (QRadioButton* button : options_) {
        ++number;
        button->setChecked(number == option);
        setTabStop(button, known ? number == option : number == 1);
    }
    group->setExclusive(true);
}

ControlBitsPage::ControlBitsPage(SettingsState& shown)
    : QGroupBox(QStringLiteral("Control Bits")) {
    setObjectName(QStringLiteral("ControlBitsFrame"));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    for (const Setting* setting : settingsInOrder("SMLWAG")) {
        auto* box = new QCheckBox(QString::fromLatin1(setting->caption));
        box->setObjectName(QString::fromLatin1(setting->control));
        box->setToolTip(QString::fromLatin1(setting->toolTip));
        bindings_.bind(shown.record,
                       [box, flag = setting->flag](const LoggerSettings& now) { box->setChecked(now.*flag); });
        connect(box, &QAbstractButton::clicked, this, [&record = shown.record, flag = setting->flag](bool on) {
            change(record, [flag, on](LoggerSettings& changed) { changed.*flag = on; });
        });
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
    bindings_.bind(shown.lamp, [lamp, words](Lamp now) {
        lamp->show(now);
        words->setText(lampText(now));
    });
}

TimeAndDatePage::TimeAndDatePage(Session& session, SettingsState& shown, SettingsCommands& commands)
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
    addRow(computer, time, QStringLiteral("ComputerTime"), QStringLiteral("Computer "), shown.computerTime);
    addRow(computer, date, QStringLiteral("ComputerDate"), QStringLiteral("Computer "), shown.computerDate);
    QFormLayout* logger = makeClock(QStringLiteral("Logger Time / Date"), QStringLiteral("LoggerTimeDate"),
                                    QStringLiteral("This is the Loggers Time and Date at last display."));
    addRow(logger, date, QStringLiteral("LoggerDate"), QStringLiteral("Logger "), shown.loggerDate);
    addRow(logger, time, QStringLiteral("LoggerTime"), QStringLiteral("Logger "), shown.loggerTime);

    auto* sync = new QCheckBox(QStringLiteral("&Sync Time/Date"));
    sync->setObjectName(QStringLiteral("SyncTimeDate"));
    sync->setToolTip(QStringLiteral("This tells the Host to set the Loggers Time and Date to that of the Computer. "
                                    "(Updated after send settings)"));
    bindChecked(bindings_, sync, shown.syncTimeDate);

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

namespace {

QLabel* makeDescription(const QString& text, const QString& name) {
    QLabel* label = makeValueLabel(name, QStringLiteral("Description"));
    label->setText(text);
    label->setWordWrap(true);
    return label;
}

QFrame* makeLine() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

ModesPage::ModesPage(Session& session, SettingsState& shown, Modes& modes, const std::function<void()>& viewAsText)
    : QGroupBox(QStringLiteral("Modes")) {
    setObjectName(QStringLiteral("ModesFrame"));
    auto* profile = makeButton(QStringLiteral("&Profile"), QStringLiteral("Profile"), [&modes] { modes.profile(); });
    auto* moored = makeButton(QStringLiteral("&Moored"), QStringLiteral("Moored"), [&modes] { modes.moored(); });
    auto* save = makeButton(QStringLiteral("&Save A User Defined Mode"), QStringLiteral("SaveAUserDefinedMode"),
                            [&modes] { modes.saveMode(); });
    auto* load = makeButton(QStringLiteral("&Load A User Defined Mode"), QStringLiteral("LoadAUserDefinedMode"),
                            [&modes] { modes.loadMode(); });
    auto* view = makeButton(QStringLiteral("&View Current Settings Transcribed as Text"),
                            QStringLiteral("ViewCurrentSettingsTranscribedAsText"), viewAsText);
    auto* profileText =
        makeDescription(QStringLiteral("This mode Autostarts, takes 1 data point per second, and repeats "
                                       "this indefinatly. Data is NOT logged."),
                        QStringLiteral("ProfileDescription"));
    auto* mooredText = makeDescription(QStringLiteral("This Mode Autostarts, takes 1 data point per second. It repeats "
                                                      "once an hour. It logs up to 60000 data points."),
                                       QStringLiteral("MooredDescription"));
    profile->setAccessibleDescription(profileText->text());
    moored->setAccessibleDescription(mooredText->text());
    auto* remark = makeValueLabel(QStringLiteral("ModeRemark"), QStringLiteral("Mode file"));
    remark->setWordWrap(true);

    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(12);
    layout->setColumnStretch(1, 1);
    layout->addWidget(profile, 0, 0);
    layout->addWidget(profileText, 0, 1);
    layout->addWidget(moored, 1, 0);
    layout->addWidget(mooredText, 1, 1);
    layout->addWidget(makeLine(), 2, 0, 1, 2);
    layout->addWidget(save, 3, 0);
    layout->addWidget(load, 4, 0);
    layout->addWidget(remark, 3, 1, 2, 1);
    layout->addWidget(makeLine(), 5, 0, 1, 2);
    layout->addWidget(view, 6, 0, 1, 2, Qt::AlignLeft);
    layout->setRowStretch(7, 1);

    bindings_.bind(shown.modeRemark, [remark](const QString& text) { remark->setText(text); });
    bindings_.bind(session.commands.undisturbed, [profile, moored, load](bool on) {
        profile->setEnabled(on);
        moored->setEnabled(on);
        load->setEnabled(on);
    });
}

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

TrxCalibrationPage::TrxCalibrationPage(SettingsState& shown, SettingsActions& actions)
    : QGroupBox(QStringLiteral("TRX Calibration: Offsets and B calculations")) {
    setObjectName(QStringLiteral("TrxCalibrationFrame"));
    auto* angles = new QGridLayout;
    addAngles(angles, shown);
    auto* calculate = makeOption(QStringLiteral("Calc &B Values"), QStringLiteral("CalcBValues"));
    auto* raw = makeOption(QStringLiteral("&Provide Raw Counts"), QStringLiteral("TrxProvideRawCounts"));
    bindChoice(bindings_, raw, calculate, shown.trxProvideRawCounts);

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

void TrxCalibrationPage::addAngles(QGridLayout* layout, SettingsState& shown) {
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
        CalibrationBoxes& boxes = shown.trxCalibration.at(static_cast<std::size_t>(row - 1));
        const QString caption = QString::fromLatin1(angle.caption);
        const QString name = QString(caption).remove(QLatin1Char('&')) + QStringLiteral(", ");
        NumberBox* offset = makeBox(QString::fromLatin1(angle.offset), name + offsetColumn(), boxes.offset);
        layout->addWidget(makeCaption(caption, offset), row, 0);
        layout->addWidget(offset, row, 1);
        layout->addWidget(makeBox(QString::fromLatin1(angle.scale), name + scaleColumn, boxes.scale), row, 2);
        ++row;
    }
}

GlowCalibrationPage::GlowCalibrationPage(SettingsState& shown)
    : QGroupBox(QStringLiteral("GLW Calibration: Offsets and B calculations")) {
    setObjectName(QStringLiteral("GlowCalibrationFrame"));
    const QString unit = QStringLiteral("ug/IC");
    NumberBox* offset = makeBox(QStringLiteral("GlowOffset"), offsetColumn(), shown.glowCalibration.offset);
    NumberBox* scale = makeBox(QStringLiteral("GlowScale"), unit, shown.glowCalibration.scale);
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
    bindChoice(bindings_, raw, calculate, shown.glowProvideRawCounts);

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
