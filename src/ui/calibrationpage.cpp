// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/calibrationpage.h"

#include <QButtonGroup>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace orv {

namespace {

constexpr std::array<const char*, channelCount> angles{"100", "125", "150"};

/// What the report prints each reference column for.
constexpr std::array<const char*, channelCount> reportColours{"Blue 440", "Red 650", "Green 532"};

/// The selectors of the worksheet rows, from `Option3` on; the underlined letter is the key.
constexpr std::array<const char*, worksheetRows.size()> selectorCaptions{"&Air",     "&Clean",   "Point &1",
                                                                         "Point &2", "Point &3", "Point &4"};
constexpr int firstSelector = 3;

QString angleText(int channel) {
    return QString::fromLatin1(angles.at(static_cast<std::size_t>(channel)));
}

QString reportColour(int channel) {
    return QString::fromLatin1(reportColours.at(static_cast<std::size_t>(channel)));
}

QLabel* makeWorksheetLabel(const QString& name, const QString& accessibleName) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// A grid of captions and one column for each channel; two of them stand below each other in line.
QGridLayout* makeChannelGrid(QWidget* frame) {
    auto* grid = new QGridLayout(frame);
    grid->setColumnMinimumWidth(0, QRadioButton(QStringLiteral("Point 4")).sizeHint().width());
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

} // namespace

CalibrationPage::CalibrationPage(CalibrationState& shown, Calibration& actions, QWidget* parent)
    : QWidget(parent)
    , shown_(shown)
    , actions_(actions) {
    setObjectName(QStringLiteral("CalibrationPage"));
    auto* frame = new QGroupBox(QStringLiteral("Calibration TRX(S)"));
    auto* layout = new QHBoxLayout(frame);
    layout->addWidget(makeInstruments(), 2);
    auto* right = new QVBoxLayout;
    layout->addLayout(right, 3);
    right->addWidget(makeWorksheet());
    right->addWidget(makeReference());
    right->addStretch();
    auto* pageLayout = new QVBoxLayout(this);
    pageLayout->addWidget(frame);
}

QGroupBox* CalibrationPage::makeInstruments() {
    auto* frame = new QGroupBox(QStringLiteral("Instruments"));
    auto* layout = new QVBoxLayout(frame);

    auto* name =
        makeBox(shown_.instrumentName, QStringLiteral("Text17"), QStringLiteral("Instrument name or serial number"));
    name->setToolTip(QStringLiteral("Name or serial number of the next instrument of the batch."));
    auto* nameCaption = new QLabel(QStringLiteral("Name or serial n&umber:"));
    nameCaption->setBuddy(name);
    layout->addWidget(nameCaption);
    layout->addWidget(name);
    layout->addWidget(makeColours());
    auto* add = makeButton(QStringLiteral("Add Ins&trument"), QStringLiteral("Command4"),
                           QStringLiteral("Adds the named instrument with its light colour; a batch has up to seven."),
                           [this] { actions_.addInstrument(); });
    connect(name, &QLineEdit::returnPressed, add, &QPushButton::click);
    layout->addWidget(add);
    auto* list = makeList();
    auto* listCaption = new QLabel(QStringLiteral("Instruments &entered:"));
    listCaption->setBuddy(list);
    layout->addWidget(listCaption);
    layout->addWidget(list, 1);
    layout->addWidget(makeNavigation());
    layout->addWidget(makeMessages());
    return frame;
}

QWidget* CalibrationPage::makeColours() {
    struct Selector {
        LightColour colour;
        const char* caption;
    };
    constexpr std::array<Selector, 3> selectors{
        {{LightColour::Red, "&Red"}, {LightColour::Blue, "&Blue"}, {LightColour::Green, "&Green"}}};

    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("Light source:")));
    auto* group = new QButtonGroup(row);
    for (const Selector& selector : selectors) {
        auto* option = new QRadioButton(QString::fromLatin1(selector.caption));
        option->setObjectName(QStringLiteral("Option%1").arg(static_cast<int>(selector.colour)));
        option->setToolTip(
            QStringLiteral("Colour of the instrument's light source; also chooses the reference values of "
                           "the report."));
        option->setAccessibleName(QStringLiteral("Light source %1").arg(option->text().remove(u'&')));
        group->addButton(option);
        layout->addWidget(option);
        connect(option, &QRadioButton::clicked, this, [this, colour = selector.colour] { shown_.colour = colour; });
        bindings_.bind(shown_.colour, [option, colour = selector.colour](LightColour selected) {
            if (selected == colour) {
                option->setChecked(true);
            }
        });
    }
    layout->addStretch();
    return row;
}

