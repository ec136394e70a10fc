// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/samplespage.h"

#include "settings/screenparts.h"

#include <QButtonGroup>
#include <QHBoxLayout>

#include <algorithm>

namespace orv {

namespace {

constexpr int maximumOfFiveDigits = 65535;

// The rows of the frame: the four numbers, the memory used, and what there is to remark on the numbers.
constexpr int capacityRow = 4;
constexpr int firstRemarkRow = 5;

struct NumberField {
    const char* name;
    const char* caption;
    int digits;
    const char* toolTip;
    QProperty<QString> LoggerSettings::*value;
};

// In the order of the rows. The boxes' numbers follow another order: hours, samples, seconds, points.
constexpr NumberField fields[] = {
    {"Text2", "Samples Per &Second", 3,
     "This tells the logger to grab X number of samples and average then to determine one data point.",
     &LoggerSettings::samplesPerPoint},
    {"Text1", "Delay &Before Data Blocks (hours)", 3,
     "This is the amount of time in hours that the logger will wait before collecting a data block. For example: A "
     "value of 24 is 1 data block per 24 hours.",
     &LoggerSettings::hoursBeforeBlock},
    {"Text4", "&Number of Data Points per Data Block", 5, "", &LoggerSettings::pointsPerBlock},
    {"Text3", "Delay Between Data &Points (Seconds)", 5, "", &LoggerSettings::secondsBetweenPoints},
};

QString withoutMnemonic(const char* caption) {
    return QString::fromLatin1(caption).remove(QLatin1Char('&'));
}

/// The access key of a rate is its last digit, of "1/2" the stroke: "2" has it already.
QString withKey(QString caption) {
    const bool half = caption == QLatin1String("1/2");
    return caption.insert(half ? caption.indexOf(u'/') : caption.size() - 1, u'&');
}

} // namespace

SamplesPage::SamplesPage(Session& session, SettingsPanel& panel, SettingsCommands& commands)
    : QGroupBox(QStringLiteral("Samples and Intervals")) {
    setObjectName(QStringLiteral("SamplesFrame"));
    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(8);
    layout->setColumnStretch(2, 1);
    addNumbers(layout, panel.record, makeOptions(session, panel, commands));
    addCapacity(layout, panel);
    layout->setRowStretch(layout->rowCount(), 1);
}

void SamplesPage::addNumbers(QGridLayout* layout, LoggerSettings& record, QWidget* options) {
    int row = 0;
    for (const NumberField& field : fields) {
        NumberBox* box = NumberBox::forDigits(field.digits);
        box->setObjectName(QString::fromLatin1(field.name));
        box->setToolTip(QString::fromLatin1(field.toolTip));
        box->setAccessibleName(withoutMnemonic(field.caption));
        box->follow(record.*field.value);
        layout->addWidget(makeCaption(QString::fromLatin1(field.caption), box), row, 0);
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

void SamplesPage::addCapacity(QGridLayout* layout, SettingsPanel& panel) {
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
    bindings_.bind(panel.capacity, [capacity](const QString& text) { capacity->setText(text); });
    bindings_.bind(panel.memoryPointer, [pointer](const QString& text) { pointer->setText(text); });
}

QWidget* SamplesPage::makeOptions(Session& session, SettingsPanel& panel, SettingsCommands& commands) {
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
    bindings_.bind(session.status.instrument, [this](const QString& type) {
        const auto presets = samplingPresets(type == QLatin1String("GLOW"));
        for (std::size_t i = 0; i < options_.size(); ++i) {
            options_.at(i)->setText(withKey(presets.at(i).caption));
            options_.at(i)->setAccessibleName(presets.at(i).caption + QStringLiteral(" data points per second"));
        }
    });
    bindings_.bind(panel.samplingOption, [this](int selected) { select(selected); });
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

} // namespace orv
