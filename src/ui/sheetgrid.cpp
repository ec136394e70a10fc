// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheetgrid.h"

#include "base/words.h"
#include "ui/sharedcolumns.h"
#include "ui/widgets.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QStyledItemDelegate>

#include <algorithm>
#include <functional>
#include <iterator>
#include <numeric>

namespace orv {

SheetModel::SheetModel(const DataSheet& sheet)
    : sheet_(sheet)
    , shownRows_(sheet.rowCount()) {}

bool SheetModel::refresh() {
    if (removed_) {
        beginResetModel();
        removed_ = false;
        headerStale_ = false;
        shownRows_ = sheet_.rowCount();
        endResetModel();
        return true;
    }
    if (headerStale_) {
        headerStale_ = false;
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, DataSheet::columnCount - 1);
    }
    const int rows = sheet_.rowCount();
    if (rows > shownRows_) {
        beginInsertRows({}, shownRows_, rows - 1);
        shownRows_ = rows;
        endInsertRows();
    }
    return false;
}

int SheetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows_;
}

int SheetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : DataSheet::columnCount;
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return sheet_.cell(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    case Qt::AccessibleDescriptionRole:
        return sheet_.beginsSeries(index.row()) ? Screen::tr("Another run or download begins here.") : QString();
    default:
        return {};
    }
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    }
    return role == Qt::DisplayRole ? shownColumn(sheet_.header().value(section)) : QVariant();
}

namespace {

/// Draws the grid's cells as the style would, but at a fraction of its cost: plain text of one font, at the right.
class CellPainter final : public QStyledItemDelegate {
public:
    CellPainter(const DataSheet& sheet, QObject* parent)
        : QStyledItemDelegate(parent)
        , sheet_(sheet) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        paintText(painter, option, index);
        if (sheet_.beginsSeries(index.row())) {
            const QRect& cell = option.rect;
            painter->fillRect(cell.left(), cell.top(), cell.width() + 1, 2, option.palette.color(QPalette::Text));
        }
    }

private:
    void paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
        constexpr int margin = 3;
        const QString text = index.data().toString();
        const QFontMetrics& metrics = option.fontMetrics;
        const int width = metrics.horizontalAdvance(text);
        const bool marked = (option.state & (QStyle::State_Selected | QStyle::State_HasFocus)) != 0;
        if (marked || width > option.rect.width() - 2 * margin) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        // Rounded as the style does, or a figure would hop when it is selected.
        const int top = option.rect.top() + option.rect.height() / 2 - metrics.height() / 2;
        painter->setPen(option.palette.color(QPalette::Text));
        painter->drawText(option.rect.right() + 1 - margin - width, top + metrics.ascent(), text);
    }

    const DataSheet& sheet_;
};

/// Where the handle of an upright scroll bar is drawn.
QRect handleOf(const QScrollBar& bar) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Vertical;
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    option.singleStep = bar.singleStep();
    option.sliderPosition = bar.sliderPosition();
    option.sliderValue = bar.value();
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
}

/// Has `change` applied to a widget without its being painted anew.
template <typename Change>
void unpainted(QWidget& widget, const Change& change) {
    widget.setAttribute(Qt::WA_UpdatesDisabled, true);
    change();
    widget.setAttribute(Qt::WA_UpdatesDisabled, false);
}

} // namespace

SheetGrid::SheetGrid(const DataSheet& sheet)
    : sheet_(sheet)
    , model_(sheet) {
    setObjectName(QStringLiteral("fg1"));
    setAccessibleName(Screen::tr("Data sheet"));
    setModel(&model_);
    setItemDelegate(new CellPainter(sheet, this));
    setAlternatingRowColors(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    auto* columns = new SharedColumns(this);
    columns->setObjectName(QStringLiteral("SheetColumns"));
    setHorizontalHeader(columns);
}

void SheetGrid::showRowsFrom(int first, const std::function<void()>& bringIntoView) {
    QWidget& cells = *viewport();
    QScrollBar& bar = *verticalScrollBar();
    const QSize size = cells.size();
    const int offset = verticalHeader()->offset();
    const QRect handle = handleOf(bar);
    unpainted(bar, [&] {
        unpainted(cells, [&] {
            doItemsLayout();
            bringIntoView();
        });
    });
    if (cells.size() != size) { // the scroll bar has come
        cells.update();
    } else {
        cells.scroll(0, offset - verticalHeader()->offset());
        const int top = rowViewportPosition(first);
        cells.update(0, top, cells.width(), cells.height() - top);
    }
    if (handleOf(bar) != handle) {
        bar.update();
    }
}

SheetGrid::SelectedRows SheetGrid::selectedRows() const {
    SelectedRows found;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int column = range.left(); column <= range.right(); ++column) {
            std::vector<bool>& rows = found.at(static_cast<std::size_t>(column));
            rows.resize(static_cast<std::size_t>(model_.rowCount()));
            std::fill(rows.begin() + range.top(), rows.begin() + range.bottom() + 1, true);
        }
    }
    return found;
}

