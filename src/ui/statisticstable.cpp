// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/statisticstable.h"

#include "base/words.h"
#include "ui/widgets.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace orv {

namespace {

struct Figure {
    const char* caption;
    const char* name; ///< Of its labels.
};

constexpr std::array<Figure, 5> figures{{{QT_TRANSLATE_NOOP("orv", "Count"), "Count"},
                                         {QT_TRANSLATE_NOOP("orv", "Mean"), "Mean"},
                                         {QT_TRANSLATE_NOOP("orv", "Standard deviation"), "Deviation"},
                                         {QT_TRANSLATE_NOOP("orv", "Minimum"), "Minimum"},
                                         {QT_TRANSLATE_NOOP("orv", "Maximum"), "Maximum"}}};

constexpr int fewestDecimals = 2;
constexpr int verticalSpacing = 2;

/// Of mean and deviation: enough for three digits of the deviation; for as many of the numbers if there is none.
int decimalsFor(const Statistics& numbers) {
    constexpr int mostDecimals = 9;
    const double deviation = numbers.deviation();
    const double scale = deviation > 0.0 ? deviation : std::max(std::abs(numbers.minimum()), numbers.maximum());
    return numbers.whole() || !(scale > 0.0)
               ? fewestDecimals
               : std::clamp(2 - static_cast<int>(std::floor(std::log10(scale))), fewestDecimals, mostDecimals);
}

QString figureText(double value, int decimals) {
    constexpr double large = 1e12; // no instrument measures so much, but a file may hold it
    if (!std::isfinite(value)) {
        return QStringLiteral("-");
    }
    return std::abs(value) < large ? QString::number(value, 'f', decimals) : QString::number(value, 'g', 7);
}

} // namespace

StatisticsTable::StatisticsTable(const QString& name, const QString& hint)
    : hint_(new QLabel(hint))
    , table_(new QWidget)
    , grid_(new QGridLayout(table_))
    , what_(makeTextLabel(name + QStringLiteral("What"), Screen::tr("Rows"))) {
    setObjectName(name);
    hint_->setObjectName(name + QStringLiteral("Hint"));
    hint_->setForegroundRole(QPalette::PlaceholderText);
    hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setVerticalSpacing(verticalSpacing);
    grid_->setHorizontalSpacing(16);
    grid_->addWidget(what_, 0, 0);
    for (std::size_t figure = 0; figure < figureCount; ++figure) {
        auto* caption = new QLabel(Screen::tr(figures.at(figure).caption));
        caption->setAlignment(Qt::AlignRight);
        grid_->addWidget(caption, 0, static_cast<int>(figure) + 1);
    }
    grid_->setColumnStretch(figureCount + 1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(hint_);
    layout->addWidget(table_);
    layout->addStretch(1);
    table_->hide();
    if (hint.isEmpty()) {
        hide();
    }
}

void StatisticsTable::setHint(const QString& hint) {
    hint_->setText(hint);
}

void StatisticsTable::keepRoomFor(int lines) {
    keptLines_ = lines;
    reserve();
}

void StatisticsTable::reserve() {
    if (keptLines_ > 0) {
        const int height = fontMetrics().height();
        setMinimumHeight(height + std::max(keptLines_, shownLines_) * (height + verticalSpacing));
    }
}

void StatisticsTable::addRow() {
    const auto number = static_cast<int>(rows_.size()) + 1;
    Row row{.name = new QLabel, .figures = {}};
    row.name->setTextFormat(Qt::PlainText);
    grid_->addWidget(row.name, number, 0);
    for (std::size_t figure = 0; figure < figureCount; ++figure) {
        QLabel* label =
            makeValueLabel(objectName() + QLatin1String(figures.at(figure).name) + QString::number(number), {});
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid_->addWidget(label, number, static_cast<int>(figure) + 1);
        row.figures.at(figure) = label;
    }
    rows_.push_back(row);
}

void StatisticsTable::show(const QString& what, const std::vector<Line>& lines) {
    while (rows_.size() < lines.size()) {
        addRow();
    }
    what_->setText(what);
    int decimals = fewestDecimals; // of what is not whole
    for (const Line& line : lines) {
        decimals = std::max(decimals, decimalsFor(line.numbers));
    }
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        const Row& row = rows_[at];
        const bool used = at < lines.size();
        row.name->setVisible(used);
        for (QLabel* label : row.figures) {
            label->setVisible(used);
        }
        if (!used) {
            continue;
        }
        const auto& [name, numbers] = lines[at];
        row.name->setText(name);
        const int inside = numbers.whole() ? 0 : decimals;
        const int computed = numbers.whole() ? fewestDecimals : decimals;
        const QString texts[] = {QString::number(numbers.count()), figureText(numbers.mean(), computed),
                                 figureText(numbers.deviation(), computed), figureText(numbers.minimum(), inside),
                                 figureText(numbers.maximum(), inside)};
        for (std::size_t figure = 0; figure < figureCount; ++figure) {
            row.figures.at(figure)->setText(texts[figure]);
            row.figures.at(figure)->setAccessibleName(
                Screen::tr("%1 of %2", "the mean of a column").arg(Screen::tr(figures.at(figure).caption), name));
        }
    }
    shownLines_ = static_cast<int>(lines.size()); // rows of another instrument may have more than the header names
    reserve();
    // The one that goes first: for a moment both would take more room than is kept.
    QWidget* const shown = lines.empty() ? static_cast<QWidget*>(hint_) : table_;
    (shown == table_ ? static_cast<QWidget*>(hint_) : table_)->hide();
    shown->show();
    setVisible(!lines.empty() || !hint_->text().isEmpty());
}

} // namespace orv
