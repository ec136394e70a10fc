// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/mainwindow.h"

#include "base/words.h"
#include "ui/calibrationpage.h"
#include "ui/debugpage.h"
#include "ui/dialogs.h"
#include "ui/graphpage.h"
#include "ui/helpwindow.h"
#include "ui/messageboxes.h"
#include "ui/remembered.h"
#include "ui/settingswindow.h"
#include "ui/sheetpage.h"
#include "ui/shortcuts.h"
#include "ui/statuspage.h"
#include "ui/style.h"
#include "ui/tabstrip.h"
#include "ui/widgets.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTimer>
#include <QVBoxLayout>

namespace orv {

namespace {

/// How long after the window has been shown the pages that are not seen at first are made, in milliseconds: making them
/// before would delay the window by a quarter.
constexpr int preparationDelay = 50;

/// What every page can be used in; the window is about 780 x 460 with it.
constexpr QSize leastPage(764, 362);

} // namespace

MainWindow::MainWindow(Program& program, Remembered* remembered)
    : program_(program)
    , remembered_(remembered)
    , watch_(program.capture)
    , upperTabs_(makeStrip(upperCaptions(), "TabStrip1", Screen::tr("Pages"), Screen::tr("Form Select Tabs.")))
    , lowerTabs_(makeStrip(lowerCaptions(), "TabStrip2", Screen::tr("Service pages"),
                           Screen::tr("Special Tidelane Debug screens and Tools. Internal use only so far.")))
    , pageArea_(new QWidget)
    , pageLayout_(new QGridLayout(pageArea_))
    , pageRoom_(new QSpacerItem(leastPage.width(), leastPage.height())) {
    qApp->installEventFilter(&watch_);
    qApp->installEventFilter(&toolTips_);
    speakLabelValues();
    setObjectName(QStringLiteral("MainWindow"));
    layOut();
    makeMenus();
    shortcuts_ = std::make_unique<Shortcuts>(*this, program, watch_, QList<ChoiceTabBar*>{upperTabs_, lowerTabs_});
    resize(1000, 680);

    new ManualConnectionDialog(program.link.manual, this);
    new ProgressDialog(program.settings.progress, this);
    bindings_.bind(program.settings.shown.visible, [this](bool visible) { showSettings(visible); });
    subscriptions_.push_back(program_.settings.sender.mainWindowWanted.subscribe([this] {
        if (showUnasked(*this)) {
            comeForward();
        }
    }));
    subscriptions_.push_back(program_.aboutToEnd.subscribe([this] { closeOldMessages(); }));
    subscriptions_.push_back(program_.endedUnasked.subscribe([this] { keepLook(); }));
    subscriptions_.push_back(program_.ended.subscribe([this] {
        keepLook();
        hideWindows();
    }));
    if (remembered_ != nullptr) {
        remembered_->restoreWindow(*this);
        if (const qsizetype page = upperCaptions().indexOf(remembered_->page()); page > 0) {
            upperTabs_->choose(static_cast<int>(page));
        }
    }
}

MainWindow::~MainWindow() = default;

void MainWindow::addPage(Page page, QWidget* widget) {
    widget->hide();
    pageLayout_->addWidget(widget, 0, 0);
    pages_[page] = widget;
}

/// So that no page widens the window when it is shown.
void MainWindow::keepRoomForPages() {
    QSize least = leastPage;
    for (const auto& [page, widget] : pages_) {
        least = least.expandedTo(widget->minimumSizeHint());
    }
    pageRoom_->changeSize(least.width(), least.height());
    pageLayout_->invalidate();
}

void MainWindow::prepareAllPages() {
    if (sheetPage_ != nullptr) {
        return;
    }
    sheetPage_ = new SheetPage(program_);
    graphPage_ = new GraphPage(program_);
    subscriptions_.push_back(
        graphPage_->rowsChosen.subscribe([this](const std::vector<RowRange>& rows) { sheetPage_->selectRows(rows); }));
    if (remembered_ != nullptr) {
        remembered_->restoreChoices(*sheetPage_);
        remembered_->restoreChoices(*graphPage_);
    }
    addPage(Page::Sheet, sheetPage_);
    addPage(Page::Graphical, scrollable(graphPage_));
    addPage(Page::Debug, new DebugPage(program_));
    addPage(Page::Testing, scrollable(new TestingPage(program_)));
    addPage(Page::Calibration, scrollable(new CalibrationPage(program_)));
    keepRoomForPages();
    // What is made later stands at the end of the tab order; the service strip comes after every page.
    QWidget* last = previousInFocusChain();
    while ((last->focusPolicy() & Qt::TabFocus) == 0 && last != lowerTabs_) {
        last = last->previousInFocusChain();
    }
    setTabOrder(last, lowerTabs_);
    // The list of a chooser is a window of its own, to which the main window's shortcuts do not reach.
    for (QComboBox* chooser : findChildren<QComboBox*>()) {
        chooser->view()->addAction(findChild<QAction*>(QStringLiteral("ServiceMode")));
    }
}

void MainWindow::layOut() {
    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    pageLayout_->setContentsMargins(0, 0, 0, 0);
    pageLayout_->addItem(pageRoom_, 0, 0);
    auto* upperRow = new QHBoxLayout;
    auto* serviceRow = new QHBoxLayout;
    layout->addLayout(upperRow);
    upperRow->addWidget(upperTabs_);
    upperRow->addStretch(1);
    addSimulationMarker(upperRow);
    layout->addWidget(pageArea_, 1);
    layout->addLayout(serviceRow);
    statusPage_ = new StatusPage(program_);
    addPage(Page::Status, scrollable(statusPage_));
    addServiceMarker(serviceRow);
    serviceRow->addWidget(lowerTabs_);
    serviceRow->addStretch(1);
    lowerTabs_->setShape(QTabBar::RoundedSouth);
    setCentralWidget(centre);

    subscriptions_.push_back(
        upperTabs_->tabChosen.subscribe([this](const QString& caption) { program_.selectUpperTab(caption); }));
    subscriptions_.push_back(
        lowerTabs_->tabChosen.subscribe([this](const QString& caption) { program_.selectLowerTab(caption); }));
    bindings_.bind(program_.pages.shown, [this](Page page) { showPage(page); });
    bindVisible(bindings_, lowerTabs_, program_.pages.serviceMode);
}

void MainWindow::addServiceMarker(QLayout* row) {
    auto* marker = new QWidget;
    marker->setObjectName(QStringLiteral("ServiceMarker"));
    marker->setAccessibleName(Screen::tr("Service mode"));
    marker->setToolTip(Screen::tr("The program is in service mode."));
    marker->setFixedSize(14, 14);
    marker->setAutoFillBackground(true);
    row->addWidget(marker);
    bindVisible(bindings_, marker, program_.pages.serviceMode);
    bindings_.bind(program_.pages.markerColour, [marker](quint32 colour) {
        QPalette palette = marker->palette();
        const auto part = [colour](int shift) { return static_cast<int>(colour >> shift & 0xFFU); };
        palette.setColor(QPalette::Window,
                         colour == 0 ? palette.color(QPalette::Highlight) : QColor(part(0), part(8), part(16)));
        marker->setPalette(palette);
    });
}

void MainWindow::addSimulationMarker(QLayout* row) {
    auto* marker = new QLabel;
    marker->setObjectName(QStringLiteral("SimulationMarker"));
    marker->setAccessibleName(Screen::tr("Simulated instrument"));
    marker->setToolTip(Screen::tr("What it measures is made up by this program. Choose a real port in \"Ports\" on "
                                  "the page \"Status and Controls\"."));
    marker->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    marker->setAutoFillBackground(true);
    marker->setPalette(warningPalette());
    marker->setMargin(3);
    marker->setMinimumWidth(1); // gives way before the tabs
    row->addWidget(marker);
    bindings_.bind(program_.link.portChoices.shown.simulation, [this, marker](const Words& text) {
        marker->setText(text.shown());
        marker->setVisible(!text.isEmpty());
        showTitle();
    });
    bindings_.bind(program_.sheet.shown.file, [this](const QString&) { showTitle(); });
    bindings_.bind(program_.sheet.shown.unsaved, [this](bool) { showTitle(); });
}

void MainWindow::showTitle() {
    QString title = Screen::tr("ORV Host Program");
    const QString& file = program_.sheet.shown.file.value();
    if (!file.isEmpty()) {
        // Rows have come since: the star that such titles have.
        const QString star = program_.sheet.shown.unsaved ? QStringLiteral("*") : QString();
        title = QStringLiteral("%1%2 - %3").arg(QFileInfo(file).fileName(), star, title);
    }
    if (!program_.link.portChoices.shown.simulation.value().isEmpty()) {
        title = Screen::tr("%1 (simulated instrument)").arg(title);
    }
    if (title != windowTitle()) {
        setWindowTitle(title);
    }
}

void MainWindow::showPage(Page page) {
    if (page != Page::Status && page != Page::None) {
        prepareAllPages();
    }
    // Two pages shown together, even for a moment, would enlarge the window for good.
    for (const auto& [candidate, widget] : pages_) {
        if (candidate != page) {
            widget->hide();
        }
    }
    const auto shown = pages_.find(page);
    if (shown != pages_.end()) {
        shown->second->show();
    }
    // The strip whose page is hidden must not look as if its tab were shown, and lets it be chosen again.
    for (ChoiceTabBar* strip : {upperTabs_, lowerTabs_}) {
        strip->setChosen(pageOfCaption(strip->caption(strip->currentIndex())) == page);
    }
}

QAction* MainWindow::addItem(QMenu* menu, QAnyStringView text, QAnyStringView name,
                             const std::function<void()>& action) {
    QAction* item = watch_.makeAction(*this, text, name, action);
    menu->addAction(item);
    return item;
}

void MainWindow::makeMenus() {
    QMenu* operation = menuBar()->addMenu(Screen::tr("&Operation"));
    makeConnectMenu(operation);
    QAction* closePort = addItem(operation, Screen::tr("&Close Port"), "ClosePort", [this] { program_.closePort(); });
    operation->addSeparator();
    QAction* quit = addItem(operation, Screen::tr("&Quit"), "Quit", [this] {
        noteMessages();
        program_.quit();
    });
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    QMenu* processing = menuBar()->addMenu(Screen::tr("&Processing"));
    QAction* saveText = addItem(processing, Screen::tr("Download Stored Data: &Save as Text"), "DownloadText",
                                [this] { program_.downloadText(); });
    QAction* view = addItem(processing, Screen::tr("Download Stored Data: &View with Host Program"), "DownloadView",
                            [this] { program_.vwhp(); });

    QMenu* settingsMenu = menuBar()->addMenu(Screen::tr("&Settings"));
    QAction* settingsForm = addItem(settingsMenu, Screen::tr("&Settings"), "ShowSettingsForm", [this] {
        program_.showSettingsForm();
        settingsWindow_->present();
    });

    QMenu* help = menuBar()->addMenu(Screen::tr("&Help"));
    QAction* contents =
        addItem(help, Screen::tr("&Contents"), "Contents", [this] { showGuide(guide_, *this, remembered_); });
    contents->setShortcut(Qt::Key_F1);
    contents->setShortcutContext(Qt::ApplicationShortcut);
    addItem(help, Screen::tr("&Save Support File..."), "SaveSupportFile", [this] { program_.saveSupportFile(); });
    addItem(help, Screen::tr("&About Orv Host ..."), "About", [this] { showAbout(); });

    const CommandState& commands = program_.link.session.commands;
    bindEnabled(bindings_, closePort, commands.closePortEnabled);
    bindVisible(bindings_, processing->menuAction(), commands.processingMenuVisible);
    bindVisible(bindings_, settingsMenu->menuAction(), commands.settingsMenuVisible);
    bindEnabled(bindings_, settingsForm, commands.settingsFormEnabled);
    bindEnabled(bindings_, saveText, commands.canCommand);
    bindEnabled(bindings_, view, commands.canCommand);
}

void MainWindow::makeConnectMenu(QMenu* operation) {
    struct Item {
        ConnectItems::Item item;
        const char* text;
        const char* name;
        std::function<void()> connectNow;
    };
    const Item items[] = {
        {ConnectItems::Auto1, QT_TRANSLATE_NOOP("orv", "&Auto Connect Comm 1"), "AutoConnect1",
         [this] { program_.autoConnect1(); }},
        {ConnectItems::Auto2, QT_TRANSLATE_NOOP("orv", "A&uto Connect Comm 2"), "AutoConnect2",
         [this] { program_.autoConnect2(); }},
        {ConnectItems::Manual1, QT_TRANSLATE_NOOP("orv", "&Manual Connect Comm 1"), "ManualConnect1",
         [this] { program_.manualConnect(1); }},
        {ConnectItems::Manual2, QT_TRANSLATE_NOOP("orv", "Mau&nal Connect Comm 2"), "ManualConnect2",
         [this] { program_.manualConnect(2); }},
    };
    QMenu* start = operation->addMenu(Screen::tr("&Start Communication"));
    const QProperty<bool>& undisturbed = program_.link.session.commands.undisturbed;
    for (const auto& [item, text, name, connectNow] : items) {
        const ConnectItem& state = program_.link.connection.items[item];
        QAction* action = addItem(start, Screen::tr(text), name, connectNow);
        action->setCheckable(true);
        // A click must not change the mark by itself, not even while the attempt goes on: the procedures set it.
        connect(action, &QAction::toggled, this, [action, &state] { action->setChecked(state.checked); });
        bindings_.bind(state.checked, [action](bool on) { action->setChecked(on); });
        const auto enable = [action, &state, &undisturbed](bool) { action->setEnabled(state.enabled && undisturbed); };
        bindings_.bind(state.enabled, enable);
        bindings_.bind(undisturbed, enable);
    }
}

void MainWindow::showSettings(bool visible) {
    if (!visible || settingsWindow_) {
        return; // the window follows by itself
    }
    settingsWindow_ = std::make_unique<SettingsWindow>(program_);
    if (remembered_ != nullptr) {
        remembered_->restoreWindow(*settingsWindow_);
    }
    subscriptions_.push_back(settingsWindow_->mainWindowWanted.subscribe([this] { comeForward(); }));
}

void MainWindow::comeForward() {
    show();
    raise();
    activateWindow();
}

void MainWindow::refreshNow() {
    prepareAllPages();
    sheetPage_->refreshNow();
    graphPage_->refreshNow();
}

void MainWindow::showAbout() {
    program_.link.ports.debugsay(QStringLiteral("About"));
    auto* dialog = findChild<QDialog*>(QStringLiteral("AboutDialog"));
    if (dialog == nullptr) {
        dialog = new AboutDialog(this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void MainWindow::noteMessages() {
    const QList<QMessageBox*> unread = MessageBoxes::unreadIn(*this);
    stoodBefore_ = {unread.begin(), unread.end()};
}

void MainWindow::closeOldMessages() {
    // Messages that were not read before do not keep the program; what its end has to say does, even if it is the same.
    for (const QPointer<QMessageBox>& box : std::as_const(stoodBefore_)) {
        if (box) {
            box->close();
        }
    }
}

void MainWindow::keepLook() {
    if (remembered_ == nullptr) {
        return;
    }
    remembered_->keepPage(program_.pages.upperCaption);
    remembered_->keepWindow(this);
    remembered_->keepWindow(settingsWindow_.get());
    remembered_->keepWindow(guide_.get());
    remembered_->keepChoices(sheetPage_);
    remembered_->keepChoices(graphPage_);
}

void MainWindow::hideWindows() {
    const QList<QMessageBox*> unread = MessageBoxes::unreadIn(*this);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (!unread.contains(widget)) {
            widget->hide();
        }
    }
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    QTimer::singleShot(preparationDelay, this, [this] { prepareAllPages(); });
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !event->isAutoRepeat() && program_.pages.shown.value() == Page::Status) {
        statusPage_->enter();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

bool MainWindow::focusNextPrevChild(bool next) {
    return focus_.move(next) || QMainWindow::focusNextPrevChild(next);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore(); // it goes when the program has ended
    noteMessages();
    program_.leave();
}

} // namespace orv
