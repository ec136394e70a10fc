// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/focus.h"
#include "ui/operatorwatch.h"
#include "ui/tooltips.h"

#include <QMainWindow>
#include <QPointer>

#include <map>
#include <memory>
#include <vector>

class QGridLayout;
class QMessageBox;
class QSpacerItem;

namespace orv {

class ChoiceTabBar;
class GraphPage;
class HelpWindow;
class Remembered;
class SettingsWindow;
class SheetPage;
class Shortcuts;
class StatusPage;

/// The main window, "ORV Host Program": menus, the upper tab strip with the operating pages, the lower one with the
/// service pages.
///
/// To close it is to end the program, which the program may refuse; when it has ended, every window goes but the
/// messages that its end has told.
class MainWindow final : public QMainWindow {
public:
    /// With `remembered` it looks as it did when the program ended last.
    explicit MainWindow(Program& program, Remembered* remembered = nullptr);
    ~MainWindow() override;

    /// The settings screen; null before its first use.
    SettingsWindow* settingsWindow() const { return settingsWindow_.get(); }

    /// Makes the pages that do not exist yet. The window does so soon after it is shown and when one is chosen.
    void prepareAllPages();

    /// Brings everything on the screen up to date, for screenshots.
    void refreshNow();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void makeMenus();
    void makeConnectMenu(QMenu* operation);
    void addPage(Page page, QWidget* widget);
    void keepRoomForPages();
    void layOut();
    void addSimulationMarker(QLayout* row);
    void addServiceMarker(QLayout* row);
    QAction* addItem(QMenu* menu, QAnyStringView text, QAnyStringView name, const std::function<void()>& action);
    void showTitle();
    void showPage(Page page);
    void showSettings(bool visible);
    void comeForward();
    void noteMessages();
    void closeOldMessages();
    void hideWindows();
    void keepLook();
    void showAbout();

    Program& program_;
    Remembered* remembered_; ///< Null: nothing is kept.
    OperatorWatch watch_;
    ToolTips toolTips_;
    ChoiceTabBar* upperTabs_;
    ChoiceTabBar* lowerTabs_;
    QWidget* pageArea_;
    QGridLayout* pageLayout_;
    QSpacerItem* pageRoom_; ///< Behind the pages: the least that the window leaves them.
    StatusPage* statusPage_ = nullptr;
    SheetPage* sheetPage_ = nullptr;
    GraphPage* graphPage_ = nullptr;
    std::map<Page, QWidget*> pages_;
    std::unique_ptr<SettingsWindow> settingsWindow_; ///< Made on first use and kept.
    std::unique_ptr<HelpWindow> guide_;              ///< The same.
    QList<QPointer<QMessageBox>> stoodBefore_;       ///< Messages, when the operator last wished to end the program.
    std::vector<Subscription> subscriptions_;
    Bindings bindings_;
    FocusKeeper focus_{*this};
    std::unique_ptr<Shortcuts> shortcuts_;
};

} // namespace orv
