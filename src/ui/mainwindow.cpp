// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/mainwindow.h"

#include "ui/calibrationpage.h"
#include "ui/debugpage.h"
#include "ui/dialogs.h"
#include "ui/graphpage.h"
#include "ui/settingswindow.h"
#include "ui/sheetpage.h"
#include "ui/statuspage.h"
#include "ui/widgets.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

namespace orv {

namespace {

/// How long after the window has been shown the pages that are not seen at first are made, in milliseconds: making them
/// before would delay the window by a quarter.
constexpr int preparationDelay = 50;

/// Lets a page be seen whole in a window that is smaller than it, instead of enlarging the window.
QWidget* scrollable(QWidget* page) {
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(page);
    return area;
}

} // namespace

MainWindow::MainWindow(Program& program, WindowEvents& events)
    : program_(program)
    , events_(events) {
    speakLabelValues();
    setObjectName(QStringLiteral("MainWindow"));
    auto* centre = new QWidget;
    makeTabStrips(centre);
    setCentralWidget(centre);
    makeMenus();
    makeShortcuts();
    resize(1000, 680);

    auto* manual = new ManualConnectionDialog(program.manual, this);
    events.setManualDialog(manual);
    new ProgressDialog(program.progress, this);
    program_.settingsSender.showMainWindow = [this] { comeForward(); };
    bindings_.bind(program.settings.visible, [this](bool visible) { showSettings(visible); });
    program_.connection.pollingEnded = [this] {
        if (closeWhenPossible_) {
            closeWhenPossible_ = false;
            close();
        }
    };
}

MainWindow::~MainWindow() = default;

void MainWindow::addPage(Page page, QWidget* widget) {
    widget->hide();
    pageArea_->layout()->addWidget(widget);
    pages_[page] = widget;
}

void MainWindow::prepareAllPages() {
    if (sheetPage_ != nullptr) {
        return;
    }
    sheetPage_ = new SheetPage(program_.sheet, program_.sheetState, program_.session.commands,
                               {.saveAs = [this] { program_.saveAs(); },
                                .open = [this] { program_.openSheet(); },
                                .clearAll = [this] { program_.clearAll(); }});
    addPage(Page::Sheet, sheetPage_);
    graphPage_ = new GraphPage({.sheet = program_.sheet,
                                .shown = program_.sheetState,
                                .commands = program_.session.commands,
                                .messages = program_.session.messages,
                                .questions = program_.questions});
    addPage(Page::Graphical, graphPage_);
    addPage(Page::Debug, new DebugPage({.session = program_.session,
                                        .ports = program_.ports,
                                        .debug = program_.debug,
                                        .pages = program_.pages,
                                        .directSend = program_.directSend,
                                        .setComm2Output = [this](bool ticked) { program_.setComm2Output(ticked); }}));
    addPage(Page::Testing, scrollable(new TestingPage(program_.session, [this] { program_.resetShutter(); })));
    addPage(Page::Calibration, scrollable(new CalibrationPage(program_.calibrationState, program_.calibration)));
    // What is made later stands at the end of the tab order; the service strip comes after every page.
    QWidget* last = previousInFocusChain();
    while ((last->focusPolicy() & Qt::TabFocus) == 0 && last != lowerTabs_) {
        last = last->previousInFocusChain();
    }
    setTabOrder(last, lowerTabs_);
}

void MainWindow::makeTabStrips(QWidget* centre) {
    upperTabs_ = new ChoiceTabBar(upperCaptions());
    upperTabs_->setObjectName(QStringLiteral("TabStrip1"));
    upperTabs_->setAccessibleName(QStringLiteral("Pages"));
    upperTabs_->setToolTip(QStringLiteral("Form Select Tabs."));
    upperTabs_->setDrawBase(false);
    lowerTabs_ = new ChoiceTabBar(lowerCaptions());
    lowerTabs_->setObjectName(QStringLiteral("TabStrip2"));
    lowerTabs_->setAccessibleName(QStringLiteral("Service pages"));
    lowerTabs_->setToolTip(QStringLiteral("Special Tidelane Debug screens and Tools. Internal use only so far."));
    lowerTabs_->setDrawBase(false);
    lowerTabs_->setShape(QTabBar::RoundedSouth);
    pageArea_ = new QWidget;
    auto* pageLayout = new QVBoxLayout(pageArea_);
    pageLayout->setContentsMargins(0, 0, 0, 0);
    addPage(Page::Status, scrollable(new StatusPage(program_, {.run = [this] { program_.run(); },
                                                               .reset = [this] { program_.reset(); },
                                                               .resetShutter = [this] { program_.resetShutter(); }})));
    auto* layout = new QVBoxLayout(centre);
    auto* upperRow = new QHBoxLayout;
    upperRow->addWidget(upperTabs_);
    upperRow->addStretch(1);
    upperRow->addWidget(makeSimulationMarker());
    layout->addLayout(upperRow);
    layout->addWidget(pageArea_, 1);
    auto* marker = new QWidget;
    marker->setObjectName(QStringLiteral("ServiceMarker"));
    marker->setAccessibleName(QStringLiteral("Service mode"));
    marker->setFixedSize(14, 14);
    marker->setAutoFillBackground(true);
    auto* serviceRow = new QHBoxLayout;
    serviceRow->addWidget(marker);
    serviceRow->addWidget(lowerTabs_);
    serviceRow->addStretch(1);
    layout->addLayout(serviceRow);

    upperTabs_->tabChosen = [this](const QString& caption) { program_.selectUpperTab(caption); };
    lowerTabs_->tabChosen = [this](const QString& caption) { program_.selectLowerTab(caption); };
    bindings_.bind(program_.pages.shown, [this](Page page) { showPage(page); });
    bindings_.bind(program_.pages.serviceMode, [this, marker](bool on) {
        lowerTabs_->setVisible(on);
        marker->setVisible(on);
    });
    bindings_.bind(program_.pages.markerColour, [marker](quint32 colour) {
        QPalette palette = marker->palette();
        const auto part = [colour](int shift) { return static_cast<int>(colour >> shift & 0xFFU); };
        palette.setColor(QPalette::Window,
                         colour == 0 ? palette.color(QPalette::Highlight) : QColor(part(0), part(8), part(16)));
        marker->setPalette(palette);
    });
}

QLabel* MainWindow::makeSimulationMarker() {
    auto* marker = new QLabel;
    marker->setObjectName(QStringLiteral("SimulationMarker"));
    marker->setAccessibleName(QStringLiteral("Simulated instrument"));
    marker->setToolTip(QStringLiteral("What it measures is made up by this program. Choose a real port in \"Ports\" on "
                                      "the page \"Status and Controls\"."));
    marker->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    marker->setAutoFillBackground(true);
    marker->setBackgroundRole(QPalette::ToolTipBase);
    marker->setForegroundRole(QPalette::ToolTipText);
    marker->setMargin(3);
    bindings_.bind(program_.portChoices.shown.simulation, [this, marker](const QString& text) {
        marker->setText(text);
        marker->setVisible(!text.isEmpty());
        const QString title = QStringLiteral("ORV Host Program");
        setWindowTitle(text.isEmpty() ? title : QStringLiteral("%1 (simulated instrument)").arg(title));
    });
    return marker;
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
        strip->setChosen(pageOfCaption(strip->tabText(strip->currentIndex())) == page);
    }
}

