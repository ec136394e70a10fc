// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/statuspage.h"

#include "ui/portsbox.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace orv {

namespace {

constexpr int drawDelay = 200; ///< Milliseconds after the first of some rows.
constexpr int columnsAcross = 3;
constexpr int valueMargin = 4;

/// Pixels that a value takes, at least those of the usual ones.
int widthOf(const QLabel& value, const QString& text) {
    const QFontMetrics metrics = value.fontMetrics();
    return 2 * valueMargin +
           std::max(metrics.horizontalAdvance(text), metrics.horizontalAdvance(QStringLiteral("00000.00000")));
}

} // namespace

NewestRowScreen::NewestRowScreen(const DataSheet& sheet, const SheetState& shown, QWidget* parent)
    : QGroupBox(QStringLiteral("Newest row"), parent)
    , sheet_(sheet)
    , empty_(new QLabel(QStringLiteral("No rows yet. Connect, then press Run."))) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(32);
    grid->addWidget(empty_, 0, 0, 1, columnsAcross);
    for (int column = 0; column < DataSheet::columnCount; ++column) {
        auto* caption = new QLabel;
        auto* value = new QLabel;
        QFont font = value->font();
        font.setPointSizeF(font.pointSizeF() * 1.9);
        value->setFont(font);
        value->setTextFormat(Qt::PlainText);
        // A fixed size, so that a new value does not lay out the page anew; an own background, so that it does not
        // paint the box behind it anew.
        value->setFixedSize(widthOf(*value, QString()), value->fontMetrics().height() + valueMargin);
        value->setIndent(valueMargin);
        value->setAutoFillBackground(true);
        value->setBackgroundRole(QPalette::Base);
        caption->hide();
        value->hide();
        const int row = 1 + column / columnsAcross * 2;
        grid->addWidget(caption, row, column % columnsAcross, Qt::AlignLeft);
        grid->addWidget(value, row + 1, column % columnsAcross, Qt::AlignLeft);
        captions_.push_back(caption);
        values_.push_back(value);
    }
    for (int column = 0; column < columnsAcross; ++column) {
        grid->setColumnStretch(column, 1);
    }
    drawTimer_.setSingleShot(true);
    drawTimer_.setInterval(drawDelay);
    connect(&drawTimer_, &QTimer::timeout, this, [this] { draw(); });
    bindings_.bind(shown.counter, [this](const QString&) {
        if (isVisible() && !drawTimer_.isActive()) {
            drawTimer_.start();
        }
    });
    draw();
}

void NewestRowScreen::draw() {
    // A row of another type of instrument must not stand under this one's names.
    const int row = sheet_.rowCount() > sheet_.rowsOfOtherLayout() ? sheet_.rowCount() - 1 : -1;
    empty_->setVisible(row < 0);
    for (std::size_t column = 0; column < values_.size(); ++column) {
        const QString caption = row < 0 ? QString() : sheet_.header().value(static_cast<qsizetype>(column));
        if (captions_[column]->text() != caption) {
            captions_[column]->setText(caption);
            captions_[column]->setVisible(!caption.isEmpty());
            values_[column]->setVisible(!caption.isEmpty());
            values_[column]->setAccessibleName(caption);
        }
        QLabel* value = values_[column];
        const QString text = sheet_.cell(row, static_cast<int>(column));
        if (value->text() != text) {
            value->setText(text);
            value->setFixedWidth(widthOf(*value, text));
        }
    }
}

void NewestRowScreen::showEvent(QShowEvent* event) {
    QGroupBox::showEvent(event);
    draw();
}

namespace {

QLabel* makeValue(const QString& name, const QString& accessibleName) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// The box with the shutter reset's step: nothing can be typed there, so it does not look as if.
QLineEdit* makeProgressBox() {
    auto* box = new QLineEdit;
    box->setObjectName(QStringLiteral("Text38"));
    box->setAccessibleName(QStringLiteral("Shutter reset progress"));
    box->setToolTip(QStringLiteral("The step of the shutter reset under way."));
    box->setReadOnly(true);
    box->setFrame(false);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    box->setPalette(palette);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("Restoring Orignal Settings 00000000")));
    return box;
}

void enlarge(QLabel* label, double factor) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    label->setFont(font);
}

constexpr int countsPaintDelay = 200; ///< Milliseconds after the first of some changes.

/// A label for a number. Its size is fixed, so that a new number does not lay out the page anew.
QLabel* makeCount(const QString& name, const QString& accessibleName, double size) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    enlarge(label, size);
    label->setFixedSize(label->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")),
                        label->fontMetrics().height());
    return label;
}

} // namespace

StatusPage::StatusPage(Program& program, const Actions& actions, QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("StatusPage"));
    countsTimer_.setSingleShot(true);
    countsTimer_.setInterval(countsPaintDelay);
    connect(&countsTimer_, &QTimer::timeout, this, [this] {
        for (QLabel* count : counts_) {
            count->update();
        }
    });
    auto* left = new QVBoxLayout;
    left->addWidget(makeStatusBox(program));
    left->addWidget(new PortsBox(program.portChoices));
    left->addWidget(makeInstrumentBox(program));
    left->addWidget(new NewestRowScreen(program.sheet, program.sheetState));
    left->addStretch(1);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addWidget(makeControlsBox(program, actions), 0, Qt::AlignTop);
}

