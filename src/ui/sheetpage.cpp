// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheetpage.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <utility>

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
    return role == Qt::DisplayRole ? sheet_.header().value(section) : QVariant();
}

namespace {

/// Drawing the grid costs far more than a row, so it is drawn so many milliseconds after the first change.
constexpr int refreshDelay = 200;

/// Draws the grid's cells as the style would, but at a fraction of its cost: plain text of one font, at the right.
class CellPainter final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int margin = 3;
        const QString text = index.data().toString();
        const QFontMetrics& metrics = option.fontMetrics;
        const int width = metrics.horizontalAdvance(text);
        const bool marked = (option.state & (QStyle::State_Selected | QStyle::State_HasFocus)) != 0;
        if (marked || width > option.rect.width() - 2 * margin) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        const int baseline = option.rect.top() + (option.rect.height() - metrics.height()) / 2 + metrics.ascent();
        painter->setPen(option.palette.color(QPalette::Text));
        painter->drawText(option.rect.right() + 1 - margin - width, baseline, text);
    }
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

SheetPage::SheetPage(Program& program)
    : shown_(program.sheet.shown)
    , model_(program.sheet.data)
    , grid_(makeControl<QTableView>("fg1", "Data sheet"))
    , counter_(makeNumberLabel("SheetCounter", "Rows on the sheet", "0000000"))
    , redrawing_(this, refreshDelay, [this] { refreshNow(); }) {
    setObjectName(QStringLiteral("SheetPage"));
    grid_->setModel(&model_);
    grid_->setItemDelegate(new CellPainter(grid_));
    grid_->setAlternatingRowColors(true);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setWordWrap(false);
    grid_->setTabKeyNavigation(false);
    grid_->setAutoScroll(false);
    grid_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    grid_->verticalHeader()->hide();
    grid_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grid_->verticalHeader()->setDefaultSectionSize(grid_->fontMetrics().height() + 6);
    grid_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    grid_->horizontalHeader()->setHighlightSections(false);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeBar(program));
    layout->addWidget(grid_, 1);

    DataSheet& sheet = program.sheet.data;
    subscriptions_ = {sheet.rowAppended.subscribe([this] { schedule(); }), sheet.headerChanged.subscribe([this] {
                          model_.noteHeader();
                          schedule();
                      }),
                      sheet.rowsRemoved.subscribe([this] {
                          model_.noteRemoved();
                          schedule();
                      })};
    bindings_.bind(shown_.counter, [this](const QString&) { schedule(); });
    bindings_.bind(shown_.topRow, [this](int) { schedule(); });
    const auto visit = [this](int) {
        visitPending_ = true;
        schedule();
    };
    bindings_.bind(shown_.currentRow, visit);
    bindings_.bind(shown_.currentColumn, visit); // changes also when the same cell is the last one visited again
}

QLayout* SheetPage::makeBar(Program& program) {
    auto* fileName =
        makeBox("Text37", "Default File Name, and the file name used for auto-recording of long profiles.");
    fileName->setMinimumWidth(12 * fileName->fontMetrics().averageCharWidth()); // the window still fits 800 pixels
    bindTyped(bindings_, fileName, shown_.fileName);
    auto* records = makeNumberLabel("RecordsCounter", "Automatic saves", "0000000");
    records->setToolTip(QStringLiteral("This is used to indicated how many records were automatically created over a "
                                       "long profile, or data gathering."));
    bindText(bindings_, records, shown_.records);
    const CommandState& commands = program.link.session.commands;
    auto* save = makeButton(
        "Save &As", "Command11", [&program] { program.saveAs(); },
        "Save all Data on the Spread Sheet to a Tab Delimited Text File.");
    bindEnabled(bindings_, save, commands.canSaveAs);
    auto* exported = makeButton(
        "E&xport", "ExportSheet", [&program] { program.exportSheet(); },
        "Write the rows as CSV or NetCDF for other programs, with what is known of the instrument.");
    bindEnabled(bindings_, exported, commands.canSaveAs);
    auto* open = makeButton(
        "Op&en", "Command10", [&program] { program.openSheet(); },
        "Open a saved sheet. It replaces what is on the Spread Sheet.");
    bindEnabled(bindings_, open, commands.canOpenSheet);
    auto* clear = makeButton(
        "&Clear All", "Command9", [&program] { program.clearAll(); }, "Clears the Spread Sheet of all data.");
    bindEnabled(bindings_, clear, commands.canClearAll);

    auto* bar = new QHBoxLayout;
    bar->addWidget(makeCaption("File &name :", fileName));
    bar->addWidget(fileName, 1);
    bar->addSpacing(16);
    bar->addWidget(new QLabel(QStringLiteral("Rows :")));
    bar->addWidget(counter_);
    bar->addWidget(new QLabel(QStringLiteral("Records :")));
    bar->addWidget(records);
    bar->addSpacing(16);
    bar->addWidget(save);
    bar->addWidget(exported);
    bar->addWidget(open);
    bar->addWidget(clear);
    return bar;
}

void SheetPage::schedule() {
    stale_ = true;
    redrawing_.noteChange();
}

void SheetPage::refreshNow() {
    if (!stale_) {
        return;
    }
    stale_ = false;
    counter_->setText(shown_.counter);
    const int rowsBefore = model_.rowCount();
    const bool replaced = model_.refresh();
    if (replaced) {
        shownTop_ = 0;
    }
    const QModelIndex visited = model_.index(shown_.currentRow - 1, shown_.currentColumn);
    if (std::exchange(visitPending_, false) && visited.isValid() && visited != grid_->currentIndex()) {
        grid_->selectionModel()->setCurrentIndex(visited, QItemSelectionModel::NoUpdate);
    }
    if (replaced || model_.rowCount() == rowsBefore) {
        bringIntoView();
    } else {
        showRowsFrom(rowsBefore);
    }
}

void SheetPage::bringIntoView() {
    // The grid's row 0 is the header, so grid row n is row n - 1 of the table.
    if (shown_.topRow != shownTop_) {
        shownTop_ = shown_.topRow;
        if (shownTop_ > 0) {
            grid_->doItemsLayout(); // new rows must count before the view can be brought to them
            grid_->verticalScrollBar()->setValue(shownTop_ - 1);
        }
    }
}

void SheetPage::showRowsFrom(int first) {
    QWidget& cells = *grid_->viewport();
    QScrollBar& bar = *grid_->verticalScrollBar();
    const QSize size = cells.size();
    const int offset = grid_->verticalHeader()->offset();
    const QRect handle = handleOf(bar);
    // By itself the grid paints all its cells and the whole scroll bar for each row that comes.
    unpainted(bar, [&] {
        unpainted(cells, [&] {
            grid_->doItemsLayout();
            bringIntoView();
        });
    });
    if (cells.size() != size) { // the scroll bar has come
        cells.update();
    } else {
        cells.scroll(0, offset - grid_->verticalHeader()->offset());
        const int top = grid_->rowViewportPosition(first);
        cells.update(0, top, cells.width(), cells.height() - top);
    }
    if (handleOf(bar) != handle) {
        bar.update();
    }
}

} // namespace orv
