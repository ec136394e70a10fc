// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/helpwindow.h"

#include "base/words.h"
#include "ui/guideview.h"
#include "ui/remembered.h"
#include "ui/widgets.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QListWidget>
#include <QScrollBar>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace orv {

namespace {

// What stands inside a window comes before the window.
constexpr GuideChapter screens[] = {
    {"ResetButton", "run-live-data"}, // only with an instrument
    {"StatusPage", "connect"},
    {"SheetPage", "the-sheet"},
    {"GraphicalPage", "the-graphical-page"},
    {"DebugScreen", "debug-screen"},
    {"TestingPage", "testing-reset-the-shutter"},
    {"CalibrationPage", "calibration-of-a-batch-of-trx"},
    {"ModesFrame", "modes"},
    {"TimeAndDateFrame", "the-instruments-clock"},
    {"ControlBitsFrame", "control-bits"},
    {"SamplesFrame", "sampling"},
    {"TrxCalibrationFrame", "calibration-values-and-device-files"},
    {"GlowCalibrationFrame", "calibration-values-and-device-files"},
    {"LoggerSettings", "settings-of-the-instrument"},
    {"PlainEnglish", "modes"},
    {"ManualConnection", "if-the-instrument-does-not-answer-manual-connection"},
    {"Processing", "download-stored-data"},
    {"QFileDialog", "files-and-what-happens-after-a-crash"},
    {"QMessageBox", "when-something-does-not-work"},
};

bool isSeen(const char* screen, const QWidget& window) {
    const auto isIt = [screen](const QWidget& widget) {
        return widget.objectName() == QLatin1String(screen) || widget.inherits(screen);
    };
    for (const auto* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->isVisible() && widget->isEnabled() && isIt(*widget)) {
            return true;
        }
    }
    return isIt(window);
}

} // namespace

std::span<const GuideChapter> guideChapters() {
    return screens;
}

QString guideChapterOf(const QWidget& window) {
    for (const auto& [screen, anchor] : screens) {
        if (isSeen(screen, window)) {
            return QLatin1String(anchor);
        }
    }
    return {};
}

HelpWindow::HelpWindow()
    : view_(new GuideView)
    , chapters_(makeControl<QListWidget>("GuideChapters", Screen::tr("Chapters")))
    , findBox_(makeBox("GuideFind", Screen::tr("What to look for in the guide.")))
    , found_(makeTextLabel("GuideFound", Screen::tr("Found"))) {
    setObjectName(QStringLiteral("UserGuide"));
    setWindowTitle(Screen::tr("User Guide"));
    view_->setObjectName(QStringLiteral("GuideText"));
    view_->setAccessibleName(Screen::tr("User guide"));
    makeChapters();
    auto* left = new QVBoxLayout;
    auto* caption = makeCaption(Screen::tr("&Chapters"), chapters_);
    caption->setMaximumWidth(chapters_->maximumWidth());
    left->addWidget(caption);
    left->addWidget(chapters_, 1);
    // The headings have the room that they want, in a small window the text comes first.
    constexpr int readable = 460;
    view_->setMinimumWidth(readable);
    auto* both = new QHBoxLayout;
    auto* right = new QVBoxLayout;
    const Words inEnglish = Words::tr("This guide is in English, and so are the captions in it.");
    if (inEnglish.shown() != inEnglish.english()) {
        QLabel* label = makeTextLabel("GuideLanguage", {});
        label->setText(inEnglish.shown());
        right->addWidget(label);
    }
    right->addWidget(view_, 1);
    both->addLayout(left, 3);
    both->addLayout(right, 5);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeBar());
    layout->addLayout(both, 1);
    makeKeys();
    constexpr QSize comfortable(1060, 760);
    resize(comfortable);
}

