// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/shortcuts.h"

#include "base/words.h"
#include "ui/operatorwatch.h"
#include "ui/tabstrip.h"
#include "ui/widgets.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>

namespace orv {

Shortcuts::Shortcuts(QWidget& window, Program& program, OperatorWatch& watch, const QList<ChoiceTabBar*>& strips)
    : window_(window)
    , watch_(watch) {
    qApp->installEventFilter(this);
    addForButtons(program);
    addForPages(program, strips);
}

QAction* Shortcuts::add(QAnyStringView text, QAnyStringView name, const QKeySequence& keys,
                        const std::function<void()>& action) {
    QAction* shortcut = watch_.makeAction(window_, text, name, [this, action] {
        if (!keyIsHeld_) {
            action();
        }
    });
    shortcut->setShortcut(keys);
    shortcut->setAutoRepeat(false);
    window_.addAction(shortcut);
    return shortcut;
}

void Shortcuts::addForButtons(Program& program) {
    QAction* open = add(Screen::tr("Open"), "OpenShortcut", Qt::CTRL | Qt::Key_O, [&program] { program.openSheet(); });
    QAction* save = add(Screen::tr("Save As"), "SaveAsShortcut", Qt::CTRL | Qt::SHIFT | Qt::Key_S,
                        [&program] { program.saveAs(); });
    QAction* run = add(Screen::tr("Run"), "RunShortcut", Qt::Key_F5, [&program] { program.run(); });
    const CommandState& commands = program.link.session.commands;
    bindEnabled(bindings_, open, commands.canOpenSheet);
    bindEnabled(bindings_, save, commands.canSaveAs);
    bindEnabled(bindings_, run, commands.canRun);
    bindVisible(bindings_, run, commands.runVisible);
    add(Screen::tr("Service mode"), "ServiceMode", Qt::CTRL | Qt::ALT | Qt::Key_H,
        [&program] { program.toggleServiceMode(); });
}

void Shortcuts::addForPages(Program& program, const QList<ChoiceTabBar*>& strips) {
    // The letters belong to the pages: a page has more controls than its tab strips would leave letters.
    int number = 0;
    for (ChoiceTabBar* strip : strips) {
        for (int index = 0; index < strip->count(); ++index) {
            ++number;
            const QKeySequence keys(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + number));
            QAction* choose =
                add(strip->tabText(index), QStringLiteral("ChoosePage%1").arg(number), keys, [strip, index] {
                    if (!strip->isChosen() || index != strip->currentIndex()) {
                        strip->choose(index);
                    }
                });
            if (strip == strips.last()) {
                bindEnabled(bindings_, choose, program.pages.serviceMode);
            }
        }
    }
}

bool Shortcuts::eventFilter(QObject* watched, QEvent* event) {
    // X11 repeats a key that is held down by a release and a press of the same instant. Qt takes them for a repetition
    // only if it sees both at once, which it often does not on a busy computer.
    if (event->type() == QEvent::KeyRelease) {
        const auto* key = static_cast<QKeyEvent*>(event);
        releasedKey_ = key->key();
        releasedAt_ = key->timestamp();
    } else if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        keyIsHeld_ = key->timestamp() != 0 && key->timestamp() == releasedAt_ && key->key() == releasedKey_;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace orv
