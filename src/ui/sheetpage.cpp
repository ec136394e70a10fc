// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheetpage.h"

#include "base/words.h"

#include <QAction>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace orv {

namespace {

/// Drawing the grid costs far more than a row, so it is drawn so many milliseconds after the first change.
constexpr int refreshDelay = 200;

/// While the pointer draws a selection it changes faster than it can be looked at.
constexpr int statisticsDelay = 50;

QString counted(int rows) {
    return rows == 1 ? Screen::tr("1 row") : Screen::tr("%1 rows").arg(rows);
}

QString counted(const SheetGrid::Selected& selected) {
    const int count = selected.count;
    switch (selected.kind) {
    case SheetGrid::Selected::Kind::Rows:
        return counted(count);
    case SheetGrid::Selected::Kind::Columns:
        return count == 1 ? Screen::tr("1 column") : Screen::tr("%1 columns").arg(count);
    case SheetGrid::Selected::Kind::Cells:
        break;
    }
    return count == 1 ? Screen::tr("1 cell") : Screen::tr("%1 cells").arg(count);
}

} // namespace

SheetPage::SheetPage(Program& program)
    : sheet_(program.sheet.data)
    , shown_(program.sheet.shown)
    , activity_(program.link.session.commands.activity)
    , grid_(new SheetGrid(program.sheet.data))
    , counter_(makeNumberLabel("SheetCounter", Screen::tr("Rows on the sheet"), "00000"))
    , notice_(makeTextLabel("SheetNotice", Screen::tr("What became of the rows")))
    , bringBack_(makeButton(
          Screen::tr("&Bring them back"), "BringBack", [&program] { program.bringBack(); },
          Screen::tr("Puts the rows on the sheet again, as they were.")))
    , findBar_(new QWidget)
    , findBox_(makeBox("FindBox", Screen::tr("What to look for in the cells of the sheet.")))
    , found_(makeTextLabel("FindResult", Screen::tr("Found")))
    , statistics_(new StatisticsTable(QStringLiteral("SheetStatistics"), Screen::tr("No rows yet.")))
    , redrawing_(this, refreshDelay, [this] { refreshNow(); })
    , computing_(this, statisticsDelay, [this] {
        refreshNow();
        showStatistics();
    }) {
    setObjectName(QStringLiteral("SheetPage"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeBar(program));
    layout->addWidget(grid_, 1);
    layout->addLayout(makeNotice(program));
    makeFindBar();
    layout->addWidget(findBar_);
    layout->addWidget(statistics_);
    makeActions();
    keepRoomForStatistics();

    DataSheet& sheet = program.sheet.data;
    subscriptions_ = {sheet.rowAppended.subscribe([this] { schedule(); }), sheet.headerChanged.subscribe([this] {
                          grid_->rows().noteHeader();
                          keepRoomForStatistics();
                          schedule();
                      }),
                      sheet.rowsRemoved.subscribe([this] {
                          grid_->rows().noteRemoved();
                          schedule();
                      }),
                      grid_->selected.subscribe([this] {
                          if (!std::exchange(copied_, QString()).isEmpty()) {
                              tellWhatBecame();
                          }
                          selectionStale_ = true;
                          selectionIsLent_ = false;
                          computing_.noteChange();
                      })};
    bindings_.bind(shown_.counter, [this](const QString&) { schedule(); });
    const QProperty<bool>& hold = program.link.session.commands.sheetHoldsRows;
    const auto hint = [this, &hold](auto&&) {
        statistics_->setHint(hold ? Screen::tr("Select cells, a row by its number or a column by its header: "
                                               "to copy them, and for their mean and standard deviation.")
                             : activity_.value() == Activity::None
                                 ? Screen::tr("No rows yet. Collect or download data, or open a sheet.")
                                 : Screen::tr("No rows yet."));
    };
    bindings_.bind(hold, hint);
    bindings_.bind(activity_, hint);
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
        makeBox("Text37", Screen::tr("Default File Name, and the file name used for auto-recording of long profiles."));
    fileName->setMinimumWidth(12 * fileName->fontMetrics().averageCharWidth()); // the window still fits 800 pixels
    bindTyped(bindings_, fileName, shown_.fileName);
    auto* records = makeNumberLabel("RecordsCounter", Screen::tr("Automatic saves"), "00000");
    records->setToolTip(Screen::tr("This is used to indicated how many records were automatically created over a "
                                   "long profile, or data gathering."));
    bindText(bindings_, records, shown_.records);
    const CommandState& commands = program.link.session.commands;
    auto* save = makeButton(
        Screen::tr("Save &As"), "Command11", [&program] { program.saveAs(); },
        Screen::tr("Save all Data on the Spread Sheet to a Tab Delimited Text File."));
    bindEnabled(bindings_, save, commands.canSaveAs);
    auto* exported = makeButton(
        Screen::tr("E&xport"), "ExportSheet", [this, &program] { program.exportSheet(grid_->selectedWholeRows()); },
        Screen::tr("Write the rows as CSV or NetCDF for other programs, with what is known of the instrument: those "
                   "that are selected, else all."));
    bindEnabled(bindings_, exported, commands.canExport);
    auto* open = makeButton(
        Screen::tr("Op&en"), "Command10", [&program] { program.openSheet(); },
        Screen::tr("Open a saved sheet. It replaces what is on the Spread Sheet."));
    bindEnabled(bindings_, open, commands.canOpenSheet);
    auto* clear = makeButton(
        Screen::tr("&Clear All"), "Command9", [&program] { program.clearAll(); },
        Screen::tr("Clears the Spread Sheet of all data."));
    bindEnabled(bindings_, clear, commands.canClearAll);

    constexpr int betweenGroups = 8;
    auto* bar = new QHBoxLayout;
    bar->addWidget(makeCaption(Screen::tr("File &name :"), fileName));
    bar->addWidget(fileName, 1);
    bar->addSpacing(betweenGroups);
    bar->addWidget(new QLabel(Screen::tr("Rows :")));
    bar->addWidget(counter_);
    auto* recordsCaption = new QLabel(Screen::tr("Records :"));
    recordsCaption->setToolTip(records->toolTip());
    bar->addWidget(recordsCaption);
    bar->addWidget(records);
    bar->addSpacing(betweenGroups);
    bar->addWidget(save);
    bar->addWidget(exported);
    bar->addWidget(open);
    bar->addWidget(clear);
    return bar;
}

QLayout* SheetPage::makeNotice(Program& program) {
    notice_->setMinimumWidth(1); // a long name does not widen the window
    auto* line = new QHBoxLayout;
    line->addWidget(notice_);
    line->addWidget(bringBack_);
    line->addStretch(1);
    bindEnabled(bindings_, bringBack_, program.link.session.commands.undisturbed);
    keepRoomOf(bringBack_);
    bringBack_->hide();
    const auto tell = [this](auto&&) {
        copied_.clear();
        leftOut_ = 0;
        tellWhatBecame();
    };
    bindings_.bind(shown_.clearedRows, tell);
    bindings_.bind(shown_.saved, tell);
    bindings_.bind(shown_.rowsSinceSaved, [this](bool) { tellWhatBecame(); });
    return line;
}

void SheetPage::copy(bool withHeader) {
    if (grid_->copy(withHeader)) {
        const SheetGrid::Selected what = grid_->whatIsSelected();
        copied_ =
            (withHeader ? Screen::tr("%1 and the header row copied.") : Screen::tr("%1 copied.")).arg(counted(what));
        if (const int others = what.rowsOfOtherType; others > 0) {
            copied_ +=
                u' ' + (others == 1
                            ? Screen::tr("1 row is of another type of instrument, with other columns.")
                            : Screen::tr("%1 rows are of another type of instrument, with other columns.").arg(others));
        }
        tellWhatBecame();
    }
}

/// As many lines as the rows have columns of numbers with a name.
void SheetPage::keepRoomForStatistics() {
    const QStringList names = sheet_.columnNames().mid(sheetcolumn::firstValue);
    statistics_->keepRoomFor(static_cast<int>(names.size() - names.count(QString())));
}

void SheetPage::tellWhatBecame() {
    const int cleared = shown_.clearedRows;
    const SavedRows& saved = shown_.saved.value();
    QString text;
    if (cleared > 0) {
        text = Screen::tr("%1 cleared.").arg(counted(cleared));
    } else if (!copied_.isEmpty()) {
        text = copied_;
    } else if (leftOut_ > 0) {
        text = leftOut_ == 1 ? Screen::tr("1 row of another type of instrument is not counted.")
                             : Screen::tr("%1 rows of another type of instrument are not counted.").arg(leftOut_);
    } else if (saved.count > 0) {
        const QString name = QFileInfo(saved.file).fileName();
        const QString rows = counted(saved.count);
        if (!saved.exported) {
            text = Screen::tr("Saved %1 to %2").arg(rows, name);
        } else if (saved.besides.isEmpty()) {
            text = Screen::tr("Exported %1 to %2").arg(rows, name);
        } else {
            text = Screen::tr("Exported %1 to %2 (and %3)").arg(rows, name, saved.besides);
        }
        text = shown_.rowsSinceSaved ? Screen::tr("%1. Rows have come since.").arg(text) : text;
    }
    notice_->setText(text);
    notice_->setToolTip(cleared > 0 || !copied_.isEmpty() || leftOut_ > 0 ? QString() : saved.file);
    bringBack_->setText(cleared == 1 ? Screen::tr("&Bring it back") : Screen::tr("&Bring them back"));
    bringBack_->setVisible(cleared > 0);
}

void SheetPage::makeFindBar() {
    findBar_->setObjectName(QStringLiteral("FindBar"));
    auto* next = makeButton(
        Screen::tr("Nex&t"), "FindNext", [this] { find(true); },
        Screen::tr("The next cell with this text. The Enter key does the same."));
    auto* previous = makeButton(
        Screen::tr("Pre&vious"), "FindPrevious", [this] { find(false); },
        Screen::tr("The cell with this text before."));
    const auto closeBar = [this] {
        findBar_->hide();
        grid_->setFocus();
    };
    auto* close = makeButton(Screen::tr("C&lose"), "CloseFind", closeBar,
                             Screen::tr("Puts the line away. The Escape key does the same."));
    auto* row = new QHBoxLayout(findBar_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(makeCaption(Screen::tr("F&ind :"), findBox_));
    row->addWidget(findBox_, 1);
    row->addWidget(next);
    row->addWidget(previous);
    row->addWidget(found_, 1);
    row->addWidget(close);
    findBar_->hide();
    connect(findBox_, &QLineEdit::returnPressed, this, [this] { find(true); });
    connect(findBox_, &QLineEdit::textChanged, this, [this] {
        foundRecord_.clear();
        found_->clear();
    });
    bindings_.bind(activity_, [this](Activity) { tellFound(); });
    auto* escape = new QShortcut(QKeySequence(QKeySequence::Cancel), findBar_);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, closeBar);
}

void SheetPage::find(bool forward) {
    refreshNow();
    if (!grid_->findText(findBox_->text(), forward)) {
        foundRecord_.clear();
        found_->setText(Screen::tr("Not found."));
        return;
    }
    foundRecord_ = grid_->currentIndex().siblingAtColumn(0).data().toString();
    tellFound();
}

void SheetPage::tellFound() {
    if (!foundRecord_.isEmpty()) {
        const bool goesOn = activity_.value() == Activity::Collecting && shown_.topRow > 0;
        if (std::exchange(foundFollows_, goesOn) && !goesOn && !findBar_->isHidden()) {
            refreshNow();
            grid_->scrollTo(grid_->currentIndex());
        }
        found_->setText(
            (goesOn ? Screen::tr("Record %1 (the sheet follows the run)") : Screen::tr("Record %1")).arg(foundRecord_));
    }
}

void SheetPage::makeActions() {
    const auto add = [this](const QString& text, const char* name, const QKeySequence& keys,
                            Qt::ShortcutContext context, const std::function<void()>& action) {
        auto* made = new QAction(text, this);
        made->setObjectName(QLatin1String(name));
        made->setShortcut(keys);
        made->setShortcutContext(context);
        connect(made, &QAction::triggered, this, [this, action] {
            refreshNow(); // rows may have come, or gone with an automatic save, since the grid was drawn
            action();
        });
        // On the page the keys work wherever the focus is, but not while another page is shown.
        if (context == Qt::WindowShortcut) {
            addAction(made);
        }
        grid_->addAction(made);
    };
    const auto line = [this] {
        auto* separator = new QAction(this);
        separator->setSeparator(true);
        grid_->addAction(separator);
    };
    add(Screen::tr("&Copy"), "CopyCells", QKeySequence::Copy, Qt::WindowShortcut, [this] { copy(true); });
    add(Screen::tr("Copy &Without Header"), "CopyCellsOnly", Qt::CTRL | Qt::SHIFT | Qt::Key_C, Qt::WindowShortcut,
        [this] { copy(false); });
    line();
    add(Screen::tr("Select &Rows"), "SelectRows", Qt::SHIFT | Qt::Key_Space, Qt::WidgetShortcut,
        [this] { grid_->extendToRows(); });
    add(Screen::tr("Select Co&lumns"), "SelectColumns", Qt::CTRL | Qt::Key_Space, Qt::WidgetShortcut,
        [this] { grid_->extendToColumns(); });
    add(Screen::tr("Select &All"), "SelectAllCells", QKeySequence::SelectAll, Qt::WindowShortcut,
        [this] { grid_->selectAll(); });
    line();
    add(Screen::tr("&Find"), "FindText", QKeySequence::Find, Qt::WindowShortcut, [this] {
        if (findBar_->isHidden()) { // what was not found then may be there now
            foundRecord_.clear();
            found_->clear();
        }
        findBar_->show();
        findBox_->setFocus();
        findBox_->selectAll();
    });
    grid_->setContextMenuPolicy(Qt::ActionsContextMenu);
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
    SheetModel& rows = grid_->rows();
    const int rowsBefore = rows.rowCount();
    const bool replaced = rows.refresh();
    if (headerChanges_ != sheet_.headerChanges()) {
        headerChanges_ = sheet_.headerChanges();
        keepRoomForStatistics(); // also when the first row of another type has come
        selectionStale_ = true;
        computing_.noteChange();
    }
    if (replaced) {
        shownTop_ = 0;
        selectionStale_ = true; // a selection that goes with its rows tells nothing
        showStatistics();
    }
    const QModelIndex visited = rows.index(shown_.currentRow - 1, shown_.currentColumn);
    if (std::exchange(visitPending_, false) && visited.isValid() && visited != grid_->currentIndex()) {
        grid_->selectionModel()->setCurrentIndex(visited, QItemSelectionModel::NoUpdate);
    }
    if (replaced || rows.rowCount() == rowsBefore) {
        bringIntoView();
    } else {
        grid_->showRowsFrom(rowsBefore, [this] { bringIntoView(); });
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

void SheetPage::selectRows(const std::vector<RowRange>& ranges) {
    refreshNow();
    if (!ranges.empty() || selectionIsLent_) {
        grid_->selectRows(ranges);
    }
    selectionIsLent_ = !ranges.empty();
}

void SheetPage::showStatistics() {
    if (std::exchange(selectionStale_, false)) {
        const SheetGrid::Selected what = grid_->whatIsSelected();
        statistics_->show(Screen::tr("%1 selected").arg(counted(what)), grid_->statistics());
        if (leftOut_ != what.rowsOfOtherType) {
            leftOut_ = what.rowsOfOtherType;
            tellWhatBecame();
        }
    }
}

} // namespace orv