QListWidget* CalibrationPage::makeList() {
    auto* list = new QListWidget;
    list->setObjectName(QStringLiteral("List2"));
    list->setAccessibleName(QStringLiteral("Instruments entered"));
    list->setToolTip(QStringLiteral("Choose an instrument to show its worksheet."));
    list->setMinimumHeight(list->fontMetrics().height() * 4);
    bindings_.bind(shown_.instruments, [list](const QStringList& names) {
        const QSignalBlocker quiet(list); // no instrument is chosen by being entered
        for (qsizetype added = list->count(); added < names.size(); ++added) {
            list->addItem(names.at(added));
        }
    });
    const auto highlightShown = [this, list] {
        const QSignalBlocker quiet(list);
        if (!shown_.worksheetCaption.value().isEmpty()) {
            list->setCurrentRow(shown_.current);
        }
    };
    bindings_.bind(shown_.current, [highlightShown](qint16) { highlightShown(); });
    bindings_.bind(shown_.worksheetCaption, [highlightShown](const QString&) { highlightShown(); });
    list->viewport()->installEventFilter(this);
    // A key moves to another entry; a click counts also on the entry that is current already.
    // Taking the focus makes an entry current without selecting it; only a choice shows an instrument.
    connect(list, &QListWidget::itemSelectionChanged, this, [this, list] {
        if (!list->selectedItems().isEmpty()) {
            chosenByPress_ = true;
            actions_.select(list->currentRow());
        }
    });
    connect(list, &QListWidget::itemClicked, this, [this, list](QListWidgetItem* item) {
        if (!chosenByPress_) {
            actions_.select(list->row(item));
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

QWidget* CalibrationPage::makeNavigation() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(makeButton(QStringLiteral("Pre&vious"), QStringLiteral("Command8"),
                                 QStringLiteral("Shows the instrument before; from the first, the last."),
                                 [this] { actions_.previous(); }));
    layout->addWidget(makeButton(QStringLiteral("&Next"), QStringLiteral("Command5"),
                                 QStringLiteral("Shows the instrument after; from the last, the first."),
                                 [this] { actions_.next(); }));
    layout->addStretch();
    layout->addWidget(new QLabel(QStringLiteral("Total Entered :")));
    auto* total = makeWorksheetLabel(QStringLiteral("Label70"), QStringLiteral("Total entered"));
    bindings_.bind(shown_.totalEntered, [total](const QString& count) { total->setText(count); });
    layout->addWidget(total);
    return row;
}

QWidget* CalibrationPage::makeMessages() {
    auto* row = new QWidget;
    auto* layout = new QVBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* box = new QLineEdit;
    box->setObjectName(QStringLiteral("Text36"));
    box->setReadOnly(true);
    QPalette shown = box->palette();
    shown.setColor(QPalette::Base, shown.color(QPalette::Window)); // nothing can be typed here
    box->setPalette(shown);
    box->setAccessibleName(QStringLiteral("Messages"));
    box->setToolTip(QStringLiteral("What is still missing."));
    bindings_.bind(shown_.message, [box](const QString& text) { box->setText(text); });
    auto* caption = new QLabel(QStringLiteral("&Messages:"));
    caption->setBuddy(box);
    layout->addWidget(caption);
    layout->addWidget(box);
    return row;
}

QGroupBox* CalibrationPage::makeWorksheet() {
    auto* frame = new QGroupBox;
    frame->setObjectName(QStringLiteral("Frame16"));
    bindings_.bind(shown_.worksheetCaption, [frame](QString caption) {
        frame->setTitle(caption.isEmpty() ? QStringLiteral("Worksheet")
                                          : caption.replace(u'&', QLatin1String("&&"))); // a name, not a key
    });
    auto* grid = makeChannelGrid(frame);
    for (int channel = 0; channel < channelCount; ++channel) {
        grid->addWidget(makeHeading(angleText(channel)), 0, channel + 1);
    }
    auto* selectors = new QButtonGroup(frame);
    for (int row = 0; row < BoxGrid<worksheetRows.size()>::rowCount; ++row) {
        addWorksheetRow(grid, row);
        selectors->addButton(qobject_cast<QRadioButton*>(grid->itemAtPosition(row + 1, 0)->widget()));
    }
    const int resultRow = BoxGrid<worksheetRows.size()>::rowCount + 1;
    addResults(grid, resultRow);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(
        makeButton(QStringLiteral("Calc &DP"), QStringLiteral("Command12"),
                   QStringLiteral("Writes the means of the rows on the data sheet into the selected row; "
                                  "for a point also its DP values. Keeps the worksheet."),
                   [this] { actions_.calcdp(); }));
    buttons->addWidget(
        makeButton(QStringLiteral("Save Cal &Info"), QStringLiteral("Command14"),
                   QStringLiteral("Writes this worksheet and the reference values of the light colour to "
                                  "a report file."),
                   [this] { actions_.saveCalInfo(); }));
    buttons->addStretch();
    buttons->addWidget(new QLabel(QStringLiteral("Instrument index:")));
    auto* index = makeWorksheetLabel(QStringLiteral("Label71"), QStringLiteral("Instrument index"));
    bindings_.bind(shown_.current, [index](qint16 current) { index->setText(QString::number(current)); });
    buttons->addWidget(index);
    grid->addLayout(buttons, resultRow + 1, 0, 1, channelCount + 1);
    return frame;
}

void CalibrationPage::addWorksheetRow(QGridLayout* grid, int row) {
    const BoxRow& boxes = worksheetRows.at(static_cast<std::size_t>(row));
    const QString caption = QString::fromLatin1(boxes.caption);
    auto* selector = new QRadioButton(QString::fromLatin1(selectorCaptions.at(static_cast<std::size_t>(row))));
    selector->setObjectName(QStringLiteral("Option%1").arg(firstSelector + row));
    selector->setToolTip(QStringLiteral("The rows on the data sheet were measured for \"%1\".").arg(caption));
    connect(selector, &QRadioButton::clicked, this, [this, row] { shown_.selectedRow = row; });
    bindings_.bind(shown_.selectedRow, [selector, row](int selected) {
        if (selected == row) {
            selector->setChecked(true);
        }
    });
    grid->addWidget(selector, row + 1, 0);
    for (int channel = 0; channel < channelCount; ++channel) {
        const QString accessibleName = QStringLiteral("%1, angle %2").arg(caption, angleText(channel));
        auto* box = makeBox(shown_.worksheet.at(row, channel), boxName(boxes, channel), accessibleName);
        box->setToolTip(QStringLiteral("%1: kept as a whole number from -32768 to 32767.").arg(accessibleName));
        box->setAlignment(Qt::AlignRight);
        grid->addWidget(box, row + 1, channel + 1);
    }
}

void CalibrationPage::addResults(QGridLayout* grid, int gridRow) {
    auto* caption = new QLabel(QStringLiteral("DP"));
    caption->setToolTip(QStringLiteral("Expected counts of the point last calculated."));
    grid->addWidget(caption, gridRow, 0);
    for (int channel = 0; channel < channelCount; ++channel) {
        const auto index = static_cast<std::size_t>(channel);
        auto* label = makeWorksheetLabel(QStringLiteral("Label%1").arg(resultLabels.at(index)),
                                         QStringLiteral("DP, angle %1").arg(angleText(channel)));
        label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        bindings_.bind(shown_.results.at(index), [label](const QString& text) { label->setText(text); });
        grid->addWidget(label, gridRow, channel + 1);
    }
}

QGroupBox* CalibrationPage::makeReference() {
    auto* frame = new QGroupBox(QStringLiteral("&KP 7"));
    frame->setObjectName(QStringLiteral("ReferenceFrame"));
    auto* grid = makeChannelGrid(frame);
    for (int channel = 0; channel < channelCount; ++channel) {
        auto* heading = makeHeading(QStringLiteral("%1 / %2").arg(angleText(channel), reportColour(channel)));
        heading->setToolTip(QStringLiteral("\"Calc DP\" uses this column for the angle %1, the report for the light "
                                           "colour %2.")
                                .arg(angleText(channel), reportColour(channel)));
        grid->addWidget(heading, 0, channel + 1);
    }
    for (int row = 0; row < BoxGrid<referenceRows.size()>::rowCount; ++row) {
        const BoxRow& boxes = referenceRows.at(static_cast<std::size_t>(row));
        const QString caption = QString::fromLatin1(boxes.caption);
        auto* rowCaption = new QLabel(caption);
        grid->addWidget(rowCaption, row + 1, 0);
        for (int channel = 0; channel < channelCount; ++channel) {
            const QString accessibleName = QStringLiteral("Reference %1, column %2").arg(caption).arg(channel + 1);
            auto* box = makeBox(shown_.reference.at(row, channel), boxName(boxes, channel), accessibleName);
            box->setToolTip(accessibleName + QLatin1Char('.'));
            box->setAlignment(Qt::AlignRight);
            grid->addWidget(box, row + 1, channel + 1);
            if (channel == 0) {
                rowCaption->setBuddy(box);
            }
        }
    }
    return frame;
}

QLineEdit* CalibrationPage::makeBox(QProperty<QString>& text, const QString& name, const QString& accessibleName) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    connect(box, &QLineEdit::textEdited, this, [&text](const QString& typed) { text = typed; });
    bindings_.bind(text, [box](const QString& shown) {
        if (box->text() != shown) {
            box->setText(shown);
        }
    });
    return box;
}

QPushButton* CalibrationPage::makeButton(const QString& caption, const QString& name, const QString& toolTip,
                                         const std::function<void()>& action) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

TestingPage::TestingPage(Session& session, const std::function<void()>& resetShutter, QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("TestingPage"));
    auto* frame = new QGroupBox(QStringLiteral("Testing"));
    auto* layout = new QVBoxLayout(frame);

    auto* explanation = new QLabel(QStringLiteral(
        "Brings the shutter back to its rest position. The instrument only moves it with particular settings, so its "
        "own are read and kept, temporary ones are sent, the shutter moves for about half a minute, and the settings "
        "from before are sent back.\n\nLeave the cable in its place until the settings have been read back. \"Reset\", "
        "\"Close Port\" and \"Quit\" interrupt the reset; the instrument may then still hold the temporary settings."));
    explanation->setWordWrap(true);
    layout->addWidget(explanation);

    auto* button = new QPushButton(QStringLiteral("&Reset Shutter"));
    button->setObjectName(QStringLiteral("ResetShutter"));
    button->setToolTip(QStringLiteral("Moves the shutter to its rest position; takes up to a minute and a half."));
    QObject::connect(button, &QPushButton::clicked, this, resetShutter);
    bindings_.bind(session.commands.canResetShutter, [button](bool can) { button->setEnabled(can); });
    bindings_.bind(session.commands.resetShutterVisible, [button](bool visible) { button->setVisible(visible); });
    layout->addWidget(button, 0, Qt::AlignLeft);
    layout->addWidget(makeProgress(session));
    layout->addStretch();

    auto* pageLayout = new QVBoxLayout(this);
    pageLayout->addWidget(frame);
}

QWidget* TestingPage::makeProgress(Session& session) {
    auto* shown = new QWidget;
    auto* form = new QFormLayout(shown);
    form->setContentsMargins(0, 0, 0, 0);

    auto* status = new QLabel;
    status->setObjectName(QStringLiteral("TestingStatus"));
    status->setAccessibleName(QStringLiteral("Status"));
    bindings_.bind(session.status.status, [status](const QString& text) { status->setText(text); });
    form->addRow(QStringLiteral("Status:"), status);

    auto* progress = new QLineEdit;
    progress->setObjectName(QStringLiteral("TestingProgress"));
    progress->setReadOnly(true);
    QPalette palette = progress->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window)); // nothing can be typed here
    progress->setPalette(palette);
    progress->setAccessibleName(QStringLiteral("Progress of the shutter reset"));
    progress->setToolTip(QStringLiteral("The step of the shutter reset under way."));
    bindings_.bind(session.status.shutterProgress, [progress](const QString& text) { progress->setText(text); });

    auto* countdown = new QLabel;
    countdown->setObjectName(QStringLiteral("TestingCountdown"));
    countdown->setAccessibleName(QStringLiteral("Time left"));
    countdown->setToolTip(QStringLiteral("How long the shutter still moves."));
    countdown->setMinimumWidth(countdown->fontMetrics().horizontalAdvance(QStringLiteral("00 s ")));
    bindings_.bind(session.status.shutterCountdown, [countdown](const QString& text) { countdown->setText(text); });

    auto* row = new QHBoxLayout;
    row->addWidget(progress, 1);
    row->addWidget(countdown);
    auto* caption = new QLabel(QStringLiteral("Pro&gress:"));
    caption->setBuddy(progress);
    form->addRow(caption, row);
    return shown;
}

} // namespace orv