void HelpWindow::makeChapters() {
    const auto& headings = view_->headings();
    for (const GuideHeading& heading : headings) {
        chapters_->addItem(QString(qsizetype{4} * std::max(heading.level - 2, 0), u' ') + heading.text);
        chapters_->item(chapters_->count() - 1)->setToolTip(heading.text);
    }
    chapters_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    chapters_->setMaximumWidth(chapters_->sizeHintForColumn(0) + chapters_->verticalScrollBar()->sizeHint().width() +
                               2 * chapters_->frameWidth());
    const auto go = [this, &headings](int row) {
        if (row >= 0) {
            view_->goTo(headings.at(static_cast<std::size_t>(row)).anchor);
        }
    };
    connect(chapters_, &QListWidget::currentRowChanged, this, go);
    connect(chapters_, &QListWidget::itemClicked, this, [this, go] { go(chapters_->currentRow()); });
    connect(view_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { markChapter(view_->headingInView()); });
    // A chapter near the end does not come to the top.
    connect(view_, &QTextBrowser::sourceChanged, this, [this, &headings](const QUrl& place) {
        const auto chosen = std::ranges::find(headings, place.fragment(), &GuideHeading::anchor);
        markChapter(chosen == headings.end() ? view_->headingInView() : static_cast<int>(chosen - headings.begin()));
    });
}

void HelpWindow::markChapter(int row) {
    const QSignalBlocker quiet(chapters_);
    chapters_->setCurrentRow(row);
}

QLayout* HelpWindow::makeBar() {
    auto* back = makeButton(
        Screen::tr("&Back"), "GuideBack", [this] { view_->backward(); }, Screen::tr("To what was shown before."));
    auto* forward = makeButton(
        Screen::tr("&Forward"), "GuideForward", [this] { view_->forward(); },
        Screen::tr("To what you came back from."));
    for (const auto& [button, changed] :
         {std::pair(back, &QTextBrowser::backwardAvailable), std::pair(forward, &QTextBrowser::forwardAvailable)}) {
        button->setEnabled(false);
        connect(view_, changed, button, &QPushButton::setEnabled);
    }
    auto* next = makeButton(
        Screen::tr("&Next"), "GuideFindNext", [this] { find(true); },
        Screen::tr("The next place with this text. The Enter key does the same."));
    auto* previous = makeButton(
        Screen::tr("&Previous"), "GuideFindPrevious", [this] { find(false); },
        Screen::tr("The place with this text before."));
    connect(findBox_, &QLineEdit::returnPressed, this, [this] { find(true); });
    connect(findBox_, &QLineEdit::textChanged, found_, &QLabel::clear);
    auto* bar = new QHBoxLayout;
    bar->addWidget(back);
    bar->addWidget(forward);
    bar->addSpacing(24);
    bar->addWidget(makeCaption(Screen::tr("F&ind :"), findBox_));
    bar->addWidget(findBox_, 1);
    bar->addWidget(next);
    bar->addWidget(previous);
    bar->addWidget(found_, 1);
    return bar;
}

void HelpWindow::makeKeys() {
    const auto on = [this](const QKeySequence& keys, const std::function<void()>& action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    on(QKeySequence::Find, [this] {
        findBox_->setFocus();
        findBox_->selectAll();
    });
    on(Qt::Key_F3, [this] { find(true); });
    on(Qt::SHIFT | Qt::Key_F3, [this] { find(false); });
    on(QKeySequence::Back, [this] { view_->backward(); });
    on(QKeySequence::Forward, [this] { view_->forward(); });
    on(Qt::CTRL | Qt::Key_Plus, [this] { view_->zoom(1); });
    on(Qt::CTRL | Qt::Key_Equal, [this] { view_->zoom(1); }); // the same key without Shift
    on(Qt::CTRL | Qt::Key_Minus, [this] { view_->zoom(-1); });
    on(Qt::CTRL | Qt::Key_0, [this] { view_->zoom(0); });
    on(QKeySequence::Cancel, [this] { close(); });
}

void HelpWindow::open(const QString& anchor) {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    view_->goTo(anchor);
    view_->setFocus();
}

void HelpWindow::find(bool forward) {
    const bool isThere = view_->findText(findBox_->text(), forward);
    found_->setText(isThere ? QString() : Screen::tr("Not found."));
    if (isThere) {
        markChapter(view_->headingOf(view_->textCursor().selectionStart()));
    }
}

void showGuide(std::unique_ptr<HelpWindow>& guide, const QWidget& mainWindow, const Remembered* remembered) {
    const QWidget* active = QApplication::activeWindow();
    const QString chapter = guideChapterOf(active != nullptr ? *active : mainWindow);
    if (!guide) {
        guide = std::make_unique<HelpWindow>();
        if (remembered != nullptr) {
            remembered->restoreWindow(*guide);
        }
    }
    guide->open(chapter);
}

} // namespace orv
