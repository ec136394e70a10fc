// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/plainenglishwindow.h"

#include "settings/plainenglish.h"
#include "settings/screenparts.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace orv {

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

PlainEnglishWindow::PlainEnglishWindow(const LoggerSettings& record, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , record_(record)
    , area_(new QScrollArea) {
    setObjectName(QStringLiteral("PlainEnglish"));
    setWindowTitle(QStringLiteral("In Plain English"));
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(makeButton(QStringLiteral("&Close"), QStringLiteral("ClosePlainEnglish"), [this] { close(); }));
    connect(new QShortcut(QKeySequence(QKeySequence::Cancel), this), &QShortcut::activated, this, [this] { close(); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area_, 1);
    layout->addLayout(buttons);
}

void PlainEnglishWindow::open() {
    QWidget* text = makeText();
    area_->setWidget(text); // the former one goes
    const QSize room = screen()->availableSize() * 3 / 4;
    area_->setMinimumHeight(std::min(text->height(), room.height()));
    resize(std::min(text->width(), room.width()) + 2 * sideMargin, sizeHint().height());
    show();
    raise();
    activateWindow();
}

QWidget* PlainEnglishWindow::makeText() const {
    const PlainEnglish english = inPlainEnglish(record_);
    auto* text = new QWidget;
    const int height = fontMetrics().height() + 4;
    const int step = std::max(lineStep, height);
    int top = topOfFirstLine;
    int width = 0;
    for (std::size_t line = 0; line < PlainEnglish::lineCount; ++line) {
        QLabel* label = makeValueLabel(QString::fromLatin1(lineNames[line]), QStringLiteral("Description"));
        label->setParent(text);
        label->setText(english.lines.at(line));
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
