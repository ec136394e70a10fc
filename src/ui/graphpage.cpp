// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/graphpage.h"

#include "base/files.h"
#include "ui/plotcanvas.h"
#include "ui/plotpicture.h"

#include <QClipboard>
#include <QComboBox>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace orv {

namespace {

constexpr int linesBeforeCurves = 3;

QLabel* makeValue(const QString& name, const QString& accessibleName) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // A fixed width, so that a new number does not lay out the page anew.
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("00000.00000")));
    return label;
}

} // namespace

CurveList::CurveList(Actions actions, QWidget* parent)
    : QWidget(parent)
    , actions_(std::move(actions))
    , title_(new QLabel)
    , grid_(new QGridLayout) {
    setObjectName(QStringLiteral("CurveList"));
    title_->setObjectName(QStringLiteral("ReadoutTitle"));
    title_->setTextFormat(Qt::PlainText);
    record_ = addValue(*grid_, 0, QStringLiteral("ReadoutRecord"), QStringLiteral("Record"));
    date_ = addValue(*grid_, 1, QStringLiteral("ReadoutDate"), QStringLiteral("Date"));
    time_ = addValue(*grid_, 2, QStringLiteral("ReadoutTime"), QStringLiteral("Time"));
    grid_->setColumnStretch(0, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(title_);
    layout->addLayout(grid_);
    layout->addStretch(1);
}

QLabel* CurveList::addValue(QGridLayout& grid, int row, const QString& name, const QString& caption) {
    auto* value = makeValue(name, caption);
    grid.addWidget(new QLabel(caption), row, 0);
    grid.addWidget(value, row, 1);
    return value;
}

void CurveList::setCurves(const QStringList& names, const std::vector<bool>& shown) {
    // A control that has the focus stays, so that a header row that is laid out anew does not take the focus away.
    while (lines_.size() > static_cast<std::size_t>(names.size())) {
        delete lines_.back().box;
        delete lines_.back().value;
        lines_.pop_back();
    }
    for (auto curve = static_cast<int>(lines_.size()); curve < names.size(); ++curve) {
        auto* box = new QCheckBox;
        box->setObjectName(QStringLiteral("Curve%1").arg(curve + 1));
        box->setIconSize(QSize(28, 14));
        box->setToolTip(QStringLiteral("Shows or hides this curve (Alt+%1).").arg(curve + 1));
        box->installEventFilter(this);
        connect(box, &QCheckBox::toggled, this, [this, curve](bool on) { actions_.switched(curve, on); });
        auto* value = makeValue(QStringLiteral("ReadoutValue%1").arg(curve + 1), QString());
        grid_->addWidget(box, linesBeforeCurves + curve, 0);
        grid_->addWidget(value, linesBeforeCurves + curve, 1);
        lines_.push_back({.box = box, .value = value});
    }
    for (std::size_t curve = 0; curve < lines_.size(); ++curve) {
        const QString& name = names[static_cast<qsizetype>(curve)];
        const auto& [box, value] = lines_[curve];
        const QSignalBlocker quiet(box);
        box->setText(QString(name).replace(u'&', QLatin1String("&&")));
        // A letter of the name would change with the header row; a new text takes the shortcut away.
        box->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(curve))));
        box->setAccessibleName(QStringLiteral("Curve %1").arg(name));
        box->setChecked(shown[curve]);
        value->setAccessibleName(QStringLiteral("Value of %1").arg(name));
    }
}

void CurveList::followInTabOrder(QWidget* before) {
    for (const Line& line : lines_) {
        setTabOrder(before, line.box);
        before = line.box;
    }
}

void CurveList::setSwatches(const std::vector<QIcon>& swatches) {
    for (std::size_t curve = 0; curve < std::min(lines_.size(), swatches.size()); ++curve) {
        lines_[curve].box->setIcon(swatches[curve]);
    }
}

void CurveList::show(const Readout& readout) {
    title_->setText(readout.title);
    record_->setText(readout.record);
    date_->setText(readout.date);
    time_->setText(readout.time);
    for (std::size_t curve = 0; curve < lines_.size(); ++curve) {
        lines_[curve].value->setText(readout.values.value(static_cast<qsizetype>(curve)));
    }
}

