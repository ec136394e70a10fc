// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/programrig.h"
#include "ui/mainwindow.h"
#include "ui/settingswindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>

#include <stdexcept>

namespace orv {

/// What is below a window by that object name, a control, an action or a timer; the test fails if there is nothing.
template <typename Control>
Control& control(const QObject& window, const char* name) {
    auto* found = window.findChild<Control*>(QString::fromLatin1(name));
    if (found == nullptr) {
        throw std::out_of_range(std::string("no control ") + name);
    }
    return *found;
}

void press(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Types printable characters.
void type(QWidget& widget, const char* characters);

/// The same in the place of what the box holds; `enter` presses Return then.
void retype(QLineEdit& box, const char* text);
void enter(QLineEdit& box, const char* text);

void clickAt(QWidget& widget, const QPointF& at);
void clickTab(QTabBar& tabs, int index);

/// A click as the window system delivers it: it arrives when events are processed.
void postClick(QWidget& widget);

/// Puts the focus on a control or takes it away, as far as the control can tell.
void tellFocus(QWidget& widget, QEvent::Type inOrOut, Qt::FocusReason reason = Qt::TabFocusReason);

/// Fails for every button and box of a page that the keyboard cannot reach or that tells nothing of itself, for every
/// access key that two of them share, and if the page does not fit into the main window of 1000 x 680, of which menus
/// and tabs take some.
void expectOperableAndFits(const QWidget& page);

/// A control that needs no access key of its own, and why.
using KeyExemption = std::function<QString(const QWidget& control)>;

/// Looks at everything that is visible in a window at once, as an operator does who cannot see it or has no mouse:
/// names, access keys, the way of the Tab key; and whether there is room for each text. One sentence for each thing
/// amiss, which names the widget; empty means all is well.
std::string findingsIn(
    QWidget& window, const KeyExemption& exemption = [](const QWidget&) { return QString(); });

/// The main window over the whole program, with every page made and the debug output on. While the rig lets the clock
/// run, the window handles its events in each millisecond.
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
    void click(const char* name) { find<QAbstractButton>(name).click(); }
    std::string text(const char* name) { return find<QLabel>(name).text().toStdString(); }
    /// Labels and the texts that they are to show.
    void expectTexts(std::initializer_list<std::pair<const char*, const char*>> labels);

    /// Chooses the tab of that caption.
    void showPage(const QString& caption);

    /// The page of the sheet with two rows, saved and selected, and the line for finding a text.
    void showSheetWithEveryLine();
    /// Chooses each tab in turn and calls `look` with its caption.
    void onEachPage(const std::function<void(const std::string& caption)>& look);
    /// Shows the settings screen, and chooses a tab of it if one is named.
    SettingsWindow& openSettings(const char* tab = "");

    void receiveRow() { receive("11/21/26\t2700\t10\t20\t30\t40\r\n"); }

    /// Lets the clock run until the condition holds, for at most so many seconds. Returns whether it does.
    bool runUntil(const std::function<bool()>& reached, double longest = 60.0);

    /// Lets events run, but not the clock, until the condition holds, for at most so many milliseconds of the
    /// computer's time: for what a page draws late. Returns whether it does.
    static bool waitFor(const std::function<bool()>& reached, int patience = 60'000);
    /// The same for so many milliseconds.
    static void pass(int milliseconds);

    std::unique_ptr<MainWindow> window;

private:
    int milliseconds_ = 0;
};

class WindowTest : public testing::Test, public WindowRig {};

/// The settings screen on an open port whose far end answers every item.
class SettingsWindowTest : public WindowTest {
protected:
    SettingsWindowTest() {
        settings.visible = false;
        ports.open();
        com1.written = [this](const QByteArray& item) {
            if (item != "P" && item != "C") {
                com1.input += item + (QByteArray("BTDQI").contains(item) ? '.' : '>');
            }
        };
        state.Ctrlscrn = Operation::SettingsOpen;
        state.Vartemp = QStringLiteral("V");
        status.instrument = InstrumentType::Trx;
        settings.record = {.samplesPerPoint = QStringLiteral("30"),
                           .hoursBeforeBlock = QStringLiteral("24"),
                           .pointsPerBlock = QStringLiteral("60000"),
                           .secondsBetweenPoints = QStringLiteral("3600")};
    }

    template <typename Widget>
    Widget& find(const char* name) const {
        return control<Widget>(screen, name);
    }
    void click(const char* button) const { find<QAbstractButton>(button).click(); }
    std::string text(const char* label) const { return find<QLabel>(label).text().toStdString(); }

    /// What has been written to the instrument since the last call.
    QByteArrayList written() { return std::exchange(com1.writes, {}); }

    /// The frames that can be seen, by object name.
    std::string shownFrames() const {
        std::string names;
        for (const char* name : {"ModesFrame", "TimeAndDateFrame", "ControlBitsFrame", "SamplesFrame",
                                 "TrxCalibrationFrame", "GlowCalibrationFrame"}) {
            names += find<QWidget>(name).isVisible() ? name : "";
        }
        return names;
    }

    SettingsWindow& screen = openSettings();
};

} // namespace orv