QWidget* StatusPage::makeStatusBox(Program& program) {
    auto* box = new QGroupBox(QStringLiteral("Status"));
    auto* status = makeValue(QStringLiteral("Label20"), QStringLiteral("Status"));
    enlarge(status, 2.2);
    auto* shutter = makeProgressBox();
    auto* countdown = makeValue(QStringLiteral("ShutterCountdown"), QStringLiteral("Time the shutter still moves"));
    auto* notice = makeValue(QStringLiteral("Notice"), QStringLiteral("Remark"));
    notice->setWordWrap(true);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(status);
    auto* shutterRow = new QHBoxLayout;
    shutterRow->addWidget(shutter);
    shutterRow->addWidget(countdown);
    shutterRow->addStretch(1);
    layout->addLayout(shutterRow);
    layout->addWidget(notice);

    bindings_.bind(program.session.status.status, [status](const QString& text) {
        status->setText(text);
        status->repaint(); // a procedure that does not yield may follow
    });
    bindings_.bind(program.session.status.shutterProgress, [shutter](const QString& text) {
        shutter->setText(text);
        shutter->setVisible(!text.isEmpty());
        shutter->repaint();
    });
    bindings_.bind(program.session.status.shutterCountdown, [countdown](const QString& text) {
        countdown->setText(text);
        countdown->setVisible(!text.isEmpty());
    });
    bindings_.bind(program.session.status.notice, [notice](const QString& text) {
        notice->setText(text);
        notice->setVisible(!text.isEmpty());
    });
    return box;
}

QWidget* StatusPage::makeInstrumentBox(Program& program) {
    auto* box = new QGroupBox(QStringLiteral("Instrument"));
    auto* form = new QFormLayout(box);
    form->setHorizontalSpacing(24);
    form->setVerticalSpacing(8);
    const auto addRow = [this, form](const QString& caption, const QString& name) {
        auto* label = makeValue(name, caption);
        enlarge(label, 1.2);
        form->addRow(caption, label);
        return label;
    };
    const auto addText = [this, addRow](const QString& caption, const QString& name, const QProperty<QString>& value) {
        bindings_.bind(value, [label = addRow(caption, name)](const QString& text) { label->setText(text); });
    };
    const StatusState& status = program.session.status;
    bindings_.bind(status.instrument,
                   [label = addRow(QStringLiteral("Instrument:"), QStringLiteral("InstrumentLabel"))](
                       InstrumentType type) { label->setText(instrumentName(type)); });
    addText(QStringLiteral("Firmware Ver."), QStringLiteral("FirmwareLabel"), status.firmware);
    addText(QStringLiteral("Date"), QStringLiteral("Label23"), status.date);
    addText(QStringLiteral("Time"), QStringLiteral("Label22"), status.time);
    auto* rows = makeCount(QStringLiteral("StatusRows"), QStringLiteral("Rows on the sheet"), 1.2);
    form->addRow(QStringLiteral("Rows on the sheet"), rows);
    addText(QStringLiteral("Bytes downloaded"), QStringLiteral("DownloadedBytes"), status.downloadedBytes);
    auto* buffer = makeCount(QStringLiteral("BufferLabel"), QStringLiteral("Characters in the receive buffer"), 1.0);
    form->addRow(QStringLiteral("Buffer"), buffer);
    counts_ = {rows, buffer};
    bindings_.bind(program.sheetState.counter, [this, rows](const QString& text) { setCount(rows, text); });
    bindings_.bind(status.bufferCount, [this, buffer](int count) { setCount(buffer, QString::number(count)); });
    return box;
}

void StatusPage::setCount(QLabel* label, const QString& text) {
    label->setAttribute(Qt::WA_UpdatesDisabled, true);
    label->setText(text);
    label->setAttribute(Qt::WA_UpdatesDisabled, false);
    if (isVisible() && !countsTimer_.isActive()) {
        countsTimer_.start();
    }
}

QWidget* StatusPage::makeControlsBox(Program& program, const Actions& actions) {
    auto* box = new QGroupBox(QStringLiteral("Controls"));
    auto* layout = new QVBoxLayout(box);
    const auto addButton = [this, layout](const QString& caption, const QString& name, const QString& toolTip,
                                          const std::function<void()>& action) {
        auto* button = new QPushButton(caption);
        button->setObjectName(name);
        button->setToolTip(toolTip);
        button->setMinimumSize(150, 38);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [action] { action(); });
        return button;
    };
    auto* run =
        addButton(QStringLiteral("&Run"), QStringLiteral("Command2"),
                  QStringLiteral("Starts a real-time collection. Rows go to the Spread Sheet and to Orvtemp.tmp. (F5)"),
                  actions.run);
    auto* reset =
        addButton(QStringLiteral("R&eset"), QStringLiteral("ResetButton"),
                  QStringLiteral("Stops current collection and requires the instrument to be reset."), actions.reset);
    auto* shutter =
        addButton(QStringLiteral("Reset Sh&utter"), QStringLiteral("ResetShutterButton"),
                  QStringLiteral("Moves the instrument's shutter back to its rest position."), actions.resetShutter);
    const CommandState& commands = program.session.commands;
    bindings_.bind(commands.canRun, [run](bool can) { run->setEnabled(can); });
    bindings_.bind(commands.runVisible, [run](bool visible) { run->setVisible(visible); });
    bindings_.bind(commands.resetEnabled, [reset](bool can) { reset->setEnabled(can); });
    bindings_.bind(commands.canResetShutter, [shutter](bool can) { shutter->setEnabled(can); });
    bindings_.bind(commands.resetShutterVisible, [shutter](bool visible) { shutter->setVisible(visible); });
    return box;
}

} // namespace orv
