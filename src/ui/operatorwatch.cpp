// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/operatorwatch.h"

#include "base/words.h"
#include "ui/numberbox.h"
#include "ui/tabstrip.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QListWidget>

#include <utility>

namespace orv {

namespace {

constexpr const char* followedMark = "capturedControl"; ///< The property of what is followed already.

bool isFollowed(QObject& object) {
    const bool followed = object.property(followedMark).isValid();
    object.setProperty(followedMark, true);
    return followed;
}

/// The object name, or that of the control of which the widget is a part.
QString nameOf(const QWidget& widget) {
    for (const QWidget* named = &widget; named != nullptr; named = named->parentWidget()) {
        if (!named->objectName().isEmpty() && !named->objectName().startsWith(QLatin1String("qt_"))) {
            return named->objectName();
        }
    }
    return {};
}

/// Whether a button that is pressed down is released by the event, without a click.
bool letsGo(const QEvent& event) {
    return event.type() == QEvent::EnabledChange ||
           (event.type() == QEvent::FocusOut &&
            static_cast<const QFocusEvent&>(event).reason() != Qt::PopupFocusReason);
}

/// The English caption without its access key.
QString plain(const QString& caption) {
    return Screen::english(caption).remove(u'&');
}

} // namespace

OperatorWatch::OperatorWatch(Capture& capture)
    : capture_(capture) {
    constexpr int pause = 1000;
    pause_.setSingleShot(true);
    pause_.setInterval(pause);
    connect(&pause_, &QTimer::timeout, this, [this] { finishTyping(); });
}

bool OperatorWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Polish && watched->isWidgetType()) {
        follow(*static_cast<QWidget*>(watched));
    } else if (letsGo(*event)) {
        const auto* button = qobject_cast<const QAbstractButton*>(watched);
        letGo_ = button != nullptr && button->isDown() ? button : letGo_;
    } else if (event->type() == QEvent::Close && event->spontaneous() && watched->isWidgetType()) {
        const auto* window = static_cast<QWidget*>(watched);
        note(*window, plain(window->windowTitle()), QStringLiteral("closed"));
    }
    return QObject::eventFilter(watched, event);
}

void OperatorWatch::follow(QWidget& widget) {
    if (qobject_cast<QFileDialog*>(widget.window()) != nullptr || isFollowed(widget)) {
        return;
    }
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        // Told before the click, so that what follows from it stands after it. A pointer that leaves the pressed button
        // releases it too, and so does the loss of the focus.
        connect(button, &QAbstractButton::released, this, [this, button] {
            const bool isLetGo = std::exchange(letGo_, nullptr) == button;
            if (!isLetGo && (QGuiApplication::mouseButtons() & Qt::LeftButton) == 0) {
                note(*button, plain(button->text()),
                     !button->isCheckable() ? QString()
                     : button->isChecked()  ? QStringLiteral("on")
                                            : QStringLiteral("off"));
            }
        });
    } else if (auto* box = qobject_cast<QLineEdit*>(&widget)) {
        // Into a chooser's box the program writes too.
        const bool isOfChooser = qobject_cast<QComboBox*>(box->parentWidget()) != nullptr;
        connect(box, isOfChooser ? &QLineEdit::textEdited : &QLineEdit::textChanged, this,
                [this, box] { noteTyping(*box); });
        connect(box, &QLineEdit::editingFinished, this, [this] { finishTyping(); });
    } else if (auto* chooser = qobject_cast<QComboBox*>(&widget)) {
        connect(chooser, &QComboBox::activated, this, [this, chooser] {
            note(*chooser, plain(chooser->accessibleName()), Screen::english(chooser->currentText()));
        });
    } else if (auto* tabs = dynamic_cast<ChoiceTabBar*>(&widget)) {
        subscriptions_.push_back(tabs->tabChosen.subscribe(
            [this, tabs](const QString& caption) { note(*tabs, plain(tabs->accessibleName()), plain(caption)); }));
    } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
        connect(list, &QListWidget::itemClicked, this, [this, list](const QListWidgetItem* item) {
            note(*list, plain(list->accessibleName()), item->text());
        });
    } else if (auto* dialog = qobject_cast<QDialog*>(&widget)) {
        connect(dialog, &QDialog::rejected, this,
                [this, dialog] { note(*dialog, plain(dialog->windowTitle()), QStringLiteral("closed")); });
    }
}

QAction* OperatorWatch::makeAction(QWidget& window, QAnyStringView text, QAnyStringView name,
                                   const std::function<void()>& action) {
    auto* made = new QAction(text.toString(), &window);
    made->setObjectName(name.toString());
    connect(made, &QAction::triggered, this, [this, made, action] {
        finishTyping();
        capture_.did(made->objectName(), plain(made->text()));
        action();
    });
    return made;
}

void OperatorWatch::noteTyping(QLineEdit& box) {
    const auto* number = dynamic_cast<const NumberBox*>(&box);
    if (box.isReadOnly() || (number != nullptr && number->isDrawing())) {
        return;
    }
    if (typing_ != &box) {
        finishTyping();
        typing_ = &box;
    }
    pause_.start();
}

void OperatorWatch::finishTyping() {
    pause_.stop();
    if (QLineEdit* box = typing_) {
        typing_ = nullptr;
        capture_.did(nameOf(*box), plain(box->accessibleName()), box->text());
    }
}

void OperatorWatch::note(const QWidget& control, const QString& caption, const QString& value) {
    finishTyping();
    capture_.did(nameOf(control), caption, value);
}

} // namespace orv