bool SheetGrid::copy(bool withHeader) const {
    const SelectedRows cells = selectedRows();
    std::vector<int> columns;
    for (int column = 0; column < DataSheet::columnCount; ++column) {
        if (!cells.at(static_cast<std::size_t>(column)).empty()) {
            columns.push_back(column);
        }
    }
    const auto isEmpty = [this, &cells](int column) {
        const std::vector<bool>& rows = cells.at(static_cast<std::size_t>(column));
        for (int row = 0; row < model_.rowCount(); ++row) {
            if (rows[static_cast<std::size_t>(row)] && !sheet_.cell(row, column).isEmpty()) {
                return false;
            }
        }
        return sheet_.columnNames().value(column).isEmpty();
    };
    // The sheet has columns enough for every type; those of this one are meant.
    while (!columns.empty() && isEmpty(columns.back())) {
        columns.pop_back();
    }
    if (columns.empty()) {
        return false;
    }
    QStringList lines;
    const auto addLine = [&lines, &columns](const auto& cellOf) {
        QStringList line;
        for (const int column : columns) {
            line << cellOf(column);
        }
        lines << line.join(u'\t');
    };
    if (withHeader) {
        addLine([this](int column) { return sheet_.columnNames().value(column); });
    }
    for (int row = 0; row < model_.rowCount(); ++row) {
        const auto isSelected = [&cells, row](int column) {
            return cells.at(static_cast<std::size_t>(column))[static_cast<std::size_t>(row)];
        };
        if (std::ranges::any_of(columns, isSelected)) {
            addLine([&](int column) { return isSelected(column) ? sheet_.cell(row, column) : QString(); });
        }
    }
    QGuiApplication::clipboard()->setText(lines.join(u'\n'));
    return true;
}

bool SheetGrid::findText(const QString& text, bool forward) {
    const int rows = model_.rowCount();
    if (text.isEmpty() || rows == 0) {
        return false;
    }
    const QModelIndex from = currentIndex();
    const int step = forward ? 1 : -1;
    int row = from.isValid() ? from.row() : (forward ? 0 : rows - 1);
    int column = from.isValid() ? from.column() + step : (forward ? 0 : DataSheet::columnCount - 1);
    // The row that it begins in comes twice: what stands behind the current cell first, what stands before it last.
    for (int looked = 0; looked <= rows; ++looked) {
        if (QString::fromLatin1(sheet_.joinedRow(row)).contains(text, Qt::CaseInsensitive)) {
            for (; column >= 0 && column < DataSheet::columnCount; column += step) {
                if (sheet_.cell(row, column).contains(text, Qt::CaseInsensitive)) {
                    setCurrentIndex(model_.index(row, column));
                    scrollTo(currentIndex());
                    return true;
                }
            }
        }
        row = (row + step + rows) % rows;
        column = forward ? 0 : DataSheet::columnCount - 1;
    }
    return false;
}

void SheetGrid::selectRows(const std::vector<RowRange>& ranges) {
    QItemSelection rows;
    for (const auto& [first, last] : ranges) {
        rows.select(model_.index(first, 0), model_.index(last, DataSheet::columnCount - 1));
    }
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    if (!ranges.empty()) {
        const QModelIndex first = model_.index(ranges.front().first, 0);
        selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        scrollTo(first);
    }
}

void SheetGrid::extend(QItemSelectionModel::SelectionFlag to) {
    selectionModel()->select(selectionModel()->selection(), QItemSelectionModel::Select | to);
}

