// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "program/program.h"
#include "ui/focus.h"
#include "ui/tabstrip.h"

#include <QStackedWidget>
#include <QWidget>

namespace orv {

/// The screen "Logger Settings". Made on first use and kept; shown and hidden with SettingsState::visible. Its controls
/// are the settings record. It does not block the main window.
class SettingsWindow final : public QWidget {
public:
    explicit SettingsWindow(Program& program, QWidget* parent = nullptr);

    /// Chooses a tab as a click on it does: "Modes", "Time and Date", "Control Bits", "Sampling" or "Calibration".
    void chooseTab(const QString& caption);

    /// Shows the screen in front of the others, also when it is open already.
    void present();

    /// Hides every frame.
    void clearforms();

    Signal<> mainWindowWanted; ///< "Close" was pressed: the main window is to come to the front.

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override { return focus_.move(next) || QWidget::focusNextPrevChild(next); }

private:
    QWidget* makePlaceholder();
    QWidget* makeExchange();
    QLayout* makeButtons();
    void makeTabShortcuts();
    void showFrame();

    Program& program_;
    ChoiceTabBar* tabs_;
    QStackedWidget* frames_;
    QWidget* glowFrame_;
    QWidget* noTabHint_ = nullptr;
    QWidget* noTypeHint_;
    Subscription tabChosen_;
    Bindings bindings_;
    FocusKeeper focus_{*this};
};

} // namespace orv