bool CurveList::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        // The box itself knows of it only when it has handled the event.
        QMetaObject::invokeMethod(
            this, [this] { tellRegarded(); }, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return false;
}

void CurveList::tellRegarded() {
    const auto first = [this](auto regarded) {
        const auto found = std::find_if(lines_.begin(), lines_.end(), regarded);
        return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
    };
    const int pointed = first([](const Line& line) { return line.box->underMouse(); });
    actions_.regarded(pointed >= 0 ? pointed : first([](const Line& line) { return line.box->hasFocus(); }));
}

namespace {

constexpr double shortestRefreshDelay = 330.0; ///< Milliseconds from the first change to drawing it.
constexpr double drawingShare = 20.0;          ///< The delay is so many times what drawing takes, if that is more.

bool receives(Activity activity) {
    return activity == Activity::Collecting || activity == Activity::Downloading;
}

} // namespace

GraphPage::GraphPage(const Parts& parts, QWidget* parent)
    : QGroupBox(QStringLiteral("Graphical"), parent)
    , p_(parts)
    , data_(parts.sheet)
    , canvas_(new PlotCanvas(data_, {.zoomed = [this] { setMode(PlotView::Mode::Own); },
                                     .showAll = [this] { setMode(PlotView::Mode::All); },
                                     .follow = [this] { setMode(PlotView::Mode::Newest); },
                                     .cursorMoved = [this](int point) { readOut(point); }}))
    , list_(new CurveList({.switched =
                               [this](int curve, bool shown) {
                                   shown_[static_cast<std::size_t>(curve)] = shown;
                                   canvas_->setShown(curve, shown);
                                   view_.setMode(view_.mode()); // the others get the room
                                   stale_ = true;
                                   refreshNow();
                               },
                           .regarded =
                               [this](int curve) {
                                   canvas_->emphasise(curve);
                                   canvas_->drawNow();
                               }}))
    , note_(new QLabel) {
    setObjectName(QStringLiteral("GraphicalPage"));
    canvas_->setObjectName(QStringLiteral("Plot"));
    note_->setObjectName(QStringLiteral("PlotNote"));
    note_->setTextFormat(Qt::PlainText);
    note_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* middle = new QHBoxLayout;
    middle->addWidget(canvas_, 1);
    middle->addWidget(list_);
    auto* layout = new QVBoxLayout(this);
    auto* bar = makeBar();
    layout->addWidget(bar);
    layout->addLayout(middle, 1);
    layout->addWidget(note_);
    setTabOrder(bar->findChildren<QPushButton*>().constLast(), canvas_);

    refreshTimer_.setSingleShot(true);
    connect(&refreshTimer_, &QTimer::timeout, this, [this] { refreshNow(); });
    bindings_.bind(p_.commands.activity, [this](Activity activity) {
        view_.setReceiving(receives(activity));
        canvas_->setLive(receives(activity));
        showMode();
        schedule();
    });
    refreshTheme();
}

QPushButton* GraphPage::makeButton(const QString& caption, const char* name, const QString& toolTip,
                                   const std::function<void()>& action) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    if (action) {
        connect(button, &QPushButton::clicked, this, [action] { action(); });
    }
    return button;
}

QMenu* GraphPage::makeSaveMenu(QWidget* parent) {
    struct Item {
        PictureFormat format;
        const char* text;
        const char* name;
    };
    constexpr Item items[] = {{PictureFormat::Png, "As P&NG, pixels, for screens and documents", "SavePng"},
                              {PictureFormat::Pdf, "As P&DF, a page to print or send", "SavePdf"},
                              {PictureFormat::Svg, "As S&VG, lines, for drawing programs", "SaveSvg"}};
    auto* menu = new QMenu(parent);
    for (const Item& item : items) {
        QAction* action = menu->addAction(QString::fromLatin1(item.text));
        action->setObjectName(QLatin1String(item.name));
        connect(action, &QAction::triggered, this, [this, format = item.format] { savePicture(format); });
    }
    return menu;
}

