// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/graphpage.h"

#include "base/words.h"
#include "ui/curvelist.h"
#include "ui/picturebuttons.h"
#include "ui/plotcanvas.h"

#include <QComboBox>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace orv {

namespace {

constexpr int shortestRefreshDelay = 330; ///< Milliseconds from the first change to drawing it.
constexpr double drawingShare = 50.0;     ///< The delay is so many times what drawing takes, if that is more.

bool receives(Activity activity) {
    return activity == Activity::Collecting || activity == Activity::Downloading;
}

} // namespace

GraphPage::GraphPage(Program& program)
    : program_(program)
    , sheet_(program.sheet.data)
    , data_(sheet_)
    , canvas_(new PlotCanvas(data_))
    , list_(new CurveList)
    , note_(new QLabel)
    , statistics_(new StatisticsTable(QStringLiteral("PlotStatistics"), {}))
    , redrawing_(this, shortestRefreshDelay, [this] { refreshNow(); }) {
    setObjectName(QStringLiteral("GraphicalPage"));
    canvas_->setObjectName(QStringLiteral("Plot"));
    note_->setObjectName(QStringLiteral("PlotNote"));
    note_->setTextFormat(Qt::PlainText);
    note_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* middle = new QHBoxLayout;
    middle->addWidget(canvas_, 1);
    auto* side = new QVBoxLayout;
    side->addWidget(list_, 1);
    auto* frame = makeFrame(Screen::tr("Graphical"));
    (new QVBoxLayout(this))->addWidget(frame);
    auto* layout = new QVBoxLayout(frame);
    auto* bar = makeBar();
    layout->addWidget(bar);
    layout->addLayout(middle, 1);
    middle->addLayout(side);
    auto* pictures = new PictureButtons(program, *canvas_, [this] { refreshNow(); });
    side->addWidget(pictures);
    layout->addWidget(statistics_);
    layout->addWidget(note_);

    const auto follow = [this] { schedule(); };
    const auto begin = [this] {
        tellDone({});
        schedule();
    };
    subscriptions_ = {sheet_.rowAppended.subscribe(follow),
                      sheet_.headerChanged.subscribe(begin),
                      sheet_.rowsRemoved.subscribe(begin),
                      pictures->saved.subscribe([this](const QString& file) {
                          tellDone(Screen::tr("Saved to %1.").arg(QFileInfo(file).fileName()), file);
                      }),
                      pictures->copied.subscribe([this] { tellDone(Screen::tr("Copied.")); }),
                      canvas_->zoomed.subscribe([this] { setMode(PlotView::Mode::Own); }),
                      canvas_->allWanted.subscribe([this] { setMode(PlotView::Mode::All); }),
                      canvas_->newestWanted.subscribe([this] { setMode(PlotView::Mode::Newest); }),
                      canvas_->rangeChosen.subscribe([this] { takeRange(); }),
                      canvas_->cursorMoved.subscribe([this](int point) { readOut(point); }),
                      list_->switched.subscribe([this](int curve, bool shown) { switchCurve(curve, shown); }),
                      list_->regarded.subscribe([this](int curve) {
                          canvas_->emphasise(curve);
                          canvas_->drawNow();
                      })};
    bindings_.bind(program.link.session.commands.activity, [this](Activity activity) {
        view_.setReceiving(receives(activity));
        canvas_->setLive(receives(activity));
        showMode();
        tellDone({});
        schedule();
    });
    refreshTheme();
}

