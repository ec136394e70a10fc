// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settingspages.h"

#include "base/words.h"
#include "settings/plainenglish.h"
#include "ui/dialogs.h"
#include "ui/numberbox.h"
#include "ui/settingspage.h"
#include "ui/widgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

namespace orv {

namespace {

void nameAfter(const Setting& setting, QWidget* control) {
    control->setObjectName(QLatin1String(setting.control));
    control->setToolTip(Screen::tr(setting.toolTip));
}

template <typename Text>
QLabel* makeShownText(SettingsPage* page, QAnyStringView name, QAnyStringView accessibleName,
                      const QProperty<Text>& text) {
    QLabel* label = makeValueLabel(name, accessibleName);
    bindText(page->bindings, label, text);
    return label;
}

QLabel* makeDescription(const QString& text, const char* name, QWidget* of) {
    QLabel* label = makeValueLabel(name, Screen::tr("Description"));
    label->setText(text);
    label->setWordWrap(true);
    of->setAccessibleDescription(text);
    return label;
}

/// Stands beside a box while what it says is not sent.
QLabel* makeMark(SettingsPage* page, const QString& control, const QString& caption) {
    QLabel* mark = makeTextLabel(control + QLatin1String("Unsent"), caption);
    mark->setText(Screen::tr("not sent"));
    QFont bold = mark->font();
    bold.setBold(true);
    mark->setFont(bold);
    keepRoomOf(mark);
    mark->setParent(page);
    return mark;
}

/// The same beside the box of a setting that is not as the instrument has reported it.
QLabel* makeUnsentMark(SettingsPage* page, const Setting& setting, const SettingsState& shown) {
    QLabel* mark = makeMark(page, QLatin1String(setting.control), setting.plainCaption().shown());
    const auto show = [mark, &setting, &shown] { mark->setVisible(shown.unsent().test(placeOf(setting))); };
    page->bindings.bind(shown.record, [show](const LoggerSettings&) { show(); });
    page->bindings.bind(shown.reported, [show](const std::optional<LoggerSettings>&) { show(); });
    return mark;
}

QFrame* makeLine() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

namespace {

/// Says over the sentences if it is not known that the instrument has these settings.
QString whetherSent(const Program& program) {
    const SettingsState& shown = program.settings.shown;
    if (program.link.session.commands.activity == Activity::ResettingShutter) {
        return temporarySettings();
    }
    if (!shown.reported.value()) {
        const QString exchange = shown.exchange.value().shown();
        return exchange.isEmpty() ? Screen::tr("No instrument has reported these settings.") : asSentence(exchange);
    }
    return shown.unsent().any() ? Screen::tr("These settings have not been sent to the instrument: %1.")
                                      .arg(join(captionsOf(shown.unsent()), QStringLiteral(", ")).shown())
                                : QString();
}

} // namespace

QString temporarySettings() {
    return Screen::tr("The shutter is being reset: until that is done, these may be temporary settings.");
}

QWidget* makeModesPage(Program& program) {
    auto* page = new SettingsPage(Screen::tr("Modes"), "ModesFrame");
    auto* english = new PlainEnglishWindow(page);
    Modes& modes = program.settings.modes;
    auto* profile = makeButton(Screen::tr("&Profile"), "Profile", [&modes] { modes.profile(); });
    auto* moored = makeButton(Screen::tr("&Moored"), "Moored", [&modes] { modes.moored(); });
    auto* save =
        makeButton(Screen::tr("&Save A User Defined Mode"), "SaveAUserDefinedMode", [&modes] { modes.saveMode(); });
    auto* load =
        makeButton(Screen::tr("&Load A User Defined Mode"), "LoadAUserDefinedMode", [&modes] { modes.loadMode(); });
    auto* view =
        makeButton(Screen::tr("&View Current Settings Transcribed as Text"), "ViewCurrentSettingsTranscribedAsText",
                   [english, &program] { english->open(program.settings.shown.record, whetherSent(program)); });
    QLabel* remark = makeValueLabel("ModeRemark", Screen::tr("Mode file"));
    const auto tell = [remark, &shown = program.settings.shown](auto&&) {
        const bool waits = shown.secondsToFullMinute > 0 && shown.sendingMode;
        remark->setText((waits ? shown.fullMinuteWait() : shown.modeRemark.value()).shown());
    };
    page->bindings.bind(program.settings.shown.sendingMode, tell);
    page->bindings.bind(program.settings.shown.modeRemark, tell);
    page->bindings.bind(program.settings.shown.secondsToFullMinute, tell);
    remark->setWordWrap(true);

    auto* layout = makeGrid(16, 12, page);
    layout->setColumnStretch(1, 1);
    layout->addWidget(profile, 0, 0);
    layout->addWidget(makeDescription(Screen::tr("This mode Autostarts, takes 1 data point per second, and repeats "
                                                 "this indefinatly. Data is NOT logged."),
                                      "ProfileDescription", profile),
                      0, 1);
    layout->addWidget(moored, 1, 0);
    layout->addWidget(makeDescription(Screen::tr("This Mode Autostarts, takes 1 data point per second. It repeats "
                                                 "once an hour. It logs up to 60000 data points."),
                                      "MooredDescription", moored),
                      1, 1);
    layout->addWidget(makeLine(), 2, 0, 1, 2);
    layout->addWidget(save, 3, 0);
    layout->addWidget(load, 4, 0);
    layout->addWidget(remark, 3, 1, 2, 1);
    layout->addWidget(makeLine(), 5, 0, 1, 2);
    layout->addWidget(view, 6, 0, 1, 2, Qt::AlignLeft);
    layout->setRowStretch(7, 1);

    const CommandState& commands = program.link.session.commands;
    for (QPushButton* button : {profile, moored, load}) {
        bindEnabled(page->bindings, button, commands.undisturbed);
    }
    // No mode is to be saved of the settings with which the shutter is reset.
    const auto enable = [save, &commands](bool) { save->setEnabled(commands.canAsk && commands.canTypeSettings); };
    page->bindings.bind(commands.canAsk, enable);
    page->bindings.bind(commands.canTypeSettings, enable);
    return page;
}

namespace {

struct ClockRow {
    QString caption;
    const char* name;
    QString accessibleName;
    const QProperty<QString>& value;
};

QGroupBox* makeClock(SettingsPage* page, const QString& title, const char* name, const QString& toolTip,
                     std::initializer_list<ClockRow> rows) {
    auto* box = makeFrame(title, name);
    box->setToolTip(toolTip);
    auto* form = new QFormLayout(box);
    form->setHorizontalSpacing(24);
    form->setVerticalSpacing(8);
    for (const ClockRow& row : rows) {
        form->addRow(row.caption, makeShownText(page, row.name, row.accessibleName, row.value));
    }
    return box;
}

/// When the clock will be set, else how it was set, else what the two boxes do.
QLabel* makeClockLine(SettingsPage* page, const SettingsState& shown) {
    QLabel* line = makeValueLabel("FullMinuteCountdown", Screen::tr("Setting the clock"));
    line->setWordWrap(true);
    const auto tell = [line, &shown](auto&&) {
        const int seconds = shown.secondsToFullMinute;
        if (seconds > 0) {
            line->setText(Screen::tr("The clock will be set at %1, in %2 s.")
                              .arg(shown.fullMinute.value(), QString::number(seconds)));
        } else if (shown.clockSetting.value().isEmpty()) {
            line->setText(Screen::tr("\"Sync Time/Date\" alone leaves the clock up to 59 s behind: the command "
                                     "carries no seconds. \"At the full "
                                     "minute\" waits until a minute begins, so that the seconds are right too."));
        } else {
            line->setText(
                shown.clockUnread || shown.clockSet == SettingsState::ClockSet::AtFullMinute
                    ? shown.clockSetting.value().shown()
                    : Screen::tr("%1 \"At the full minute\" sets it right.").arg(shown.clockSetting.value().shown()));
        }
    };
    page->bindings.bind(shown.fullMinute, tell);
    page->bindings.bind(shown.secondsToFullMinute, tell);
    page->bindings.bind(shown.clockSetting, tell);
    return line;
}

} // namespace

namespace {

/// Below the logger's time, which stands still: how far it was off when it was read. Empty while it is not known.
QLabel* makeClockOffset(SettingsPage* page, const StatusState& status) {
    QLabel* offset = makeValueLabel("LoggerClockOffset", Screen::tr("How the instrument's clock stands"));
    page->bindings.bind(status.clockOffset, [offset](const std::optional<qint64>& ahead) {
        offset->setText(ahead ? Screen::tr("When read: %1").arg(clockOffsetInWords(*ahead).shown()) : QString());
    });
    return offset;
}

} // namespace

QWidget* makeTimeAndDatePage(Program& program) {
    auto* page = new SettingsPage(Screen::tr("Time and Date"), "TimeAndDateFrame");
    SettingsState& shown = program.settings.shown;
    auto* display = makeButton(Screen::tr("&Display Logger Time/Date"), "DisplayLoggerTimeDate",
                               [&program] { program.settings.sender.displayLoggerTime(); });
    bindEnabled(page->bindings, display, program.link.session.commands.canCommand);
    const QString time = Screen::tr("Time");
    const QString date = Screen::tr("Date");
    auto* computer = makeClock(page, Screen::tr("Computer Time / Date"), "ComputerTimeDate",
                               Screen::tr("This is the computers Time and Date."),
                               {{time, "ComputerTime", Screen::tr("Computer Time"), shown.computerTime},
                                {date, "ComputerDate", Screen::tr("Computer Date"), shown.computerDate}});
    auto* logger = makeClock(page, Screen::tr("Logger Time / Date"), "LoggerTimeDate",
                             Screen::tr("This is the Loggers Time and Date at last display."),
                             {{date, "LoggerDate", Screen::tr("Logger Date"), shown.loggerDate},
                              {time, "LoggerTime", Screen::tr("Logger Time"), shown.loggerTime}});
    static_cast<QFormLayout*>(logger->layout())->addRow(makeClockOffset(page, program.link.session.status));

    auto* sync = new QCheckBox(Screen::tr("&Sync Time/Date"));
    sync->setObjectName(QStringLiteral("SyncTimeDate"));
    sync->setToolTip(Screen::tr("This tells the Host to set the Loggers Time and Date to that of the Computer. "
                                "(Updated after send settings)"));
    bindChecked(page->bindings, sync, shown.syncTimeDate);
    QLabel* mark = makeMark(page, sync->objectName(), Screen::tr("Sync Time/Date"));
    const auto showMark = [mark, &shown](auto&&) { mark->setVisible(shown.syncUnsent()); };
    page->bindings.bind(shown.syncPending, showMark);
    page->bindings.bind(shown.reported, showMark);
    auto* fullMinute = new QCheckBox(Screen::tr("At the full &minute"));
    fullMinute->setObjectName(QStringLiteral("AtFullMinute"));
    fullMinute->setToolTip(
        Screen::tr("Waits until a minute begins, so that the Loggers seconds are right too: it takes "
                   "hour and minute only."));
    bindChecked(page->bindings, fullMinute, shown.atFullMinute);
    // One click is enough for either wish.
    QObject::connect(fullMinute, &QCheckBox::toggled, page,
                     [&shown](bool on) { shown.syncTimeDate = shown.syncTimeDate || on; });
    QObject::connect(sync, &QCheckBox::toggled, page,
                     [&shown](bool on) { shown.atFullMinute = shown.atFullMinute && on; });
    QLabel* line = makeClockLine(page, shown);

    auto* layout = makeGrid(16, 16, page);
    layout->addWidget(display, 0, 0, 1, 2, Qt::AlignLeft);
    layout->addWidget(computer, 1, 0);
    layout->addWidget(logger, 1, 1);
    auto* syncRow = new QHBoxLayout;
    syncRow->setSpacing(16);
    syncRow->addWidget(sync);
    syncRow->addWidget(mark);
    syncRow->addStretch(1);
    layout->addLayout(syncRow, 2, 0);
    layout->addWidget(fullMinute, 2, 1, Qt::AlignLeft);
    layout->addWidget(line, 3, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(4, 1);
    return page;
}

QWidget* makeControlBitsPage(Program& program) {
    auto* page = new SettingsPage(Screen::tr("Control Bits"), "ControlBitsFrame");
    auto* layout = new QVBoxLayout(page);
    auto* bits = makeGrid(16, 12);
    bits->setColumnStretch(1, 1);
    layout->addLayout(bits);
    int row = 0;
    QProperty<LoggerSettings>& record = program.settings.shown.record;
    for (const Setting* setting : settingsInOrder("SMLWAG")) {
        auto* box = new QCheckBox(Screen::tr(setting->caption));
        nameAfter(*setting, box);
        page->bindings.bind(record,
                            [box, setting](const LoggerSettings& now) { showChecked(box, now.*setting->flag); });
        QObject::connect(box, &QCheckBox::toggled, page, [&record, setting](bool on) {
            change(record, [setting, on](LoggerSettings& changed) { changed.*setting->flag = on; });
        });
        bindEnabled(page->bindings, box, program.link.session.commands.canTypeSettings);
        bits->addWidget(box, row, 0);
        bits->addWidget(makeUnsentMark(page, *setting, program.settings.shown), row++, 1);
    }
    layout->addStretch(1);

    auto* lamp = new StatusLamp;
    lamp->setObjectName(QStringLiteral("Lamp"));
    QLabel* words = makeValueLabel("LampText", Screen::tr("Status"));
    auto* status = new QHBoxLayout;
    status->addWidget(lamp);
    status->addWidget(words, 1);
    layout->addLayout(status);
    page->bindings.bind(program.settings.shown.lamp, [lamp, words](Lamp now) {
        lamp->show(now);
        words->setText(lampText(now));
    });
    return page;
}

namespace {

/// The access key of a rate is its last digit, of "1/2" the stroke: "2" has it already.
QString withKey(QString caption) {
    const bool half = caption == QLatin1String("1/2");
    return caption.insert(half ? caption.indexOf(u'/') : caption.size() - 1, u'&');
}

/// The four sampling-rate options, of which none may be selected.
class SamplingOptions final : public QWidget {
public:
    explicit SamplingOptions(Program& program) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(12);
        for (int option = 1; option <= 4; ++option) {
            auto* button = makeOption({}, QStringLiteral("SamplingOption%1").arg(option));
            group_.addButton(button, option);
            layout->addWidget(button);
            // Only the operator's choice writes the preset; an option that a report selects must leave the text alone.
            onChosen(button, [&program, option] { program.settings.sender.chooseSamplingOption(option); });
            bindEnabled(bindings_, button, program.link.session.commands.canTypeSettings);
        }
        layout->addWidget(new QLabel(Screen::tr("points/s")));
        layout->addStretch(1);
        bindings_.bind(program.link.session.status.instrument, [this](InstrumentType type) {
            int option = 0;
            for (const SamplingPreset& preset : samplingPresets(type == InstrumentType::Glow)) {
                QAbstractButton* button = group_.button(++option);
                button->setText(withKey(preset.caption));
                button->setAccessibleName(Screen::tr("%1 data points per second").arg(preset.caption));
                button->setToolTip(button->accessibleName());
            }
        });
        bindings_.bind(program.settings.shown.samplingOption, [this](int selected) { select(selected); });
    }

private:
    void select(int option) {
        const bool known = group_.button(option) != nullptr;
        // A group that insists on a selection cannot lose it.
        group_.setExclusive(known);
        for (QAbstractButton* button : group_.buttons()) {
            const int number = group_.id(button);
            showChecked(button, number == option);
            setTabStop(button, known ? number == option : number == 1);
        }
        group_.setExclusive(true);
    }

    QButtonGroup group_;
    Bindings bindings_;
};

// The rows of the page: the four numbers, the memory used, and what there is to remark on the numbers.
constexpr int capacityRow = 4;
constexpr int firstRemarkRow = 5;

/// Below the boxes stands what there is to remark on the number in one of them.
void addRemark(QGridLayout* layout, NumberBox* box, int minimum, int maximum) {
    QLabel* remark = makeValueLabel(box->objectName() + QLatin1String("Remark"), Screen::tr("Remark"));
    remark->setWordWrap(true);
    layout->addWidget(remark, std::max(layout->rowCount(), firstRemarkRow), 0, 1, 4);
    box->markOutside(minimum, maximum, remark);
}

void addNumbers(SettingsPage* page, QGridLayout* layout, Program& program) {
    constexpr int maximumOfFiveDigits = 65535;
    int row = 0;
    for (const Setting& setting : numberSettings) {
        NumberBox* box = NumberBox::forDigits(setting.digits);
        nameAfter(setting, box);
        box->setAccessibleName(setting.plainCaption().shown());
        box->follow(program.settings.shown.record, setting.number);
        bindEnabled(page->bindings, box, program.link.session.commands.canTypeSettings);
        layout->addWidget(makeCaption(Screen::tr(setting.caption), box), row, 0);
        layout->addWidget(box, row, 1);
        layout->addWidget(makeUnsentMark(page, setting, program.settings.shown), row, 3);
        if (row == 0) {
            layout->addWidget(new SamplingOptions(program), row, 2);
            addRemark(layout, box, 1, maximumOfFiveDigits);
        } else if (row == 1) {
            // Stands over the two boxes of five digits, like the head of a column.
            layout->addWidget(new QLabel(Screen::tr("Max Values")), row, 2);
        } else {
            layout->addWidget(new QLabel(QString::number(maximumOfFiveDigits)), row, 2);
            addRemark(layout, box, 0, maximumOfFiveDigits);
        }
        ++row;
    }
}

} // namespace

QWidget* makeSamplesPage(Program& program) {
    auto* page = new SettingsPage(Screen::tr("Samples and Intervals"), "SamplesFrame");
    auto* layout = makeGrid(16, 8, page);
    layout->setColumnStretch(2, 1);
    addNumbers(page, layout, program);

    const QString caption = Screen::tr("Logger Capacity (% full)");
    auto* name = new QLabel(caption);
    auto* capacity = makeShownText(page, "LoggerCapacity", caption, program.settings.shown.capacity);
    auto* pointer =
        makeShownText(page, "MemoryPointer", Screen::tr("Memory pointer"), program.settings.shown.memoryPointer);
    for (QLabel* label : {name, capacity}) {
        label->setToolTip(Screen::tr("This is the % of data memory used in the logger."));
    }
    pointer->setToolTip(Screen::tr("Memory pointer as the logger reports it, 0 to 65525."));
    layout->addWidget(name, capacityRow, 0);
    layout->addWidget(capacity, capacityRow, 1);
    // Below two maxima the number alone would pass for another.
    auto* pointerRow = new QHBoxLayout;
    pointerRow->setSpacing(8);
    pointerRow->addWidget(pointer);
    pointerRow->addWidget(new QLabel(Screen::tr("(memory pointer)")));
    pointerRow->addStretch(1);
    layout->addLayout(pointerRow, capacityRow, 2);
    // The caption of the first box is another's than its number: that many samples make one data point.
    QLabel* binning = makeValueLabel("SamplesInEnglish", Screen::tr("Description"));
    layout->setRowMinimumHeight(layout->rowCount(), 8);
    layout->addWidget(binning, layout->rowCount(), 0, 1, 4);
    page->bindings.bind(program.settings.shown.record, [binning](const LoggerSettings& record) {
        const QString sentence = inPlainEnglish(record).lines[PlainEnglish::Binning].shown().simplified();
        binning->setText(record.samplesPerPoint.isEmpty() ? QString() : sentence);
    });
    layout->setRowStretch(layout->rowCount(), 1);
    return page;
}

} // namespace orv
