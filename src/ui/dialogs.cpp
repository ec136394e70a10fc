// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs.h"

#include "base/words.h"
#include "settings/plainenglish.h"
#include "ui/messageboxes.h"
#include "ui/widgets.h"

#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace orv {

AboutDialog::AboutDialog(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("AboutDialog"));
    setWindowTitle(Screen::tr("About Orv Host"));
    auto* name = new QLabel(Screen::tr("ORV Host Program"));
    enlarge(name, 1.6);
    auto* version = new QLabel(Screen::tr("Version %1").arg(QCoreApplication::applicationVersion()));
    version->setObjectName(QStringLiteral("VersionLabel"));
    auto* purpose = new QLabel(Screen::tr("Connects the ORV self-logging optical water sensors GLOW and TRX:\n"
                                          "settings, live data, stored data, calibration."));
    auto* ok = makeButton(Screen::tr("&OK"), "cmdOK", [this] { accept(); });
    ok->setAutoDefault(true);
    ok->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(12);
    layout->addWidget(name);
    layout->addWidget(version);
    layout->addWidget(purpose);
    layout->addWidget(ok, 0, Qt::AlignRight);
}

ManualConnectionDialog::ManualConnectionDialog(ManualConnection& manual, QWidget* parent)
    : QDialog(parent)
    , manual_(manual) {
    setObjectName(QStringLiteral("ManualConnection"));
    setWindowTitle(Screen::tr("Manual Connection"));
    auto* text = makeControl<QPlainTextEdit>("ManualText", Screen::tr("What to do"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setMinimumSize(420, 110);
    auto* advice = makeValueLabel("ManualAdvice", Screen::tr("What is to be done"));
    advice->setWordWrap(true);
    advice->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum); // a device may have a long name
    auto* start = makeButton(Screen::tr("&Start"), "ManualStart", [this] { manual_.start(); });
    auto* proceed = makeButton(Screen::tr("&Proceed"), "ManualProceed", [this] { manual_.proceed(); });
    auto* retry = makeButton(Screen::tr("&Retry"), "ManualRetry", [this] { manual_.retry(); });
    auto* quit = makeButton(Screen::tr("&Quit", "of the dialog only"), "ManualQuit", [this] { manual_.quit(); });

    auto* buttons = new QHBoxLayout;
    // A double click on "Proceed" must not press "Start", which appears as it goes.
    buttons->addWidget(proceed);
    buttons->addWidget(retry);
    buttons->addWidget(start);
    buttons->addStretch(1);
    buttons->addWidget(quit);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(advice);
    layout->addWidget(text, 1);
    layout->addLayout(buttons);

    const ManualConnectionState& shown = manual.shown;
    bindings_.bind(shown.text, [text](const Words& now) { text->setPlainText(now.shown()); });
    bindVisible(bindings_, start, shown.startVisible);
    bindVisible(bindings_, proceed, shown.proceedVisible);
    bindEnabled(bindings_, start, shown.canStart);
    bindEnabled(bindings_, retry, shown.canRetry);
    bindings_.bind(shown.reason, [start, retry](const Words& reason) {
        for (QPushButton* button : {start, retry}) {
            button->setToolTip(reason.shown());
            button->setAccessibleDescription(reason.shown());
        }
    });
    bindings_.bind(shown.advice, [advice](const Words& now) {
        advice->setText(now.shown());
        advice->setVisible(!now.isEmpty());
    });
    bindings_.bind(shown.visible, [this](bool visible) { visible ? static_cast<void>(showUnasked(*this)) : hide(); });
}

void ManualConnectionDialog::reject() {
    manual_.closed();
}

ProgressDialog::ProgressDialog(ProgressState& shown, QWidget* parent)
    : QDialog(parent)
    , shown_(shown) {
    setObjectName(QStringLiteral("Processing"));
    setWindowTitle(Screen::tr("Processing"));
    constexpr int comfortableWidth = 360;
    setMinimumWidth(comfortableWidth);
    auto* bar = makeControl<QProgressBar>("ProgressBar", Screen::tr("Progress"));
    bar->setTextVisible(false); // the labels tell it
    QLabel* label = makeValueLabel("ProgressLabel", Screen::tr("What is counted"));
    QLabel* value = makeValueLabel("ProgressValue", Screen::tr("Value"));
    auto* labels = new QHBoxLayout;
    labels->setSpacing(12);
    labels->addWidget(label);
    labels->addWidget(value);
    labels->addStretch(1);
    const QString whatStops = Screen::tr("Reset on the page Status and Controls stops it.");
    auto* buttons = new QHBoxLayout;
    auto* abort = makeButton(
        Screen::tr("&Abort"), "Abort", [] {}, whatStops);
    abort->setEnabled(false);
    abort->setAccessibleDescription(whatStops);
    buttons->addWidget(new QLabel(whatStops));
    buttons->addStretch(1);
    buttons->addWidget(abort);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(labels);
    layout->addWidget(bar);
    layout->addStretch(1);
    layout->addLayout(buttons);

    const auto drawBar = [this, bar] {
        const int maximum = std::max(shown_.maximum.value(), 1);
        bar->setRange(0, maximum);
        bar->setValue(std::clamp(shown_.value.value(), 0, maximum));
    };
    bindings_.bind(shown.maximum, [drawBar](int /*maximum*/) { drawBar(); });
    bindings_.bind(shown.value, [drawBar](int /*value*/) { drawBar(); });
    bindText(bindings_, label, shown.label);
    bindText(bindings_, value, shown.valueLabel);
    bindings_.bind(shown.visible, [this](bool visible) { visible ? static_cast<void>(showUnasked(*this)) : hide(); });
}

void ProgressDialog::reject() {
    shown_.visible = false;
}

namespace {

// In the order of PlainEnglish::Line.
constexpr const char* lineNames[] = {"OpeningLine", "RunLine",     "BinningLine",    "SleepLine",    "WakeLine",
                                     "BlockLine",   "LoggingLine", "EndOfBlockLine", "NextBlockLine"};
static_assert(std::size(lineNames) == PlainEnglish::lineCount);

// Pixels at 96 dots per inch; a larger font takes more for a line.
constexpr int topOfFirstLine = 32;
constexpr int lineStep = 24;
constexpr int sideMargin = 16;

} // namespace

PlainEnglishWindow::PlainEnglishWindow(QWidget* parent)
    : QWidget(parent, Qt::Window)
    , note_(makeTextLabel("PlainEnglishNote", Screen::tr("Note")))
    , area_(new QScrollArea) {
    setObjectName(QStringLiteral("PlainEnglish"));
    setWindowTitle(Screen::tr("In Plain English"));
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(makeButton(Screen::tr("&Close"), "ClosePlainEnglish", [this] { close(); }));
    connect(new QShortcut(QKeySequence(QKeySequence::Cancel), this), &QShortcut::activated, this, [this] { close(); });
    note_->setWordWrap(true);
    QFont bold = note_->font();
    bold.setBold(true);
    note_->setFont(bold);
    note_->setContentsMargins(sideMargin, 0, sideMargin, 0);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(note_);
    layout->addWidget(area_, 1);
    layout->addLayout(buttons);
}

void PlainEnglishWindow::open(const LoggerSettings& record, const QString& note) {
    note_->setText(note);
    note_->setVisible(!note.isEmpty());
    QWidget* text = makeText(record);
    area_->setWidget(text); // the former one goes
    const QSize room = screen()->availableSize() * 3 / 4;
    area_->setMinimumHeight(std::min(text->height(), room.height()));
    resize(std::min(text->width(), room.width()) + 2 * sideMargin, sizeHint().height());
    show();
    raise();
    activateWindow();
}

QWidget* PlainEnglishWindow::makeText(const LoggerSettings& record) const {
    const PlainEnglish english = inPlainEnglish(record);
    auto* text = new QWidget;
    const int height = fontMetrics().height() + 4;
    const int step = std::max(lineStep, height);
    int top = topOfFirstLine;
    int width = 0;
    for (std::size_t line = 0; line < PlainEnglish::lineCount; ++line) {
        QLabel* label = makeValueLabel(lineNames[line], Screen::tr("Description"));
        label->setParent(text);
        label->setText(english.lines.at(line).shown());
        // Without an end of the block there is nothing to say of the next one, and no line is left free for it.
        if (line > 0 && (line != PlainEnglish::NextBlock || english.finiteBlock)) {
            top += step;
        }
        const int labelWidth = label->sizeHint().width();
        label->setGeometry(sideMargin, top, labelWidth, height);
        width = std::max(width, labelWidth);
    }
    text->resize(width + 2 * sideMargin, top + step);
    return text;
}

} // namespace orv