QWidget* GraphPage::makeBar() {
    auto* axis = new QComboBox;
    axis->setObjectName(QStringLiteral("PlotAxis"));
    axis->setToolTip(Screen::tr("What the curves are drawn over."));
    axis->addItems({Screen::tr("Record number"), Screen::tr("Time")});
    takeSelections(axis);
    connect(axis, &QComboBox::currentIndexChanged, this,
            [this](int index) { setAxis(index == 1 ? PlotData::Axis::Time : PlotData::Axis::Record); });
    auto* arrangement = new QComboBox;
    arrangement->setObjectName(QStringLiteral("PlotArrangement"));
    arrangement->setToolTip(Screen::tr("All curves on one axis; a pane for each, with its own scale; or each less "
                                       "its mean over what is seen."));
    arrangement->addItems({Screen::tr("One axis"), Screen::tr("Stacked"), Screen::tr("Change")});
    takeSelections(arrangement);
    connect(arrangement, &QComboBox::currentIndexChanged, this,
            [this](int index) { arrange(static_cast<PlotView::Arrangement>(index)); });
    const auto makeModeButton = [this](const QString& caption, const char* name, PlotView::Mode mode,
                                       const QString& toolTip) {
        QPushButton* button = makeButton(
            caption, name, [] {}, toolTip);
        button->setCheckable(true);
        // Either way: a mode is left by choosing another.
        connect(button, &QPushButton::toggled, this, [this, mode] { setMode(mode); });
        return button;
    };
    follow_ = makeModeButton(Screen::tr("&Follow"), "Follow", PlotView::Mode::Newest,
                             Screen::tr("Shows the newest rows as they come."));
    showAll_ = makeModeButton(Screen::tr("Show A&ll"), "ShowAll", PlotView::Mode::All,
                              Screen::tr("Shows all rows. A double click on the curves does the same."));
    auto* choose = makeButton(
        Screen::tr("Choose &Range"), "ChooseRange", [] {},
        Screen::tr("The pointer chooses a range of rows instead of moving the curves: for their mean and standard "
                   "deviation, and "
                   "to select them on the sheet."));
    choose->setCheckable(true);
    connect(choose, &QPushButton::toggled, this, [this](bool on) {
        canvas_->setChoosing(on);
        tellWhatIsMissing();
    });

    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(makeCaption(Screen::tr("&X axis :"), axis));
    row->addWidget(axis);
    row->addSpacing(8);
    row->addWidget(makeCaption(Screen::tr("&View :"), arrangement));
    row->addWidget(arrangement);
    row->addSpacing(8);
    row->addWidget(follow_);
    row->addWidget(showAll_);
    row->addSpacing(8); // the two before are one choice, this is a tool
    row->addWidget(choose);
    row->addStretch(1);
    return bar;
}

void GraphPage::arrange(PlotView::Arrangement arrangement) {
    tellDone({});
    arrangement_ = arrangement;
    canvas_->arrange(arrangement);
    view_.setMode(view_.mode() == PlotView::Mode::Own ? PlotView::Mode::All : view_.mode());
    stale_ = true;
    refreshNow();
}

void GraphPage::takeRange() {
    tellDone({});
    refreshNow(); // an automatic save may have taken the rows, and the range with them
    canvas_->dropEmptyRange();
    showStatistics();
    const auto& range = canvas_->range();
    rowsChosen.tell(range ? data_.rowsBetween(range->lower, range->upper) : std::vector<RowRange>());
}

void GraphPage::showStatistics() {
    std::vector<StatisticsTable::Line> lines;
    QString what;
    if (const auto& range = canvas_->range()) {
        for (int curve = 0; curve < data_.curveCount(); ++curve) {
            if (shown_[static_cast<std::size_t>(curve)]) {
                lines.push_back({shownColumn(data_.name(curve)), data_.statistics(curve, range->lower, range->upper)});
            }
        }
        what = rowsBetween(data_.firstPointFrom(range->lower), data_.firstPointAfter(range->upper));
    }
    statistics_->show(what, lines);
}

