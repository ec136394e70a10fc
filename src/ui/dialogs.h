// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "link/manualconnection.h"
#include "settings/loggersettings.h"
#include "ui/focus.h"

#include <QDialog>
#include <QLabel>
#include <QScrollArea>
#include <QWidget>

namespace orv {

/// The About dialog: the program's name and version.
class AboutDialog final : public QDialog {
public:
    explicit AboutDialog(QWidget* parent);
};

/// The "Manual Connection" dialog. It does not block the main window.
class ManualConnectionDialog final : public QDialog {
public:
    ManualConnectionDialog(ManualConnection& manual, QWidget* parent);

    /// Esc and the frame's close button.
    void reject() override;

protected:
    bool focusNextPrevChild(bool next) override { return focus_.move(next) || QDialog::focusNextPrevChild(next); }

private:
    ManualConnection& manual_;
    Bindings bindings_;
    FocusKeeper focus_{*this};
};

/// The dialog "Processing": how far a retrieval, a sending or a download has come. It does not block other windows;
/// closing it only hides it. "Abort" cannot be pressed: the text beside it says what stops what goes on.
class ProgressDialog final : public QDialog {
public:
    ProgressDialog(ProgressState& shown, QWidget* parent);

    void reject() override;

private:
    ProgressState& shown_;
    Bindings bindings_;
};

/// The screen "In Plain English": what the instrument will do under the settings with which it was opened.
class PlainEnglishWindow final : public QWidget {
public:
    explicit PlainEnglishWindow(QWidget* parent = nullptr);

    /// Describes the settings and shows the screen. `note` stands above, if there is one.
    void open(const LoggerSettings& record, const QString& note);

private:
    QWidget* makeText(const LoggerSettings& record) const;

    QLabel* note_;
    QScrollArea* area_;
};

} // namespace orv
