// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/calibrationpage.h"

#include "base/text.h"
#include "base/words.h"
#include "ui/widgets.h"

#include <QButtonGroup>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace orv {

namespace {

/// The selectors of the worksheet rows, from `Option3` on; the underlined letter is the key.
constexpr std::array<const char*, worksheetRows.size()> selectorCaptions{
    QT_TRANSLATE_NOOP("orv", "&Air"),     QT_TRANSLATE_NOOP("orv", "&Clean"),   QT_TRANSLATE_NOOP("orv", "Point &1"),
    QT_TRANSLATE_NOOP("orv", "Point &2"), QT_TRANSLATE_NOOP("orv", "Point &3"), QT_TRANSLATE_NOOP("orv", "Point &4")};
constexpr int firstSelector = 3;

/// Between the rows of boxes: with it the page fits a window of 800 by 600.
constexpr int rowSpacing = 2;

QString angleText(int channel) {
    return QString::fromLatin1(channelAngles.at(static_cast<std::size_t>(channel)));
}

/// A grid of captions and one column for each channel; two of them stand below each other in line.
QGridLayout* makeChannelGrid(QWidget* frame) {
    auto* grid = new QGridLayout(frame);
    grid->setVerticalSpacing(rowSpacing);
    grid->setColumnMinimumWidth(0, QRadioButton(Screen::tr(selectorCaptions.back())).sizeHint().width());
    for (int channel = 0; channel < channelCount; ++channel) {
        grid->setColumnStretch(channel + 1, 1);
    }
    return grid;
}

QLabel* makeHeading(const QString& text) {
    auto* label = new QLabel(text);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    return label;
}

/// Why a text cannot be the number that is meant; empty if it can.
QString whyNoNumber(const QString& text) {
    return text.trimmed().isEmpty() || numberText(text)
               ? QString()
               : Screen::tr("Only a number such as -0.5, with a point and no comma.");
}

/// The same of a number that is kept with the worksheet.
QString whyNotKept(const QString& text) {
    constexpr double beyond = std::numeric_limits<qint16>::max() + 0.5; // rounds to what does not fit
    const double number = text.trimmed().isEmpty() ? 0.0 : numberText(text).value_or(beyond);
    return number >= beyond || number < -beyond - 1.0 ? Screen::tr("Only a whole number from -32768 to 32767.")
                                                      : QString();
}

/// Shows a text that is typed, with a sign while something is wrong with it. It counts all the same: as the number with
/// which it begins, or as 0.
void bindNumber(Bindings& bindings, QLineEdit* box, QProperty<QString>& text, QString (*problemOf)(const QString&)) {
    bindTyped(bindings, box, text);
    bindings.bind(text, [box, problemOf, description = box->toolTip()](const QString& now) {
        const QString problem = problemOf(now);
        markBox(box, problem);
        box->setAccessibleDescription(problem.isEmpty() ? description : problem);
    });
}

/// An instrument may have been entered without a name.
QString nameOrNone(const QString& name) {
    return name.isEmpty() ? Screen::tr("(no name)") : name;
}

} // namespace

CalibrationPage::CalibrationPage(Program& program)
    : shown_(program.calibration.shown)
    , calibration_(program.calibration)
    , canAsk_(program.link.session.commands.canAsk) {
    setObjectName(QStringLiteral("CalibrationPage"));
    auto* frame = makeFrame(Screen::tr("Calibration TRX(S)"));
    auto* layout = new QHBoxLayout(frame);
    layout->addWidget(makeInstruments(), 2);
    auto* right = new QVBoxLayout;
    layout->addLayout(right, 3);
    right->addWidget(makeWorksheet());
    right->addWidget(makeReference());
    right->addStretch();
    auto* pageLayout = new QVBoxLayout(this);
    QMargins margins = pageLayout->contentsMargins();
    margins.setBottom(0);
    pageLayout->setContentsMargins(margins);
    pageLayout->addWidget(frame);
}

