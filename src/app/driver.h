// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/mainwindow.h"
#include "ui/messageboxes.h"

#include <QAbstractButton>
#include <QApplication>

#include <coroutine>
#include <functional>
#include <stdexcept>

namespace orv {

/// Drives the program through its window as an operator would. The job is a procedure that waits, so that the program
/// lives meanwhile; all of this class throws Failure with what is missing.
class Driver {
public:
    class Failure final : public std::runtime_error {
    public:
        explicit Failure(const QString& text)
            : std::runtime_error(text.toStdString()) {}
    };

    static constexpr int connectLimit = 20000; ///< Milliseconds.

    Driver(Program& program, MainWindow& window, MessageBoxes& messages);
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    /// Runs the application until the job or the program has ended. Returns the exit status: 0, or 1 after printing
    /// what failed.
    int run(std::function<Task<>()> job);

    /// Goes on once `reached()` holds. Fails after so many milliseconds of the clock that never jumps, and as soon as
    /// the operator is told something or the program asks for a manual connection, which would never be answered.
    Task<> waitFor(QString what, int milliseconds, std::function<bool()> reached);

    /// The same until the settings have been read.
    Task<> waitUntilReady(QString what, int milliseconds = connectLimit);

    /// Real time.
    Task<> pause(int milliseconds);

    /// What the operator has been told last; empty if nothing.
    QString lastMessage() const { return lastMessage_; }
    void forgetMessage() { lastMessage_.clear(); }

    template <typename Object>
    static Object& find(const QObject& window, const QString& name = {}) {
        auto* found = window.findChild<Object*>(name);
        if (found == nullptr) {
            throw Failure(QStringLiteral("the window has no %1").arg(name));
        }
        return *found;
    }

    template <typename Object>
    Object& find(const char* name) const {
        return find<Object>(window_, QLatin1String(name));
    }

    /// Presses a button of the main window.
    void click(const char* name) const { click(find<QAbstractButton>(name)); }
    static void click(QAbstractButton& button);

    /// The dialog of that kind that is on the screen; null if there is none.
    template <typename Dialog>
    static Dialog* dialog() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<Dialog*>(widget);
            if (dialog != nullptr && dialog->isVisible()) {
                return dialog;
            }
        }
        return nullptr;
    }

private:
    struct Turn;

    Task<> perform(std::function<Task<>()> job);
    void goOn();

    Program& program_;
    MainWindow& window_;
    QObject context_;
    QString lastMessage_;
    Subscription told_;
    std::coroutine_handle<> waiting_;
    bool ended_ = false;
    int status_ = 1;
};

} // namespace orv
