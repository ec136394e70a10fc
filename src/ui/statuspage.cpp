// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/statuspage.h"

#include "base/words.h"
#include "ui/portsbox.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdlib>

namespace orv {

namespace {

constexpr int columnsAcross = 4;
constexpr int valueMargin = 4;

/// The longest of the usual values.
constexpr QLatin1String longestUsual("00000.00000");

/// Whether a text has room where the usual values have it: figures and what stands between them are not wider than 0.
bool isUsual(const QString& text) {
    return text.size() <= longestUsual.size() && std::ranges::all_of(text, [](QChar character) {
               return character.isDigit() || QLatin1String(".-/: ").contains(character);
           });
}

/// Makes a value as large as a text in its letters, at least as wide as the usual ones. The size is fixed, so that most
/// new values do not lay out the page anew.
void fit(QLabel& value, const QString& text) {
    const QFontMetrics metrics = value.fontMetrics();
    const int width = std::max(metrics.horizontalAdvance(text), metrics.horizontalAdvance(longestUsual));
    value.setFixedSize(2 * valueMargin + width, metrics.height() + valueMargin);
}

/// The newest row of the sheet in large figures, to be read from a few steps away. Drawn with the counts of the page.
class NewestRowScreen final : public QGroupBox {
public:
    NewestRowScreen(const Program& program, LateTexts& counts);

protected:
    void changeEvent(QEvent* event) override;

private:
    void draw();

    const DataSheet& sheet_;
    const QProperty<bool>& noRowYet_;
    std::vector<QLabel*> captions_;
    std::vector<QLabel*> values_;
    std::vector<QString> names_; ///< Of the columns whose captions are shown.
    QLabel* empty_;
    Bindings bindings_;
};

NewestRowScreen::NewestRowScreen(const Program& program, LateTexts& counts)
    : QGroupBox(Screen::tr("Newest row"))
    , sheet_(program.sheet.data)
    , noRowYet_(program.progress.noRowYet)
    , empty_(makeTextLabel("NoRowsYet", {})) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(3);
    grid->addWidget(empty_, 0, 0, 1, columnsAcross);
    for (int column = 0; column < DataSheet::columnCount; ++column) {
        auto* caption = new QLabel;
        auto* value = new QLabel;
        value->setObjectName(QStringLiteral("NewestValue%1").arg(column));
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
    names_.resize(values_.size());
    for (int column = 0; column < columnsAcross; ++column) {
        grid->setColumnStretch(column, 1);
    }
    const CommandState& commands = program.link.session.commands;
    const QProperty<InstrumentType>& type = program.link.session.status.instrument;
    const auto tellNext = [this, &commands, &type](auto&&) {
        // In a run the rows before may have been saved and cleared by themselves.
        const bool mayHaveHadRows = commands.activity.value() == Activity::Collecting && !noRowYet_;
        const bool isReady = commands.canRun && type.value() != InstrumentType::Unknown;
        empty_->setText(isReady             ? Screen::tr("No rows yet. Press Run.")
                        : mayHaveHadRows    ? QString()
                        : commands.portOpen ? Screen::tr("No rows yet.")
                                            : Screen::tr("No rows yet. Connect, then press Run."));
    };
    bindings_.bind(type, tellNext);
    bindings_.bind(commands.canRun, tellNext);
    bindings_.bind(commands.portOpen, tellNext);
    counts.bind(program.sheet.shown.counter, [this] { draw(); });
    bindings_.bind(noRowYet_, [this, &counts, tellNext](bool yet) {
        tellNext(yet);
        counts.drawNow(); // the counts are of the same moment
        draw();
    });
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
    const bool isOld = row >= 0 && noRowYet_;
    empty_->setVisible(row < 0);
    if (values_.front()->isEnabled() == isOld) {
        setTitle(isOld ? Screen::tr("Newest row (from before this run)") : Screen::tr("Newest row"));
        for (QLabel* value : values_) {
            value->setEnabled(!isOld);
        }
    }
    for (std::size_t column = 0; column < values_.size(); ++column) {
        const QString name = row < 0 ? QString() : sheet_.columnNames().value(static_cast<qsizetype>(column));
        if (names_[column] != name) {
            names_[column] = name;
            const QString caption = shownColumn(name);
            captions_[column]->setText(caption);
            captions_[column]->setVisible(!caption.isEmpty());
            values_[column]->setVisible(!caption.isEmpty());
            values_[column]->setAccessibleName(caption);
        }
        QLabel* value = values_[column];
        const QString text = sheet_.cell(row, static_cast<int>(column));
        if (value->text() != text) {
            if (!isUsual(text) || !isUsual(value->text())) {
                fit(*value, text);
            }
            value->setText(text);
        }
    }
}

/// A label in large letters, in smaller ones where its text has no room: it neither widens the page nor wraps.
class FittingLabel final : public QWidget {
public:
    FittingLabel(QLabel* label, double factor)
        : label_(label)
        , usual_(label->font())
        , factor_(factor) {
        label->setParent(this);
        enlarge(label, factor);
        large_ = label->font();
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        setFixedHeight(label->fontMetrics().lineSpacing());
    }

