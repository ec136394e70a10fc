// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheetpage.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <utility>

namespace orv {

SheetModel::SheetModel(const DataSheet& sheet, QObject* parent)
    : QAbstractTableModel(parent)
    , sheet_(sheet)
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

QPushButton* makeButton(const QString& caption, const QString& name, const QString& toolTip) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    return button;
}

QLabel* makeCounter(const QString& name, const QString& accessibleName) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    // A fixed size, so that a new number does not lay out the page anew.
    label->setFixedSize(label->fontMetrics().horizontalAdvance(QStringLiteral("0000000")),
                        label->fontMetrics().height());
    return label;
}

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

} // namespace

SheetPage::SheetPage(DataSheet& sheet, SheetState& shown, const CommandState& commands, const Actions& actions,
                     QWidget* parent)
    : QWidget(parent)
    , shown_(shown)
    , model_(sheet)
    , grid_(new QTableView) {
    setObjectName(QStringLiteral("SheetPage"));

    grid_->setObjectName(QStringLiteral("fg1"));
    grid_->setAccessibleName(QStringLiteral("Data sheet"));
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

    auto* fileName = new QLineEdit;
    fileName->setObjectName(QStringLiteral("Text37"));
    fileName->setToolTip(
        QStringLiteral("Default File Name, and the file name used for auto-recording of long profiles."));
    auto* fileNameLabel = new QLabel(QStringLiteral("File &name :"));
    fileNameLabel->setBuddy(fileName);
    auto* counter = makeCounter(QStringLiteral("SheetCounter"), QStringLiteral("Rows on the sheet"));
    auto* records = makeCounter(QStringLiteral("RecordsCounter"), QStringLiteral("Automatic saves"));
    records->setToolTip(QStringLiteral("This is used to indicated how many records were automatically created over a "
                                       "long profile, or data gathering."));
    auto* save =
        makeButton(QStringLiteral("Save &As"), QStringLiteral("Command11"),
                   QStringLiteral("Save all Data on the Spread Sheet to a Tab Delimited Text File. (Ctrl+Shift+S)"));
    auto* open = makeButton(QStringLiteral("Op&en"), QStringLiteral("Command10"),
                            QStringLiteral("Open a saved sheet. It replaces what is on the Spread Sheet. (Ctrl+O)"));
    auto* clear = makeButton(QStringLiteral("&Clear All"), QStringLiteral("Command9"),
                             QStringLiteral("Clears the Spread Sheet of all data."));

    auto* bar = new QHBoxLayout;
    bar->addWidget(fileNameLabel);
    bar->addWidget(fileName, 1);
    bar->addSpacing(16);
    bar->addWidget(new QLabel(QStringLiteral("Rows :")));
    bar->addWidget(counter);
    bar->addWidget(new QLabel(QStringLiteral("Records :")));
    bar->addWidget(records);
    bar->addSpacing(16);
    bar->addWidget(save);
    bar->addWidget(open);
    bar->addWidget(clear);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(grid_, 1);

    connect(fileName, &QLineEdit::textEdited, this, [this](const QString& text) { shown_.fileName = text; });
    connect(save, &QPushButton::clicked, this, [actions] { actions.saveAs(); });
    connect(open, &QPushButton::clicked, this, [actions] { actions.open(); });
    connect(clear, &QPushButton::clicked, this, [actions] { actions.clearAll(); });

    refreshTimer_.setSingleShot(true);
    refreshTimer_.setInterval(refreshDelay);
    connect(&refreshTimer_, &QTimer::timeout, this, [this] { refreshNow(); });
    subscriptions_ = {sheet.rowAppended.subscribe([this] { schedule(); }), sheet.headerChanged.subscribe([this] {
                          model_.noteHeader();
                          schedule();
                      }),
                      sheet.rowsRemoved.subscribe([this] {
                          model_.noteRemoved();
                          schedule();
                      })};

    bindings_.bind(shown.fileName, [fileName](const QString& text) {
        if (fileName->text() != text) {
            fileName->setText(text);
        }
    });
    bindings_.bind(shown.counter, [counter](const QString& text) { counter->setText(text); });
    bindings_.bind(shown.records, [records](const QString& text) { records->setText(text); });
    bindings_.bind(shown.topRow, [this](int) { schedule(); });
    const auto visit = [this](int) {
        visitPending_ = true;
        schedule();
    };
    bindings_.bind(shown.currentRow, visit);
    bindings_.bind(shown.currentColumn, visit); // changes also when the same cell is the last one visited again
    bindings_.bind(commands.canSaveAs, [save](bool can) { save->setEnabled(can); });
    bindings_.bind(commands.canOpenSheet, [open](bool can) { open->setEnabled(can); });
    bindings_.bind(commands.canClearAll, [clear](bool can) { clear->setEnabled(can); });
}

void SheetPage::schedule() {
    stale_ = true;
    if (isVisible() && !refreshTimer_.isActive()) {
        refreshTimer_.start();
    }
}

void SheetPage::refreshNow() {
    if (!stale_) {
        return;
    }
    stale_ = false;
    if (model_.refresh()) {
        shownTop_ = 0;
    }
    const QModelIndex visited = model_.index(shown_.currentRow - 1, shown_.currentColumn);
    if (std::exchange(visitPending_, false) && visited.isValid() && visited != grid_->currentIndex()) {
        grid_->selectionModel()->setCurrentIndex(visited, QItemSelectionModel::NoUpdate);
    }
    // The grid's row 0 is the header, so grid row n is row n - 1 of the table.
    if (shown_.topRow != shownTop_) {
        shownTop_ = shown_.topRow;
        if (shownTop_ > 0) {
            grid_->doItemsLayout(); // new rows must count before the view can be brought to them
            grid_->verticalScrollBar()->setValue(shownTop_ - 1);
        }
    }
}

void SheetPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    refreshNow();
}

void SheetPage::hideEvent(QHideEvent* event) {
    refreshTimer_.stop();
    QWidget::hideEvent(event);
}

} // namespace orv
