// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/statisticstable.h"

#include "base/words.h"
#include "ui/widgets.h"

#include <QGridLayout>
#include <QVBoxLayout>

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

QString figureText(double value) {
    constexpr int digits = 7;
    return std::isfinite(value) ? QString::number(value, 'g', digits) : QStringLiteral("-");
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
    grid_->setVerticalSpacing(2);
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
    table_->hide();
    if (hint.isEmpty()) {
        hide();
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
        const QString texts[] = {QString::number(numbers.count()), figureText(numbers.mean()),
                                 figureText(numbers.deviation()), figureText(numbers.minimum()),
                                 figureText(numbers.maximum())};
        for (std::size_t figure = 0; figure < figureCount; ++figure) {
            row.figures.at(figure)->setText(texts[figure]);
            row.figures.at(figure)->setAccessibleName(
                Screen::tr("%1 of %2", "the mean of a column").arg(Screen::tr(figures.at(figure).caption), name));
        }
    }
    table_->setVisible(!lines.empty());
    hint_->setVisible(lines.empty());
    setVisible(!lines.empty() || !hint_->text().isEmpty());
}

} // namespace orv
