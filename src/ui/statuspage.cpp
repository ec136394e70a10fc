// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/statuspage.h"

#include "base/words.h"
#include "ui/portsbox.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdlib>

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
    : QGroupBox(Screen::tr("Newest row"))
    , sheet_(program.sheet.data)
    , empty_(new QLabel(Screen::tr("No rows yet. Connect, then press Run.")))
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
    : ports_(new PortsBox(program))
    , counts_(this) {
    setObjectName(QStringLiteral("StatusPage"));
    auto* left = new QVBoxLayout;
    left->addWidget(makeStatusBox(program));
    left->addWidget(ports_);
    left->addWidget(makeInstrumentBox(program));
    left->addWidget(new NewestRowScreen(program));
    left->addStretch(1);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addWidget(makeControlsBox(program), 0, Qt::AlignTop);
}

QGroupBox* StatusPage::makeStatusBox(const Program& program) {
    const StatusState& shown = program.link.session.status;
    auto* progress = makeValueLabel("RunProgress", Screen::tr("How far the run or the download has come"));
    auto* status = makeValueLabel("Label20", Screen::tr("Status"));
    enlarge(status, 2.2);
    auto* shutter = makeReadOnlyBox("Text38", Screen::tr("Shutter reset progress"),
                                    Screen::tr("The step of the shutter reset under way."));
    shutter->setFrame(false);
    QPalette transparent;
    transparent.setColor(QPalette::Base, Qt::transparent);
    shutter->setPalette(transparent);
    shutter->setFixedWidth(shutter->fontMetrics().horizontalAdvance(Screen::tr("Restoring Orignal Settings") +
                                                                    QLatin1String(" 00000000")));
    auto* countdown = makeValueLabel("ShutterCountdown", Screen::tr("Time the shutter still moves"));
    auto* notice = makeValueLabel("Notice", Screen::tr("Remark"));
    notice->setWordWrap(true);
    auto* box = makeFrame(Screen::tr("Status"));
    auto* layout = new QVBoxLayout(box);
    auto* statusRow = new QHBoxLayout;
    auto* shutterRow = new QHBoxLayout;
    layout->addLayout(statusRow);
    statusRow->addWidget(status);
    statusRow->addWidget(progress, 1);
    progress->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    progress->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // it must not make the page wider
    layout->addLayout(shutterRow);
    shutterRow->addWidget(shutter);
    shutterRow->addWidget(countdown);
    shutterRow->addStretch(1);
    layout->addWidget(notice);

    bindText(bindings_, status, shown.status);
    const auto showUnlessEmpty = [this](const QProperty<Words>& text, auto* control) {
        bindings_.bind(text, [control](const Words& now) {
            control->setText(now.shown());
            control->setVisible(!now.isEmpty());
        });
    };
    showUnlessEmpty(shown.shutterProgress, shutter);
    showUnlessEmpty(shown.shutterCountdown, countdown);
    showUnlessEmpty(shown.notice, notice);
    bindText(bindings_, progress, program.progress.text);
    return box;
}

QGroupBox* StatusPage::makeInstrumentBox(const Program& program) {
    auto* box = makeFrame(Screen::tr("Instrument"));
    auto* columns = new QHBoxLayout(box);
    auto* said = new QFormLayout;
    auto* counted = new QFormLayout;
    for (QFormLayout* form : {said, counted}) {
        form->setHorizontalSpacing(24);
        form->setVerticalSpacing(8);
        columns->addLayout(form, 1);
    }
    const auto addRow = [](QFormLayout* form, const QString& caption, const char* name) {
        auto* label = makeValueLabel(name, caption);
        enlarge(label, 1.2);
        form->addRow(caption, label);
        return label;
    };
    const auto addCount = [this, counted](const QString& caption, QLabel* label, const auto& count) {
        counted->addRow(caption, label);
        counts_.bind(label, count);
    };
    const StatusState& status = program.link.session.status;
    auto* clock = makeValueLabel("ClockOffset", Screen::tr("How the instrument's clock stands"));
    clock->setWordWrap(true);
    auto* instrument = addRow(said, Screen::tr("Instrument:"), "InstrumentLabel");
    bindText(bindings_, addRow(said, Screen::tr("Firmware Ver."), "FirmwareLabel"), status.firmware);
    bindText(bindings_, addRow(said, Screen::tr("Date"), "Label23"), status.date);
    bindText(bindings_, addRow(said, Screen::tr("Time"), "Label22"), status.time);
    addCount(Screen::tr("Rows on the sheet"),
             makeNumberLabel("StatusRows", Screen::tr("Rows on the sheet"), "0000000000", 1.2),
             program.sheet.shown.counter);
    bindText(bindings_, addRow(counted, Screen::tr("Bytes downloaded"), "DownloadedBytes"), status.downloadedBytes);
    addCount(Screen::tr("Buffer"),
             makeNumberLabel("BufferLabel", Screen::tr("Characters in the receive buffer"), "0000000000"),
             status.bufferCount);
    counted->addRow(Screen::tr("Clock"), clock);
    bindings_.bind(status.clockOffset, [clock](const std::optional<qint64>& ahead) {
        constexpr qint64 tooMuch = 60;
        const QString words = ahead ? clockOffsetInWords(*ahead).shown() : StatusState::unknownShort();
        clock->setText(std::abs(ahead.value_or(0)) <= tooMuch
                           ? words
                           : Screen::tr("%1. \"At the full minute\" sets it.").arg(words));
    });
    bindings_.bind(status.instrument, [instrument](InstrumentType type) { instrument->setText(instrumentName(type)); });
    return box;
}

QGroupBox* StatusPage::makeControlsBox(Program& program) {
    auto* box = makeFrame(Screen::tr("Controls"));
    auto* layout = new QVBoxLayout(box);
    auto* run = makeButton(
        Screen::tr("&Run"), "Command2", [&program] { program.run(); },
        Screen::tr("Starts a real-time collection. Rows go to the Spread Sheet and to Orvtemp.tmp."));
    auto* reset = new EndingButton(Screen::tr("R&eset"));
    reset->setObjectName(QStringLiteral("ResetButton"));
    reset->setToolTip(Screen::tr("Stops current collection and requires the instrument to be reset."));
    reset->setAutoDefault(false);
    connect(reset, &QPushButton::clicked, this, [&program] { program.reset(); });
    auto* shutter = makeButton(
        Screen::tr("Reset Sh&utter"), "ResetShutterButton", [&program] { program.resetShutter(); },
        Screen::tr("Moves the instrument's shutter back to its rest position."));
    for (QPushButton* button : {run, static_cast<QPushButton*>(reset), shutter}) {
        button->setMinimumSize(150, 38);
        layout->addWidget(button);
    }
    const CommandState& commands = program.link.session.commands;
    bindEnabled(bindings_, run, commands.canRun);
    bindVisible(bindings_, run, commands.runVisible);
    bindEnabled(bindings_, reset, commands.resetEnabled);
    bindings_.bind(commands.activity, [reset](Activity) { reset->disarm(); });
    bindEnabled(bindings_, shutter, commands.canResetShutter);
    bindVisible(bindings_, shutter, commands.resetShutterVisible);
    return box;
}

void StatusPage::enter() {
    ports_->enter();
}

} // namespace orv
