// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "program/program.h"
#include "ui/widgets.h"

#include <QAbstractListModel>
#include <QTimer>
#include <QWidget>

class QFormLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QListView;
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
/// A busy line brings hundreds of entries a second; the view hears of them together, about 20 times a second. The list
/// outlives the model.
class DebugListModel final : public QAbstractListModel {
public:
    explicit DebugListModel(DebugList& list);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Pictures unless told otherwise.
    void setSymbols(ControlSymbols symbols) { symbols_ = symbols; }

    /// Lets the view hear of everything now.
    void flush();

    /// The last row is to be selected.
    Signal<> lastSelected;

private:
    void later();

    DebugList& list_;
    std::deque<QString> shown_; ///< What the view knows of.
    std::size_t waiting_ = 0;   ///< Newest entries of the list that the view does not know of.
    bool selectLast_ = false;
    ControlSymbols symbols_ = ControlSymbols::Pictures;
    QTimer timer_;
    std::vector<Subscription> subscriptions_;
};

/// The page "Debug Screen": raw traffic, parsed lines, direct send, the debug output, the newest values.
class DebugPage final : public QWidget {
public:
    explicit DebugPage(Program& program);

private:
    QGroupBox* makeDebugFrame();
    void addOutputControls(QHBoxLayout* layout);
    QListView* makeList();
    void makeHint(QListView* list);
    void addDirectSend(QHBoxLayout* layout);
    QGroupBox* makeStatus();
    void addSensorFrames(QVBoxLayout* frames);
    QFormLayout* addSensorFrame(QVBoxLayout* frames, QAnyStringView title, QAnyStringView name,
                                const QProperty<bool>& visible);
    QLabel* addOutput(QFormLayout* form, const QString& caption, const Words& accessibleName);
    void showInServiceMode(QWidget* control);

    Program& program_;
    DebugState& debug_;
    const Session& session_;
    DebugListModel model_;
    Subscription lastSelected_;
    LateTexts numbers_;
    Bindings bindings_;
};

} // namespace orv