QString GraphPage::rowsBetween(int first, int end) const {
    const auto record = [this](int point) { return sheet_.cell(data_.row(point), sheetcolumn::record); };
    const int rows = end - first;
    // Over time the rows of a run and of a download may lie between each other: no two records name them all.
    const auto& range = canvas_->range();
    const bool inOnePiece = rows > 0 && (data_.axis() == PlotData::Axis::Record ||
                                         data_.rowsBetween(range->lower, range->upper).size() == 1);
    if (!inOnePiece) {
        return Screen::tr("%1 rows").arg(rows);
    }
    return rows == 1
               ? Screen::tr("1 row, record %1").arg(record(first))
               : Screen::tr("%1 rows, records %2 to %3").arg(QString::number(rows), record(first), record(end - 1));
}

void GraphPage::setAxis(PlotData::Axis axis) {
    tellDone({});
    data_.setAxis(axis);
    canvas_->dropRange(); // it lies on another axis
    rowsChosen.tell({});
    if (view_.mode() == PlotView::Mode::Own) {
        view_.setMode(PlotView::Mode::All); // what was zoomed to lies on another axis
        showMode();
    }
    stale_ = true;
    refreshNow();
}

void GraphPage::switchCurve(int curve, bool shown) {
    tellDone({});
    shown_[static_cast<std::size_t>(curve)] = shown;
    canvas_->setShown(curve, shown);
    view_.setMode(view_.mode()); // the others get the room
    stale_ = true;
    refreshNow();
}

void GraphPage::schedule() {
    stale_ = true;
    redrawing_.noteChange(std::max(shortestRefreshDelay, static_cast<int>(canvas_->replotTime(true) * drawingShare)));
}

void GraphPage::refreshNow() {
    if (!std::exchange(stale_, false)) {
        return;
    }
    redrawing_.cancel();
    const int pointedRow = pointed_ >= 0 ? data_.row(pointed_) : -1;
    const PlotData::Change change = data_.update();
    view_.noteChange(change);
    if (change == PlotData::Change::Appended) {
        canvas_->append();
    } else if (change != PlotData::Change::None) {
        if (change == PlotData::Change::Replaced) {
            canvas_->dropRange();
        }
        relay(change == PlotData::Change::Replaced ? -1 : pointedRow);
        if (canvas_->dropEmptyRange()) {
            rowsChosen.tell({});
        }
    }
    setRanges();
    showMode();
    tellWhatIsMissing();
    readOut(pointed_);
    showStatistics();
    canvas_->drawNow();
}

void GraphPage::relay(int pointedRow) {
    QStringList names;
    for (int curve = 0; curve < data_.curveCount(); ++curve) {
        names.append(shownColumn(data_.name(curve)));
    }
    if (shown_.size() != static_cast<std::size_t>(data_.curveCount())) {
        shown_.assign(static_cast<std::size_t>(data_.curveCount()), true);
    }
    pointed_ = data_.pointOf(pointedRow);
    canvas_->relay(pointed_);
    for (int curve = 0; curve < data_.curveCount(); ++curve) {
        canvas_->setShown(curve, shown_[static_cast<std::size_t>(curve)]);
    }
    list_->setCurves(names, shown_);
    list_->followInTabOrder(canvas_);
    refreshTheme();
}

void GraphPage::setMode(PlotView::Mode mode) {
    tellDone({});
    view_.setMode(mode);
    showMode();
    if (mode != PlotView::Mode::Own) {
        stale_ = true;
        refreshNow();
    }
}

void GraphPage::showMode() {
    if (follow_ != nullptr) {
        showChecked(follow_, view_.mode() == PlotView::Mode::Newest);
        showChecked(showAll_, view_.mode() == PlotView::Mode::All);
    }
}

void GraphPage::setRanges() {
    if (view_.mode() == PlotView::Mode::Own) {
        return;
    }
    const PlotView::Range places = view_.places(data_);
    std::vector<PlotView::Range> values;
    switch (arrangement_) {
    case PlotView::Arrangement::Together:
        values.push_back(view_.values(data_, shown_, places));
        break;
    case PlotView::Arrangement::Stacked:
        for (int curve = 0; curve < data_.curveCount(); ++curve) {
            values.push_back(view_.values(data_, curve, places));
        }
        break;
    case PlotView::Arrangement::Change:
        values.push_back(view_.changes(data_, shown_, places));
        break;
    }
    canvas_->setRanges(places, values);
}