    void setText(const QString& text) {
        label_->setText(text);
        updateGeometry();
        fit();
    }

    QSize sizeHint() const override { return {QFontMetrics(large_).horizontalAdvance(label_->text()) + 2, height()}; }
    QSize minimumSizeHint() const override { return {1, height()}; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        fit();
    }

private:
    void fit() {
        QFont font = large_;
        constexpr double step = 0.1;
        for (double factor = factor_; factor > 1.0 && QFontMetrics(font).horizontalAdvance(label_->text()) > width();
             factor -= step) {
            font.setPointSizeF(usual_.pointSizeF() * factor);
        }
        label_->setFont(font);
        label_->setGeometry(rect());
        label_->setToolTip(QFontMetrics(font).horizontalAdvance(label_->text()) > width() ? label_->text() : QString());
    }

    QLabel* label_;
    QFont usual_;
    QFont large_;
    double factor_;
};

} // namespace

StatusPage::StatusPage(Program& program)
    : ports_(new PortsBox(program))
    , counts_(this) {
    setObjectName(QStringLiteral("StatusPage"));
    auto* left = new QVBoxLayout;
    left->addWidget(makeStatusBox(program));
    left->addWidget(ports_);
    left->addWidget(makeInstrumentBox(program));
    auto* layout = new QGridLayout(this);
    layout->setColumnStretch(0, 1);
    layout->addLayout(left, 0, 0);
    layout->addWidget(new NewestRowScreen(program, counts_), 1, 0, 1, 2);
    layout->addWidget(makeControlsBox(program), 0, 1, Qt::AlignTop);
    layout->setRowStretch(2, 1);
}

QGroupBox* StatusPage::makeStatusBox(const Program& program) {
    const StatusState& shown = program.link.session.status;
    auto* progressLabel = makeChangingLabel("RunProgress", Screen::tr("How far the run or the download has come"));
    progressLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* progress = new SteadyLabel(progressLabel);
    progress->setMinimumWidth(progress->fontMetrics().horizontalAdvance(QLatin1String("00 min 00 s, 000 / s")));
    constexpr double large = 2.2;
    auto* status = new FittingLabel(makeValueLabel("Label20", Screen::tr("Status")), large);
    auto* shutter = makeReadOnlyBox("Text38", Screen::tr("Shutter reset progress"),
                                    Screen::tr("The step of the shutter reset under way."));
    shutter->setFrame(false);
    QPalette transparent;
    transparent.setColor(QPalette::Base, Qt::transparent);
    shutter->setPalette(transparent);
    shutter->setFixedWidth(shutter->fontMetrics().horizontalAdvance(Screen::tr("Restoring Orignal Settings") +
                                                                    QLatin1String(" 00000000")));
    auto* countdown = makeNumberLabel("ShutterCountdown", Screen::tr("Time the shutter still moves"), "00 s ");
    auto* notice = new SteadyLabel(makeValueLabel("Notice", Screen::tr("Remark")));
    auto* box = makeFrame(Screen::tr("Status"));
    auto* layout = new QVBoxLayout(box);
    auto* statusRow = new QHBoxLayout;
    auto* shutterRow = new QHBoxLayout;
    layout->addLayout(statusRow);
    statusRow->addWidget(status);
    statusRow->addWidget(progress, 1);
    layout->addLayout(shutterRow);
    shutterRow->addWidget(shutter);
    shutterRow->addWidget(countdown);
    shutterRow->addWidget(notice, 1);
    auto* room = new QSpacerItem(0, shutter->sizeHint().height()); // so that nothing moves when the shutter does
    shutterRow->addItem(room);

    bindings_.bind(shown.status, [status](const Words& text) { status->setText(text.shown()); });
    const auto showUnlessEmpty = [this](const QProperty<Words>& text, auto* control) {
        bindings_.bind(text, [control](const Words& now) {
            control->setText(now.shown());
            control->setVisible(!now.isEmpty());
        });
    };
    showUnlessEmpty(shown.shutterProgress, shutter);
    showUnlessEmpty(shown.shutterCountdown, countdown);
    const QProperty<int>& secondsToFullMinute = program.settings.shown.secondsToFullMinute;
    const auto remark = [notice, &shown, &secondsToFullMinute](auto&&) { // what is told of something before is old
        const bool isOld = secondsToFullMinute > 0 || !shown.shutterProgress.value().isEmpty();
        notice->setText(isOld ? QString() : shown.notice.value().shown());
    };
    bindings_.bind(shown.notice, remark);
    bindings_.bind(secondsToFullMinute, remark);
    bindings_.bind(shown.shutterProgress, remark);
    bindings_.bind(program.progress.text, [this, progress](const Words& text) {
        progress->setText(text.shown());
        counts_.drawNow();
    });
    return box;
}

QGroupBox* StatusPage::makeInstrumentBox(const Program& program) {
    auto* box = makeFrame(Screen::tr("Instrument"));
    auto* grid = new QGridLayout(box);
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 2);
    constexpr int counted = 2; // the column of the captions of what is counted
    const auto add = [grid](int row, int column, const QString& caption, QLabel* label) {
        grid->addWidget(makeCaption(caption, label), row, column, Qt::AlignLeft | Qt::AlignTop);
        grid->addWidget(label, row, column + 1, Qt::AlignLeft | Qt::AlignTop);
        return label;
    };
    const auto addValue = [add](int row, int column, const QString& caption, const char* name) {
        return add(row, column, caption, makeValueLabel(name, caption));
    };
    const StatusState& status = program.link.session.status;
    auto* clock = new SteadyLabel(makeValueLabel("ClockOffset", Screen::tr("How the instrument's clock stands")), 2);
    QLabel* instrument = addValue(0, 0, Screen::tr("Instrument:"), "InstrumentLabel");
    bindText(bindings_, addValue(1, 0, Screen::tr("Firmware Ver."), "FirmwareLabel"), status.firmware);
    bindText(bindings_, addValue(2, 0, Screen::tr("Date"), "Label23"), status.date);
    bindText(bindings_, addValue(3, 0, Screen::tr("Time"), "Label22"), status.time);
    counts_.bind(add(0, counted, Screen::tr("Rows on the sheet"),
                     makeNumberLabel("StatusRows", Screen::tr("Rows on the sheet"), "0000000000")),
                 program.sheet.shown.counter);
    bindText(bindings_, addValue(1, counted, Screen::tr("Bytes downloaded"), "DownloadedBytes"),
             status.downloadedBytes);
    counts_.bind(add(2, counted, Screen::tr("Buffer"),
                     makeNumberLabel("BufferLabel", Screen::tr("Characters in the receive buffer"), "0000000000")),
                 status.bufferCount);
    grid->addWidget(new QLabel(Screen::tr("Clock")), 3, counted, Qt::AlignLeft | Qt::AlignTop);
    grid->addWidget(clock, 3, counted + 1);
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
        keepRoomOf(button);
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
