// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/statuspage.h"

#include "ui/portsbox.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace orv {

namespace {

constexpr int columnsAcross = 3;
constexpr int valueMargin = 4;

/// Makes a value as large as a text in its letters, at least as wide as the usual ones. The size is fixed, so that most
/// new values do not lay out the page anew.
void fit(QLabel& value, const QString& text) {
    const QFontMetrics metrics = value.fontMetrics();
    const int width =
        std::max(metrics.horizontalAdvance(text), metrics.horizontalAdvance(QStringLiteral("00000.00000")));
    value.setFixedSize(2 * valueMargin + width, metrics.height() + valueMargin);
}

/// The newest row of the sheet in large figures, to be read from a few steps away. Drawn about four times a second
/// while rows come, and not at all while hidden.
class NewestRowScreen final : public QGroupBox {
public:
    explicit NewestRowScreen(const Program& program);

protected:
    void changeEvent(QEvent* event) override;

private:
    void draw();

    const DataSheet& sheet_;
    std::vector<QLabel*> captions_;
    std::vector<QLabel*> values_;
    QLabel* empty_;
    Redrawing redrawing_;
    Bindings bindings_;
};

NewestRowScreen::NewestRowScreen(const Program& program)
    : QGroupBox(QStringLiteral("Newest row"))
    , sheet_(program.sheet.data)
    , empty_(new QLabel(QStringLiteral("No rows yet. Connect, then press Run.")))
    , redrawing_(this, LateTexts::delay, [this] { draw(); }) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(32);
    grid->addWidget(empty_, 0, 0, 1, columnsAcross);
    for (int column = 0; column < DataSheet::columnCount; ++column) {
        auto* caption = new QLabel;
        auto* value = new QLabel;
        enlarge(value, 1.9);
        value->setTextFormat(Qt::PlainText);
        fit(*value, QString());
        value->setIndent(valueMargin);
        value->setAutoFillBackground(true); // so that a new value does not paint the box behind it anew
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
    bindings_.bind(program.sheet.shown.counter, [this](const QString&) { redrawing_.noteChange(); });
    draw();
}

void NewestRowScreen::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        for (QLabel* value : values_) {
            fit(*value, value->text());
        }
    }
    QGroupBox::changeEvent(event);
}

void NewestRowScreen::draw() {
    const int row = sheet_.rowCount() - 1;
    empty_->setVisible(row < 0);
    for (std::size_t column = 0; column < values_.size(); ++column) {
        const QString caption = row < 0 ? QString() : sheet_.columnNames().value(static_cast<qsizetype>(column));
        if (captions_[column]->text() != caption) {
            captions_[column]->setText(caption);
            captions_[column]->setVisible(!caption.isEmpty());
            values_[column]->setVisible(!caption.isEmpty());
            values_[column]->setAccessibleName(caption);
        }
        QLabel* value = values_[column];
        const QString text = sheet_.cell(row, static_cast<int>(column));
        if (value->text() != text) {
            fit(*value, text);
            value->setText(text);
        }
    }
}

} // namespace

StatusPage::StatusPage(Program& program)
    : counts_(this) {
    setObjectName(QStringLiteral("StatusPage"));
    auto* left = new QVBoxLayout;
    left->addWidget(makeStatusBox(program.link.session.status));
    left->addWidget(new PortsBox(program.link.portChoices));
    left->addWidget(makeInstrumentBox(program));
    left->addWidget(new NewestRowScreen(program));
    left->addStretch(1);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addWidget(makeControlsBox(program), 0, Qt::AlignTop);
}