void GraphPage::tellWhatIsMissing() {
    const bool noneShown = std::none_of(shown_.begin(), shown_.end(), [](bool shown) { return shown; });
    QString hint;
    if (data_.rowCount() == 0) {
        hint = Screen::tr("No rows yet.\n\nCollect or download data, or open a sheet:\nits columns are drawn here.");
    } else if (data_.pointCount() == 0) {
        hint = Screen::tr("No row can be placed on this axis.\n\nChoose the other one under \"X axis\".");
    } else if (noneShown) {
        hint = Screen::tr("All curves are switched off.");
    }
    canvas_->setHint(hint);

    QStringList notes;
    if (!done_.isEmpty()) {
        notes << done_;
    }
    const auto note = [&notes](int rows, const QString& one, const QString& several) {
        if (rows > 0) {
            notes << (rows == 1 ? one : several.arg(rows));
        }
    };
    note(data_.rowsOfOtherLayout(), Screen::tr("1 row of another type of instrument is not drawn."),
         Screen::tr("%1 rows of another type of instrument are not drawn."));
    if (data_.axis() == PlotData::Axis::Time) {
        note(data_.rowsWithoutPlace(), Screen::tr("1 row without a readable time is not drawn."),
             Screen::tr("%1 rows without a readable time are not drawn."));
    } else {
        note(data_.rowsWithoutPlace(), Screen::tr("1 row without a record number is not drawn."),
             Screen::tr("%1 rows without a record number are not drawn."));
    }
    if (notes.isEmpty() && canvas_->isChoosing()) {
        notes << Screen::tr("Dragging chooses a range; a click or Esc drops it.");
    } else if (notes.isEmpty()) {
        notes << Screen::tr(
            "Wheel zooms the axis, with Ctrl the values; dragging moves, with Shift it chooses a range; a double click "
            "shows all.");
    }
    note_->setText(notes.join(u' '));
}

void GraphPage::tellDone(const QString& done, const QString& file) {
    if (done != std::exchange(done_, done) || note_->toolTip() != file) {
        note_->setToolTip(file);
        tellWhatIsMissing();
    }
}

void GraphPage::readOut(int point) {
    if (data_.isOutdated()) {
        refreshNow(); // which comes here again
        return;
    }
    pointed_ = point < data_.pointCount() ? point : -1;
    CurveList::Readout readout;
    readout.title = pointed_ >= 0 ? Screen::tr("Row under the cursor") : Screen::tr("Newest row");
    const int newest = program_.progress.noRowYet ? -1 : data_.rowCount() - 1; // of the run, if one goes on
    const int row = pointed_ >= 0 ? data_.row(pointed_) : newest;
    if (row >= data_.rowsOfOtherLayout() && row >= 0) {
        readout.record = sheet_.cell(row, sheetcolumn::record);
        readout.date = sheet_.cell(row, sheetcolumn::date);
        readout.time = sheet_.cell(row, sheetcolumn::time);
        for (int curve = 0; curve < data_.curveCount(); ++curve) {
            readout.values << sheet_.cell(row, sheetcolumn::firstValue + curve);
        }
    }
    list_->show(readout);
}

void GraphPage::refreshTheme() {
    canvas_->setTheme(plotTheme(palette()));
    std::vector<QIcon> swatches;
    swatches.reserve(static_cast<std::size_t>(data_.curveCount()));
    for (int curve = 0; curve < data_.curveCount(); ++curve) {
        swatches.push_back(canvas_->swatch(curve));
    }
    list_->setSwatches(swatches);
}

void GraphPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        refreshTheme();
        schedule();
    } else if (event->type() == QEvent::FontChange) {
        canvas_->refreshFont();
        schedule();
    }
}

} // namespace orv
