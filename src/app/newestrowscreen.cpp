// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/newestrowscreen.h"

#include <QGridLayout>

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

NewestRowScreen::NewestRowScreen(const DataSheet& sheet, const SheetPanel& panel, QWidget* parent)
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
    bindings_.bind(panel.counter, [this](const QString&) {
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

} // namespace orv