QGroupBox* StatusPage::makeStatusBox(const StatusState& shown) {
    auto* status = makeValueLabel("Label20", "Status");
    enlarge(status, 2.2);
    auto* shutter = makeReadOnlyBox("Text38", "Shutter reset progress", "The step of the shutter reset under way.");
    shutter->setFrame(false);
    QPalette transparent;
    transparent.setColor(QPalette::Base, Qt::transparent);
    shutter->setPalette(transparent);
    shutter->setFixedWidth(
        shutter->fontMetrics().horizontalAdvance(QStringLiteral("Restoring Orignal Settings 00000000")));
    auto* countdown = makeValueLabel("ShutterCountdown", "Time the shutter still moves");
    auto* notice = makeValueLabel("Notice", "Remark");
    notice->setWordWrap(true);
    auto* box = makeFrame("Status");
    auto* layout = new QVBoxLayout(box);
    auto* shutterRow = new QHBoxLayout;
    layout->addWidget(status);
    layout->addLayout(shutterRow);
    shutterRow->addWidget(shutter);
    shutterRow->addWidget(countdown);
    shutterRow->addStretch(1);
    layout->addWidget(notice);

    bindText(bindings_, status, shown.status);
    const auto showUnlessEmpty = [this](const QProperty<QString>& text, auto* control) {
        bindings_.bind(text, [control](const QString& now) {
            control->setText(now);
            control->setVisible(!now.isEmpty());
        });
    };
    showUnlessEmpty(shown.shutterProgress, shutter);
    showUnlessEmpty(shown.shutterCountdown, countdown);
    showUnlessEmpty(shown.notice, notice);
    return box;
}

QGroupBox* StatusPage::makeInstrumentBox(const Program& program) {
    auto* box = makeFrame("Instrument");
    auto* form = new QFormLayout(box);
    form->setHorizontalSpacing(24);
    form->setVerticalSpacing(8);
    const auto addRow = [form](const QString& caption, const char* name) {
        auto* label = makeValueLabel(name, caption);
        enlarge(label, 1.2);
        form->addRow(caption, label);
        return label;
    };
    const auto addCount = [this, form](const QString& caption, QLabel* label, const auto& count) {
        form->addRow(caption, label);
        counts_.bind(label, count);
    };
    const StatusState& status = program.link.session.status;
    auto* instrument = addRow(QStringLiteral("Instrument:"), "InstrumentLabel");
    bindText(bindings_, addRow(QStringLiteral("Firmware Ver."), "FirmwareLabel"), status.firmware);
    bindText(bindings_, addRow(QStringLiteral("Date"), "Label23"), status.date);
    bindText(bindings_, addRow(QStringLiteral("Time"), "Label22"), status.time);
    addCount(QStringLiteral("Rows on the sheet"), makeNumberLabel("StatusRows", "Rows on the sheet", "0000000000", 1.2),
             program.sheet.shown.counter);
    bindText(bindings_, addRow(QStringLiteral("Bytes downloaded"), "DownloadedBytes"), status.downloadedBytes);
    addCount(QStringLiteral("Buffer"), makeNumberLabel("BufferLabel", "Characters in the receive buffer", "0000000000"),
             status.bufferCount);
    bindings_.bind(status.instrument, [instrument](InstrumentType type) { instrument->setText(instrumentName(type)); });
    return box;
}

QGroupBox* StatusPage::makeControlsBox(Program& program) {
    auto* box = makeFrame("Controls");
    auto* layout = new QVBoxLayout(box);
    auto* run = makeButton(
        "&Run", "Command2", [&program] { program.run(); },
        "Starts a real-time collection. Rows go to the Spread Sheet and to Orvtemp.tmp.");
    auto* reset = makeButton(
        "R&eset", "ResetButton", [&program] { program.reset(); },
        "Stops current collection and requires the instrument to be reset.");
    auto* shutter = makeButton(
        "Reset Sh&utter", "ResetShutterButton", [&program] { program.resetShutter(); },
        "Moves the instrument's shutter back to its rest position.");
    for (QPushButton* button : {run, reset, shutter}) {
        button->setMinimumSize(150, 38);
        layout->addWidget(button);
    }
    const CommandState& commands = program.link.session.commands;
    bindEnabled(bindings_, run, commands.canRun);
    bindVisible(bindings_, run, commands.runVisible);
    bindEnabled(bindings_, reset, commands.resetEnabled);
    bindEnabled(bindings_, shutter, commands.canResetShutter);
    bindVisible(bindings_, shutter, commands.resetShutterVisible);
    return box;
}

} // namespace orv