QGroupBox* CalibrationPage::makeInstruments() {
    auto* frame = makeFrame(Screen::tr("Instruments"));
    auto* layout = new QVBoxLayout(frame);

    auto* name = makeBox("Text17", Screen::tr("Name or serial number of the next instrument of the batch."),
                         Screen::tr("Instrument name or serial number"));
    bindTyped(bindings_, name, shown_.instrumentName);
    auto* add = makeButton(
        Screen::tr("Add Ins&trument"), "Command4", [this] { calibration_.addInstrument(); },
        Screen::tr("Adds the named instrument with its light colour; a batch has up to seven."));
    connect(name, &QLineEdit::returnPressed, add, &QPushButton::click);
    auto* list = makeList();
    auto* messages = makeReadOnlyBox("Text36", Screen::tr("Messages"), Screen::tr("What is still missing."));
    bindText(bindings_, messages, shown_.message);

    layout->addWidget(makeCaption(Screen::tr("Name or serial n&umber:"), name));
    layout->addWidget(name);
    layout->addLayout(makeColours());
    layout->addWidget(add);
    layout->addWidget(makeCaption(Screen::tr("Instruments &entered:"), list));
    layout->addWidget(list, 1);
    layout->addLayout(makeNavigation());
    layout->addWidget(makeCaption(Screen::tr("&Messages:"), messages));
    layout->addWidget(messages);
    return frame;
}

QLayout* CalibrationPage::makeColours() {
    auto* layout = new QHBoxLayout;
    layout->addWidget(new QLabel(Screen::tr("Light source:")));
    auto* group = new QButtonGroup(this);
    for (const Light& light : lights) {
        const QString caption = Screen::tr(light.caption);
        const QString word = QString(caption).remove(u'&');
        auto* option =
            makeOption(caption, QStringLiteral("Option%1").arg(static_cast<int>(light.colour)),
                       Screen::tr("Colour of the instrument's light source; also chooses the reference values of the "
                                  "report."));
        option->setAccessibleName(Screen::tr("Light source %1").arg(word));
        bindOption(bindings_, option, shown_.colour, light.colour);
        group->addButton(option);
        layout->addWidget(option);
    }
    layout->addStretch();
    return layout;
}

QListWidget* CalibrationPage::makeList() {
    auto* list = makeControl<QListWidget>("List2", Screen::tr("Instruments entered"));
    list->setToolTip(Screen::tr("Choose an instrument to show its worksheet."));
    list->setMinimumHeight(list->fontMetrics().height() * 4);
    bindings_.bind(shown_.instruments, [list](const QStringList& names) {
        const QSignalBlocker quiet(list); // no instrument is chosen by being entered
        for (qsizetype added = list->count(); added < names.size(); ++added) {
            list->addItem(nameOrNone(names.at(added)));
        }
    });
    const auto highlightShown = [this, list] {
        const QSignalBlocker quiet(list);
        list->setCurrentRow(shown_.highlighted);
    };
    bindings_.bind(shown_.highlighted, [highlightShown](int) { highlightShown(); });
    list->viewport()->installEventFilter(this);
    // A key moves to another entry; a click counts also on the entry that is current already.
    // Taking the focus makes an entry current without selecting it; only a choice shows an instrument.
    connect(list, &QListWidget::itemSelectionChanged, this, [this, list, highlightShown] {
        // An assistive program selects an entry beside the one that is highlighted.
        const auto selected = list->selectedItems();
        const auto chosen = std::find_if(selected.begin(), selected.end(), [this, list](QListWidgetItem* item) {
            return list->row(item) != shown_.highlighted;
        });
        if (!selected.isEmpty()) {
            chosenByPress_ = true;
            calibration_.select(chosen != selected.end() ? list->row(*chosen) : shown_.highlighted);
        }
        highlightShown(); // the choice may have been refused, or taken back
    });
    connect(list, &QListWidget::itemClicked, this, [this, list](QListWidgetItem* item) {
        if (!chosenByPress_) {
            calibration_.select(list->row(item));
        }
    });
    return list;
}

bool CalibrationPage::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        chosenByPress_ = false;
    }
    return false;
}

QLayout* CalibrationPage::makeNavigation() {
    auto* total = makeValueLabel("Label70", Screen::tr("Total entered"));
    bindText(bindings_, total, shown_.totalEntered);
    auto* layout = new QHBoxLayout;
    layout->addWidget(makeButton(
        Screen::tr("Pre&vious", "the instrument before"), "Command8", [this] { calibration_.previous(); },
        Screen::tr("Shows the instrument before; from the first, the last.")));
    layout->addWidget(makeButton(
        Screen::tr("&Next", "the instrument after"), "Command5", [this] { calibration_.next(); },
        Screen::tr("Shows the instrument after; from the last, the first.")));
    layout->addStretch();
    layout->addWidget(new QLabel(Screen::tr("Total Entered :")));
    layout->addWidget(total);
    return layout;
}

