// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "link/debug.h"
#include "link/directsend.h"
#include "program/pages.h"

#include <QAbstractListModel>
#include <QTimer>
#include <QWidget>

#include <functional>

class QGroupBox;

class QLineEdit;

class QListView;

class QRadioButton;

class QVBoxLayout;

namespace orv {

/// How control characters are made visible.
enum class ControlSymbols {
    Pictures, ///< CR, LF and TAB as ␍, ␊ and ␉, the others likewise. Many fonts do not have them.
    Arrows    ///< CR, LF and TAB as ↵, ↓ and →, the others by their number, \x1B.
};

/// The text with its control characters made visible.
QString visibleText(const QString& text, ControlSymbols symbols);

/// The debug list as a view shows it.
///
/// A busy line brings hundreds of entries a second; the view hears of them together, about 20 times a second. One list
/// has one model, which must not outlive it.
class DebugListModel final : public QAbstractListModel {
public:
    explicit DebugListModel(DebugList& list);
    DebugListModel(const DebugListModel&) = delete;
    DebugListModel& operator=(const DebugListModel&) = delete;
    ~DebugListModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Pictures unless told otherwise.
    void setSymbols(ControlSymbols symbols) { symbols_ = symbols; }

    /// Lets the view hear of everything now.
    void flush();

    /// Called when the last row is to be selected.
    std::function<void()> lastSelected;

private:
    void later();

    DebugList& list_;
    std::deque<QString> shown_; ///< What the view knows of.
    std::size_t waiting_ = 0;   ///< Newest entries of the list that the view does not know of.
    bool selectLast_ = false;
    ControlSymbols symbols_ = ControlSymbols::Pictures;
    QTimer timer_;
};

/// The page "Debug Screen": raw traffic, parsed lines, direct send, the debug output, the newest values.
class DebugPage final : public QWidget {
public:
    /// What the page draws and acts on; everything outlives it.
    struct Parts {
        Session& session;
        ComPorts& ports;
        DebugState& debug;
        PageState& pages;
        DirectSend& directSend;
        /// "Comm 2 Debug Output" was clicked; opens the port or clears the shown's flag again.
        std::function<void(bool ticked)> setComm2Output;
    };

    explicit DebugPage(const Parts& parts, QWidget* parent = nullptr);

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