std::vector<StatisticsTable::Line> SheetGrid::statistics() const {
    const SelectedRows cells = selectedRows();
    const Selected what = whatIsSelected();
    const bool wholeRows = what.kind == Selected::Kind::Rows && what.count > 0;
    std::vector<StatisticsTable::Line> lines;
    if (what.rowsOfOtherType > 0 && what.rows == what.rowsOfOtherType) {
        return lines;
    }
    for (int column = sheetcolumn::firstValue; column < DataSheet::columnCount; ++column) {
        const std::vector<bool>& rows = cells.at(static_cast<std::size_t>(column));
        StatisticsTable::Line line{.name = shownColumn(sheet_.columnNames().value(column)), .numbers = {}};
        for (auto row = static_cast<std::size_t>(sheet_.rowsOfOtherLayout()); row < rows.size(); ++row) {
            if (rows[row]) {
                line.numbers.add(sheet_.number(static_cast<int>(row), column));
            }
        }
        if (line.numbers.count() > 1 || (wholeRows && !sheet_.columnNames().value(column).isEmpty())) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

SheetGrid::Selected SheetGrid::whatIsSelected() const {
    const auto rowsOf = [](const std::vector<bool>& rows) { return static_cast<int>(std::ranges::count(rows, true)); };
    const SelectedRows all = selectedRows();
    std::vector<bool> any(static_cast<std::size_t>(model_.rowCount()));
    std::vector<int> counts; // of each column with a name
    for (int column = 0; column < DataSheet::columnCount; ++column) {
        if (sheet_.columnNames().value(column).isEmpty()) {
            continue;
        }
        const std::vector<bool>& rows = all.at(static_cast<std::size_t>(column));
        std::transform(rows.begin(), rows.end(), any.begin(), any.begin(), std::logical_or());
        counts.push_back(rowsOf(rows));
    }
    Selected what{.count = std::accumulate(counts.begin(), counts.end(), 0), .rows = rowsOf(any)};
    what.rowsOfOtherType = static_cast<int>(
        std::count(any.begin(), any.begin() + std::min(sheet_.rowsOfOtherLayout(), model_.rowCount()), true));
    const auto whole = std::ranges::count(counts, model_.rowCount());
    if (std::ranges::count(counts, what.rows) == std::ssize(counts)) {
        what.kind = Selected::Kind::Rows;
        what.count = what.rows;
    } else if (whole + std::ranges::count(counts, 0) == std::ssize(counts)) {
        what.kind = Selected::Kind::Columns;
        what.count = static_cast<int>(whole);
    }
    return what;
}

std::vector<RowRange> SheetGrid::selectedWholeRows() const {
    std::vector<RowRange> ranges;
    if (whatIsSelected().kind != Selected::Kind::Rows) {
        return ranges;
    }
    const std::vector<bool> rows = selectedRows().at(sheetcolumn::record);
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        if (!rows[static_cast<std::size_t>(row)]) {
            continue;
        }
        if (!ranges.empty() && ranges.back().second == row - 1) {
            ranges.back().second = row;
        } else {
            ranges.emplace_back(row, row);
        }
    }
    return ranges;
}

QItemSelectionModel::SelectionFlags SheetGrid::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    const QItemSelectionModel::SelectionFlags command = QTableView::selectionCommand(index, event);
    // What is pressed where all is selected is chosen when the button goes up.
    const bool byPointer =
        event != nullptr && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove ||
                             event->type() == QEvent::MouseButtonRelease);
    const bool chooses = command != QItemSelectionModel::NoUpdate;
    return byPointer && rowPressed_ && chooses ? command | QItemSelectionModel::Rows : command;
}

void SheetGrid::mousePressEvent(QMouseEvent* event) {
    const QModelIndex pressed = indexAt(event->position().toPoint());
    rowPressed_ = event->button() == Qt::LeftButton && pressed.isValid() && pressed.column() == sheetcolumn::record;
    QTableView::mousePressEvent(event);
    setAutoScroll(event->button() ==
                  Qt::LeftButton); // the operator may drag beyond what is seen; what a procedure visits moves nothing
}

void SheetGrid::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    setAutoScroll((event->buttons() & Qt::LeftButton) != 0);
}

void SheetGrid::keyPressEvent(QKeyEvent* event) {
    const QModelIndex before = currentIndex();
    QTableView::keyPressEvent(event);
    if (currentIndex() != before) {
        scrollTo(currentIndex());
    }
}

void SheetGrid::selectionChanged(const QItemSelection& now, const QItemSelection& before) {
    QTableView::selectionChanged(now, before);
    selected.tell();
}

} // namespace orv
