// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/controls.h"
#include "testing/programrig.h"
#include "ui/mainwindow.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

namespace orv {

/// The main window over the whole program, with every page made and the debug output on. While the program waits, the
/// window lives and the test's clock runs as if the whole wait had passed.
class WindowRig : public ProgramRig {
public:
    WindowRig();
    ~WindowRig();
    WindowRig(const WindowRig&) = delete;
    WindowRig& operator=(const WindowRig&) = delete;

    template <typename Control>
    Control& find(const char* name) {
        return control<Control>(*window, name);
    }
    QAction& item(const char* name) { return find<QAction>(name); }
    QPushButton& button(const char* name) { return find<QPushButton>(name); }
    std::string text(const char* name) { return find<QLabel>(name).text().toStdString(); }

    /// Chooses the tab of that caption.
    void showPage(const QString& caption);
    /// Chooses each tab in turn and calls `look` with its caption.
    void onEachPage(const std::function<void(const std::string& caption)>& look);

    void receiveRow() { receive("11/21/26\t2700\t10\t20\t30\t40\r\n"); }

    /// Lets events run until the condition holds. Returns whether it does.
    static bool waitFor(const std::function<bool()>& reached);
    /// Lets events run for so many milliseconds.
    static void pass(int milliseconds);

    static constexpr int mostWaits = 20000;

    int waits = 0; ///< How often the program has waited for input in vain.
    std::function<void(int wait)> atWait;
    WindowEvents windowEvents;
    std::unique_ptr<MainWindow> window;
};

class WindowTest : public testing::Test, public WindowRig {};

} // namespace orv