QGroupBox* CalibrationPage::makeWorksheet() {
    auto* frame = makeFrame({}, "Frame16");
    bindings_.bind(shown_.worksheetCaption, [frame](const Words& caption) {
        frame->setTitle(nameOrNone(caption.shown()).replace(u'&', QLatin1String("&&"))); // a name, not a key
    });
    auto* grid = makeChannelGrid(frame);
    for (int channel = 0; channel < channelCount; ++channel) {
        grid->addWidget(makeHeading(angleText(channel)), 0, channel + 1);
    }
    auto* selectors = new QButtonGroup(frame);
    constexpr int rows = BoxGrid<worksheetRows.size()>::rowCount;
    for (int row = 0; row < rows; ++row) {
        addWorksheetRow(grid, row);
        selectors->addButton(qobject_cast<QRadioButton*>(grid->itemAtPosition(row + 1, 0)->widget()));
    }
    addResults(grid, rows + 1);

    auto* index = makeValueLabel("Label71", Screen::tr("Instrument index"));
    bindings_.bind(shown_.current, [index](qint16 current) { index->setText(QString::number(current)); });
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(6); // not the grid's
    buttons->addWidget(makeButton(
        Screen::tr("Calc &DP"), "Command12", [this] { calibration_.calcdp(); },
        Screen::tr("Writes the means of the rows on the data sheet into the selected row; for a point also its DP "
                   "values. Keeps "
                   "the worksheet.")));
    auto* save = makeButton(
        Screen::tr("Save Cal &Info"), "Command14", [this] { calibration_.saveCalInfo(); },
        Screen::tr("Writes this worksheet and the reference values of the light colour to a report file."));
    bindEnabled(bindings_, save, canAsk_);
    buttons->addWidget(save);
    buttons->addStretch();
    buttons->addWidget(new QLabel(Screen::tr("Instrument index:")));
    buttons->addWidget(index);
    grid->addLayout(buttons, rows + 2, 0, 1, channelCount + 1);
    return frame;
}

void CalibrationPage::addWorksheetRow(QGridLayout* grid, int row) {
    const BoxRow& boxes = worksheetRows.at(static_cast<std::size_t>(row));
    const QString caption = Screen::tr(boxes.caption);
    auto* selector = makeOption(Screen::tr(selectorCaptions.at(static_cast<std::size_t>(row))),
                                QStringLiteral("Option%1").arg(firstSelector + row),
                                Screen::tr("The rows on the data sheet were measured for \"%1\".").arg(caption));
    bindOption(bindings_, selector, shown_.selectedRow, row);
    grid->addWidget(selector, row + 1, 0);
    for (int channel = 0; channel < channelCount; ++channel) {
        const QString accessibleName = Screen::tr("%1, angle %2").arg(caption, angleText(channel));
        auto* box =
            makeBox(boxName(boxes, channel),
                    Screen::tr("%1: kept as a whole number from -32768 to 32767.").arg(accessibleName), accessibleName);
        bindNumber(bindings_, box, shown_.worksheet.at(row, channel), whyNotKept);
        box->setAlignment(Qt::AlignRight);
        grid->addWidget(box, row + 1, channel + 1);
    }
}

void CalibrationPage::addResults(QGridLayout* grid, int gridRow) {
    auto* caption = new QLabel(QStringLiteral("DP"));
    caption->setToolTip(Screen::tr("Expected counts of the point last calculated."));
    grid->addWidget(caption, gridRow, 0);
    const int height = QLineEdit().sizeHint().height(); // of the boxes above
    for (int channel = 0; channel < channelCount; ++channel) {
        const auto index = static_cast<std::size_t>(channel);
        auto* label = makeFramedLabel(QStringLiteral("Label%1").arg(resultLabels.at(index)),
                                      Screen::tr("DP, angle %1").arg(angleText(channel)));
        label->setFixedHeight(height);
        label->setMargin(1); // so that figures stand below those in the boxes
        bindText(bindings_, label, shown_.results.at(index));
        grid->addWidget(label, gridRow, channel + 1);
    }
}