QWidget* GraphPage::makeBar() {
    auto* axis = new QComboBox;
    axis->setObjectName(QStringLiteral("PlotAxis"));
    axis->setToolTip(QStringLiteral("What the curves are drawn over."));
    axis->addItems({QStringLiteral("Record number"), QStringLiteral("Time")});
    auto* axisLabel = new QLabel(QStringLiteral("&X axis :"));
    axisLabel->setBuddy(axis);
    connect(axis, &QComboBox::currentIndexChanged, this, [this](int index) {
        data_.setAxis(index == 1 ? PlotData::Axis::Time : PlotData::Axis::Record);
        if (view_.mode() == PlotView::Mode::Own) {
            view_.setMode(PlotView::Mode::All); // what was zoomed to lies on another axis
            showMode();
        }
        stale_ = true;
        refreshNow();
    });
    follow_ = makeButton(QStringLiteral("&Follow"), "Follow", QStringLiteral("Shows the newest rows as they come."),
                         [this] { setMode(PlotView::Mode::Newest); });
    showAll_ = makeButton(QStringLiteral("Show A&ll"), "ShowAll",
                          QStringLiteral("Shows all rows. A double click on the curves does the same."),
                          [this] { setMode(PlotView::Mode::All); });
    follow_->setCheckable(true);
    showAll_->setCheckable(true);
    auto* save = makeButton(QStringLiteral("Save Pict&ure"), "SavePicture",
                            QStringLiteral("Saves the curves as they are seen as a PNG, PDF or SVG file."), {});
    save->setMenu(makeSaveMenu(save));
    auto* copy = makeButton(QStringLiteral("Cop&y"), "CopyPicture",
                            QStringLiteral("Copies the curves as they are seen as a picture to the clipboard."),
                            [this] { copyPicture(); });
    auto* printButton = makeButton(QStringLiteral("Print &Graph..."), "PrintPicture",
                                   QStringLiteral("Prints the curves as they are seen."), [this] { print(); });

    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(axisLabel);
    row->addWidget(axis);
    row->addSpacing(16);
    row->addWidget(follow_);
    row->addWidget(showAll_);
    row->addStretch(1);
    row->addWidget(save);
    row->addWidget(copy);
    row->addWidget(printButton);
    return bar;
}

void GraphPage::schedule() {
    stale_ = true;
    if (isVisible() && !refreshTimer_.isActive()) {
        refreshTimer_.start(static_cast<int>(std::max(shortestRefreshDelay, canvas_->replotTime(true) * drawingShare)));
    }
}

void GraphPage::refreshNow() {
    if (!std::exchange(stale_, false)) {
        return;
    }
    refreshTimer_.stop();
    const int pointedRow = pointed_ >= 0 ? data_.row(pointed_) : -1;
    const PlotData::Change change = data_.update();
    view_.noteChange(change);
    if (change == PlotData::Change::Appended) {
        canvas_->append();
    } else if (change != PlotData::Change::None) {
        relay(change == PlotData::Change::Replaced ? -1 : pointedRow);
    }
    setRanges();
    showMode();
    tellWhatIsMissing();
    readOut(pointed_);
    canvas_->drawNow();
}

