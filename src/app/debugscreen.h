// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/debuglistmodel.h"
#include "app/pagepanel.h"
#include "link/directsend.h"
#include "session/binding.h"

#include <QWidget>

#include <functional>

class QGroupBox;
class QLineEdit;
class QListView;
class QRadioButton;
class QVBoxLayout;

namespace orv {

/// The page "Debug Screen": raw traffic, parsed lines, direct send, the debug output, the newest values.
class DebugScreen final : public QWidget {
public:
    /// What the page draws and acts on; everything outlives it.
    struct Parts {
        Session& session;
        ComPorts& ports;
        DebugPanel& debug;
        PagePanel& pages;
        DirectSend& directSend;
        /// "Comm 2 Debug Output" was clicked; opens the port or clears the panel's flag again.
        std::function<void(bool ticked)> setComm2Output;
    };

    explicit DebugScreen(const Parts& parts, QWidget* parent = nullptr);

private:
    QGroupBox* makeDebugFrame();
    QWidget* makeOutputControls();
    QListView* makeList();
    void makeHint(QListView* list);
    QWidget* makeDirectSend();
    QWidget* makeStatusRow();
    QVBoxLayout* makeSensorFrames();
    QGroupBox* makeSensorFrame(const QString& title, const QString& name, const QProperty<bool>& visible);
    void addOutput(QGroupBox* frame, const QString& caption, const QString& accessibleName,
                   const QProperty<QString>& value);
    QRadioButton* makeOption(const QString& caption, const QString& name, const QString& toolTip);
    void showInServiceMode(QWidget* control);
    void send();

    Parts p_;
    DebugListModel model_;
    QLineEdit* text_ = nullptr;
    Bindings bindings_;
};

} // namespace orv