QAction* MainWindow::addItem(QMenu* menu, const QString& text, const QString& name,
                             const std::function<void()>& action) {
    QAction* item = menu->addAction(text);
    item->setObjectName(name);
    connect(item, &QAction::triggered, this, [action] { action(); });
    return item;
}

void MainWindow::makeMenus() {
    QMenu* operation = menuBar()->addMenu(QStringLiteral("&Operation"));
    makeConnectMenu(operation);
    QAction* closePort = addItem(operation, QStringLiteral("&Close Port"), QStringLiteral("ClosePort"),
                                 [this] { program_.closePort(); });
    operation->addSeparator();
    QAction* quit = addItem(operation, QStringLiteral("&Quit"), QStringLiteral("Quit"), [this] {
        if (program_.quit()) {
            quitNow();
        }
    });
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    QMenu* processing = menuBar()->addMenu(QStringLiteral("&Processing"));
    QAction* saveText = addItem(processing, QStringLiteral("Download Stored Data: &Save as Text"),
                                QStringLiteral("DownloadText"), [this] { program_.downloadText(); });
    QAction* view = addItem(processing, QStringLiteral("Download Stored Data: &View with Host Program"),
                            QStringLiteral("DownloadView"), [this] { program_.vwhp(); });

    QMenu* settingsMenu = menuBar()->addMenu(QStringLiteral("&Settings"));
    QAction* settingsForm =
        addItem(settingsMenu, QStringLiteral("&Settings"), QStringLiteral("ShowSettingsForm"), [this] {
            program_.showSettingsForm();
            settingsWindow_->present();
        });

    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    addItem(help, QStringLiteral("&Contents"), QStringLiteral("Contents"), [] {});
    addItem(help, QStringLiteral("&About Orv Host ..."), QStringLiteral("About"), [this] { showAbout(); });

    const CommandState& commands = program_.session.commands;
    bindings_.bind(commands.closePortEnabled, [closePort](bool on) { closePort->setEnabled(on); });
    bindings_.bind(commands.processingMenuVisible, [processing](bool on) { processing->menuAction()->setVisible(on); });
    bindings_.bind(commands.settingsMenuVisible,
                   [settingsMenu](bool on) { settingsMenu->menuAction()->setVisible(on); });
    bindings_.bind(commands.settingsFormEnabled, [settingsForm](bool on) { settingsForm->setEnabled(on); });
    bindings_.bind(commands.canCommand, [saveText, view](bool can) {
        saveText->setEnabled(can);
        view->setEnabled(can);
    });
}