void GraphPage::relay(int pointedRow) {
    QStringList names;
    for (int curve = 0; curve < data_.curveCount(); ++curve) {
        names.append(data_.name(curve));
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
    view_.setMode(mode);
    showMode();
    if (mode != PlotView::Mode::Own) {
        stale_ = true;
        refreshNow();
    }
}

void GraphPage::showMode() {
    if (follow_ != nullptr) {
        follow_->setChecked(view_.mode() == PlotView::Mode::Newest);
        showAll_->setChecked(view_.mode() == PlotView::Mode::All);
    }
}

void GraphPage::setRanges() {
    if (view_.mode() != PlotView::Mode::Own) {
        const PlotView::Range places = view_.places(data_);
        canvas_->setRanges(places, view_.values(data_, shown_, places));
    }
}

void GraphPage::tellWhatIsMissing() {
    const bool noneShown = std::none_of(shown_.begin(), shown_.end(), [](bool shown) { return shown; });
    QString hint;
    if (data_.rowCount() == 0) {
        hint = QStringLiteral("No rows yet.\n\nCollect or download data, or open a sheet: its columns are drawn here.");
    } else if (data_.pointCount() == 0) {
        hint =
            data_.rowsWithoutPlace() == 0
                ? QStringLiteral("The rows are of another type of instrument.\n\nClear the sheet before you collect.")
                : QStringLiteral("No row can be placed on this axis.\n\nChoose the other one under \"X axis\".");
    } else if (noneShown) {
        hint = QStringLiteral("All curves are switched off.");
    }
    canvas_->setHint(hint);

    QStringList notes;
    if (data_.rowsOfOtherLayout() > 0) {
        notes << QStringLiteral("%1 rows of another type of instrument are not drawn.").arg(data_.rowsOfOtherLayout());
    }
    if (data_.rowsWithoutPlace() > 0) {
        notes << (data_.axis() == PlotData::Axis::Time
                      ? QStringLiteral("%1 rows without a readable time are not drawn.")
                      : QStringLiteral("%1 rows without a record number are not drawn."))
                     .arg(data_.rowsWithoutPlace());
    }
    if (notes.isEmpty()) {
        notes << QStringLiteral(
            "Wheel zooms the axis, with Ctrl the values; dragging moves; a double click shows all.");
    }
    note_->setText(notes.join(u' '));
}

void GraphPage::readOut(int point) {
    pointed_ = point < data_.pointCount() ? point : -1;
    CurveList::Readout readout;
    readout.title = pointed_ >= 0 ? QStringLiteral("Row under the cursor") : QStringLiteral("Newest row");
    const int row = pointed_ >= 0 ? data_.row(pointed_) : data_.rowCount() - 1;
    if (row >= data_.rowsOfOtherLayout() && row >= 0) {
        readout.record = p_.sheet.cell(row, sheetcolumn::record);
        readout.date = p_.sheet.cell(row, sheetcolumn::date);
        readout.time = p_.sheet.cell(row, sheetcolumn::time);
        for (int curve = 0; curve < data_.curveCount(); ++curve) {
            readout.values << p_.sheet.cell(row, sheetcolumn::firstValue + curve);
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

void GraphPage::savePicture(PictureFormat format) {
    const QString suffix = pictureSuffix(format);
    const QString name = p_.questions.saveFileName(QStringLiteral("Save Picture"), p_.shown.fileName.value() + suffix,
                                                   suffix, QLatin1Char('*') + suffix);
    if (name.isEmpty()) {
        return;
    }
    // Rows may have come while the operator chose.
    refreshNow();
    const QString reason = writeWholeFile(name, plotPicture(*canvas_, pictureFormat(name, format)));
    if (!reason.isEmpty()) {
        tell(QStringLiteral("Save Picture"),
             QStringLiteral("The picture could not be saved as %1: %2.\n\nChoose another folder or make room on the "
                            "disk, then save again.")
                 .arg(QFileInfo(name).absoluteFilePath(), reason));
    }
}

void GraphPage::copyPicture() {
    refreshNow();
    QGuiApplication::clipboard()->setImage(plotImage(*canvas_));
}

void GraphPage::print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(QStringLiteral("Curves of the data sheet"));
    const auto choose = [this](QPrinter& chosen) {
        QPrintDialog dialog(&chosen, this);
        return dialog.exec() == QDialog::Accepted;
    };
    if (!(p_.choosePrinter ? p_.choosePrinter(printer) : choose(printer))) {
        return;
    }
    refreshNow();
    if (!printPlot(*canvas_, printer)) {
        tell(QStringLiteral("Print Graph"),
             QStringLiteral("The printer did not take the page.\n\nSee whether it is switched on and connected, then "
                            "print again, or save the curves as PDF and print that."));
    }
}

void GraphPage::tell(const QString& title, const QString& text) {
    p_.messages.show(operatorWarning(text, title));
}

void GraphPage::showEvent(QShowEvent* event) {
    QGroupBox::showEvent(event);
    const auto follow = [this] { schedule(); };
    subscriptions_ = {p_.sheet.rowAppended.subscribe(follow), p_.sheet.headerChanged.subscribe(follow),
                      p_.sheet.rowsRemoved.subscribe(follow)};
    stale_ = true;
    refreshNow();
}

void GraphPage::hideEvent(QHideEvent* event) {
    subscriptions_.clear();
    refreshTimer_.stop();
    QGroupBox::hideEvent(event);
}

void GraphPage::changeEvent(QEvent* event) {
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        refreshTheme();
        schedule();
    } else if (event->type() == QEvent::FontChange) {
        canvas_->refreshFont();
        schedule();
    }
}

} // namespace orv