QGroupBox* CalibrationPage::makeReference() {
    auto* frame = makeFrame(Screen::tr("&KP 7"), "ReferenceFrame");
    auto* grid = makeChannelGrid(frame);
    for (int channel = 0; channel < channelCount; ++channel) {
        const Light& light = *std::find_if(lights.begin(), lights.end(), [channel](const Light& candidate) {
            return candidate.referenceColumn == channel;
        });
        const QString angle = angleText(channel);
        const QString colour =
            QStringLiteral("%1 %2").arg(Screen::tr(light.caption).remove(u'&'), QLatin1String(light.wavelength));
        auto* heading = makeHeading(QStringLiteral("%1 / %2").arg(angle, colour));
        heading->setToolTip(Screen::tr("\"Calc DP\" uses this column for the angle %1, the report for the light "
                                       "colour %2.")
                                .arg(angle, colour));
        grid->addWidget(heading, 0, channel + 1);
    }
    for (int row = 0; row < BoxGrid<referenceRows.size()>::rowCount; ++row) {
        const BoxRow& boxes = referenceRows.at(static_cast<std::size_t>(row));
        const QString caption = Screen::tr(boxes.caption);
        auto* rowCaption = new QLabel(caption);
        grid->addWidget(rowCaption, row + 1, 0);
        for (int channel = 0; channel < channelCount; ++channel) {
            const QString accessibleName = Screen::tr("Reference %1, column %2").arg(caption).arg(channel + 1);
            auto* box = makeBox(boxName(boxes, channel), accessibleName + u'.', accessibleName);
            bindNumber(bindings_, box, shown_.reference.at(row, channel), whyNoNumber);
            box->setAlignment(Qt::AlignRight);
            grid->addWidget(box, row + 1, channel + 1);
            if (channel == 0) {
                rowCaption->setBuddy(box);
            }
        }
    }
    return frame;
}

TestingPage::TestingPage(Program& program) {
    setObjectName(QStringLiteral("TestingPage"));
    auto* frame = makeFrame(Screen::tr("Testing"));
    auto* layout = new QVBoxLayout(frame);

    auto* explanation = new QLabel(Screen::tr(
        "Brings the shutter back to its rest position. The instrument only moves it with particular settings, so its "
        "own are read and kept, temporary ones are sent, the shutter moves for about half a minute, and the settings "
        "from before are sent back.\n\nLeave the cable in its place until the settings have been read back. \"Reset\", "
        "\"Close Port\" and \"Quit\" interrupt the reset; the instrument may then still hold the temporary settings."));
    explanation->setWordWrap(true);
    layout->addWidget(explanation);

    auto* button = makeButton(
        Screen::tr("&Reset Shutter"), "ResetShutter", [&program] { program.resetShutter(); },
        Screen::tr("Moves the shutter to its rest position; takes up to a minute and a half."));
    layout->addWidget(button, 0, Qt::AlignLeft);
    bindEnabled(bindings_, button, program.link.session.commands.canResetShutter);
    bindVisible(bindings_, button, program.link.session.commands.resetShutterVisible);
    layout->addLayout(makeProgress(program.link.session.status));
    layout->addStretch();

    auto* pageLayout = new QVBoxLayout(this);
    pageLayout->addWidget(frame);
}

QLayout* TestingPage::makeProgress(const StatusState& shown) {
    auto* status = makeTextLabel("TestingStatus", Screen::tr("Status"));
    bindText(bindings_, status, shown.status);
    auto* progress = makeReadOnlyBox("TestingProgress", Screen::tr("Progress of the shutter reset"),
                                     Screen::tr("The step of the shutter reset under way."));
    bindText(bindings_, progress, shown.shutterProgress);
    auto* countdown = makeNumberLabel("TestingCountdown", Screen::tr("Time left"), "00 s ");
    countdown->setToolTip(Screen::tr("How long the shutter still moves."));
    bindText(bindings_, countdown, shown.shutterCountdown);

    auto* row = new QHBoxLayout;
    row->addWidget(progress, 1);
    row->addWidget(countdown);
    auto* form = new QFormLayout;
    form->addRow(Screen::tr("Status:"), status);
    form->addRow(makeCaption(Screen::tr("Pro&gress:"), progress), row);
    return form;
}

} // namespace orv