QAction* MainWindow::addShortcut(const QString& text, const QString& name, const QKeySequence& keys,
                                 const std::function<void()>& action) {
    auto* shortcut = new QAction(text, this);
    shortcut->setObjectName(name);
    shortcut->setShortcut(keys);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QAction::triggered, this, [action] { action(); });
    addAction(shortcut);
    return shortcut;
}

void MainWindow::makeShortcuts() {
    // Each does what its button does, whichever page is shown, and only while the button could be pressed.
    QAction* open = addShortcut(QStringLiteral("Open"), QStringLiteral("OpenShortcut"), Qt::CTRL | Qt::Key_O,
                                [this] { program_.openSheet(); });
    QAction* save = addShortcut(QStringLiteral("Save As"), QStringLiteral("SaveAsShortcut"),
                                Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { program_.saveAs(); });
    QAction* run = addShortcut(QStringLiteral("Run"), QStringLiteral("RunShortcut"), QKeySequence(Qt::Key_F5),
                               [this] { program_.run(); });
    const CommandState& commands = program_.session.commands;
    bindings_.bind(commands.canOpenSheet, [open](bool can) { open->setEnabled(can); });
    bindings_.bind(commands.canSaveAs, [save](bool can) { save->setEnabled(can); });
    bindings_.bind(commands.canRun, [run](bool can) { run->setEnabled(can); });
    bindings_.bind(commands.runVisible, [run](bool visible) { run->setVisible(visible); });

    // The letters belong to the pages: a page has more controls than its tab strips would leave letters.
    int number = 0;
    for (QTabBar* strip : {upperTabs_, lowerTabs_}) {
        for (int index = 0; index < strip->count(); ++index) {
            ++number;
            const QKeySequence keys(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + number));
            QAction* choose =
                addShortcut(strip->tabText(index), QStringLiteral("ChoosePage%1").arg(number), keys, [strip, index] {
                    if (index == strip->currentIndex()) {
                        Q_EMIT strip->tabBarClicked(index);
                    } else {
                        strip->setCurrentIndex(index);
                    }
                });
            strip->setTabToolTip(index, QStringLiteral("%1 (%2)").arg(strip->toolTip(), keys.toString()));
            if (strip == lowerTabs_) {
                bindings_.bind(program_.pages.serviceMode, [choose](bool on) { choose->setEnabled(on); });
            }
        }
    }
}

