// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "settings/modes.h"
#include "settings/settingssender.h"
#include "ui/dialogs.h"
#include "ui/widgets.h"

#include <QStackedWidget>
#include <QWidget>

#include <functional>

namespace orv {

/// The screen "Logger Settings". Made on first use and kept; shown and hidden with SettingsState::visible. Its controls
/// are the settings record. It does not block the main window.
class SettingsWindow final : public QWidget {
public:
    /// What the screen draws and acts through; everything outlives it.
    struct Parts {
        Session& session;
        SettingsState& shown;
        SettingsCommands& commands;
        Modes& modes;
        SettingsActions& actions;
        std::function<void()> showMainWindow; ///< Brings the main window to the front; may be empty.
    };

    explicit SettingsWindow(const Parts& parts, QWidget* parent = nullptr);

    /// Chooses a tab as a click on it does: "Modes", "Time and Date", "Control Bits", "Sampling" or "Calibration".
    void chooseTab(const QString& caption);

    /// Shows the screen in front of the others, also when it is open already.
    void present();

    /// Hides every frame.
    void clearforms();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makePages();
    QLayout* makeButtons();
    void makeTabShortcuts();
    void showFrame(const QString& caption);
    QWidget* calibrationFrame();
    QWidget* makeHint(const QString& name, const QString& text) const;

    Parts p_;
    ChoiceTabBar* tabs_;
    QStackedWidget* frames_;
    PlainEnglishWindow* plainEnglish_;
    QWidget* noTabHint_ = nullptr;
    QWidget* noTypeHint_ = nullptr;
    QWidget* modesFrame_ = nullptr;
    QWidget* timeFrame_ = nullptr;
    QWidget* bitsFrame_ = nullptr;
    QWidget* samplesFrame_ = nullptr;
    QWidget* trxFrame_ = nullptr;
    QWidget* glowFrame_ = nullptr;
    QString chosen_; ///< Caption of the chosen tab; empty before the first choice.
    Subscription tabChosen_;
    Bindings bindings_;
};

} // namespace orv
