// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

#include <QWidget>

namespace orv {

class ChoiceTabBar;
class OperatorWatch;

/// The keys of the main window that are no menu item's: open, save, run, service mode, and a number for each page.
///
/// Each does what its button or tab does, whichever page is shown, and only while that could be pressed; a key that is
/// held down does it once. They are actions of the window, with object names of their own.
class Shortcuts final : public QObject {
public:
    /// `strips`: of the operating pages and of the service pages, in this order. All live as long as the window.
    Shortcuts(QWidget& window, Program& program, OperatorWatch& watch, const QList<ChoiceTabBar*>& strips);

protected:
    /// Sees all keys of the program.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* add(QAnyStringView text, QAnyStringView name, const QKeySequence& keys,
                 const std::function<void()>& action);
    void addForButtons(Program& program);
    void addForPages(Program& program, const QList<ChoiceTabBar*>& strips);

    QWidget& window_;
    OperatorWatch& watch_;
    int releasedKey_ = 0;
    quint64 releasedAt_ = 0;
    bool keyIsHeld_ = false; ///< The newest press of a key is the repeating of one that is held down.
    Bindings bindings_;
};

} // namespace orv