void MainWindow::makeConnectMenu(QMenu* operation) {
    struct Item {
        ConnectItems::Item item;
        const char* text;
        const char* name;
        std::function<void()> action;
    };
    const Item items[] = {
        {ConnectItems::Auto1, "&Auto Connect Comm 1", "AutoConnect1", [this] { program_.autoConnect1(); }},
        {ConnectItems::Auto2, "A&uto Connect Comm 2", "AutoConnect2", [this] { program_.autoConnect2(); }},
        {ConnectItems::Manual1, "&Manual Connect Comm 1", "ManualConnect1", [this] { program_.manualConnect(1); }},
        {ConnectItems::Manual2, "Mau&nal Connect Comm 2", "ManualConnect2", [this] { program_.manualConnect(2); }},
    };
    QMenu* start = operation->addMenu(QStringLiteral("&Start Communication"));
    for (const Item& item : items) {
        QAction* action = start->addAction(QString::fromLatin1(item.text));
        action->setObjectName(QString::fromLatin1(item.name));
        action->setCheckable(true);
        const ConnectItem& state = program_.connectItems[item.item];
        // A click must not change the mark by itself, not even while the attempt goes on: the procedures set it.
        connect(action, &QAction::triggered, this, [action, &state, connectNow = item.action] {
            action->setChecked(state.checked);
            connectNow();
        });
        bindings_.bind(state.checked, [action](bool on) { action->setChecked(on); });
        const auto enable = [action, &state, this] {
            action->setEnabled(state.enabled && program_.session.commands.undisturbed);
        };
        bindings_.bind(state.enabled, [enable](bool) { enable(); });
        bindings_.bind(program_.session.commands.undisturbed, [enable](bool) { enable(); });
    }
}

void MainWindow::showSettings(bool visible) {
    if (!visible || settingsWindow_) {
        return; // the window follows the shown itself
    }
    settingsWindow_ =
        std::make_unique<SettingsWindow>(SettingsWindow::Parts{.session = program_.session,
                                                               .shown = program_.settings,
                                                               .commands = program_.settingsCommands,
                                                               .modes = program_.modes,
                                                               .actions = program_.deviceFiles,
                                                               .showMainWindow = [this] { comeForward(); }});
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
    program_.about();
    auto* dialog = new AboutDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void MainWindow::quitNow() {
    // Messages that were not read by now do not keep the program; what its end has to say does.
    for (QMessageBox* box : findChildren<QMessageBox*>()) {
        box->close();
    }
    hide();
    program_.end();
    events_.endProgram();
    QCoreApplication::exit(0); // quit() would close message boxes that have not been read
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    QTimer::singleShot(preparationDelay, this, [this] { prepareAllPages(); });
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (program_.settingsSender.isPolling()) {
        QTimer::singleShot(100, this, [this] { close(); });
        return;
    }
    if (program_.connection.isPolling()) {
        // The wake-up loop handles nothing of the operator's; the wish is kept until it has ended.
        closeWhenPossible_ = true;
        if (program_.session.state.Seeking == 1) {
            program_.manual.quit();
        }
        return;
    }
    if (events_.programEnding() || program_.ask()) {
        quitNow();
        event->accept();
    }
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_H && event->modifiers() == (Qt::ControlModifier | Qt::AltModifier)) {
        program_.toggleServiceMode();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

} // namespace orv
