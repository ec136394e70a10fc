// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

#include <algorithm>

namespace orv {

namespace {

class WindowWalk {
public:
    WindowWalk(QWidget& window, const KeyExemption& exemption)
        : window_(window)
        , exemption_(exemption) {
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            if (widget->window() == &window && widget->isVisible() && !isPartOfAControl(*widget)) {
                widgets_.append(widget);
            }
        }
        checkNames();
        checkRoom();
        checkKeys();
        checkTabOrder();
    }

    const QStringList& findings() const { return findings_; }

private:
    static bool isOneOf(const QWidget& widget, std::initializer_list<const char*> classes) {
        return std::any_of(classes.begin(), classes.end(),
                           [&widget](const char* name) { return widget.inherits(name); });
    }

    /// What Qt's own controls are made of: scroll bars, headers, the buttons in a box or at the end of a tab strip.
    static bool isPartOfAControl(const QWidget& widget) {
        bool part = isOneOf(widget, {"QScrollBar", "QHeaderView"});
        for (const QWidget* parent = widget.parentWidget(); parent != nullptr && !part;
             parent = parent->parentWidget()) {
            part = isOneOf(*parent, {"QLineEdit", "QComboBox", "QTabBar", "QMenuBar", "QAbstractItemView",
                                     "QAbstractSpinBox", "QPlainTextEdit", "QTextEdit"});
        }
        return part;
    }

    /// Takes what is typed or chosen.
    static bool isField(const QWidget& widget) {
        return isOneOf(widget, {"QLineEdit", "QComboBox", "QAbstractSpinBox", "QSlider", "QAbstractItemView",
                                "QTextEdit", "QPlainTextEdit"});
    }

    static bool isReadOnly(const QWidget& widget) {
        const QVariant readOnly = widget.property("readOnly");
        return readOnly.isValid() && readOnly.toBool();
    }

    static bool takesTab(const QWidget& widget) {
        return widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
               widget.focusProxy() == nullptr;
    }

    /// A label that shows a value, as opposed to a caption: it has a name in the program or can be copied.
    static bool isValueLabel(const QWidget& widget) {
        const auto* label = qobject_cast<const QLabel*>(&widget);
        return label != nullptr && label->buddy() == nullptr && !label->objectName().startsWith(QLatin1String("qt_")) &&
               (!label->objectName().isEmpty() ||
                (label->textInteractionFlags() & Qt::TextSelectableByMouse) == Qt::TextSelectableByMouse);
    }

    static QString describe(const QWidget& widget) {
        QString text = QString::fromLatin1(widget.metaObject()->className());
        const QVariant caption = widget.property("text");
        text += widget.objectName().isEmpty() ? QStringLiteral(" without object name")
                                              : QStringLiteral(" \"%1\"").arg(widget.objectName());
        if (caption.isValid() && !caption.toString().isEmpty()) {
            text += QStringLiteral(" (%1)").arg(caption.toString());
        }
        for (const QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
            if (!parent->objectName().isEmpty() && !parent->objectName().startsWith(QLatin1String("qt_"))) {
                return text + QStringLiteral(" in ") + parent->objectName();
            }
        }
        return text;
    }

    void find(const QWidget& widget, const QString& what) { findings_.append(describe(widget) + u' ' + what); }

    static QString accessibleName(QWidget& widget) {
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
        return face == nullptr ? QString() : face->text(QAccessible::Name).remove(u'&').trimmed();
    }

    void checkNames() {
        for (QWidget* widget : widgets_) {
            if (isValueLabel(*widget)) {
                // A label is called what it shows, which tells nothing of what the value is.
                const auto* label = qobject_cast<const QLabel*>(widget);
                const bool words = label->text().contains(u' ') && label->accessibleName().isEmpty();
                if (label->accessibleName().isEmpty() && !words) {
                    find(*widget, QStringLiteral("shows a value and has no accessible name"));
                } else if (!accessibleName(*widget).contains(label->text().trimmed())) {
                    find(*widget, QStringLiteral("hides its value behind its accessible name"));
                }
                continue;
            }
            const bool control = isField(*widget) || isOneOf(*widget, {"QAbstractButton", "QTabBar", "QProgressBar"}) ||
                                 (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
            if (control && widget->focusProxy() == nullptr && accessibleName(*widget).isEmpty()) {
                find(*widget, QStringLiteral("has no accessible name"));
            }
        }
    }

    /// Whether a text is shown whole. A label that gives way by its policy may be cut: it has its text elsewhere too.
    void checkRoom() {
        for (QWidget* widget : widgets_) {
            int wanted = widget->sizeHint().width();
            if (const auto* label = qobject_cast<const QLabel*>(widget)) {
                if (label->wordWrap() && label->heightForWidth(label->width()) > label->height()) {
                    find(*widget, QStringLiteral("is too low for its text"));
                }
                if (label->wordWrap() || label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) {
                    continue;
                }
                wanted = label->minimumWidth() == label->maximumWidth()
                             ? label->fontMetrics().horizontalAdvance(label->text())
                             : wanted;
            } else if (const auto* box = qobject_cast<const QGroupBox*>(widget)) {
                wanted = box->fontMetrics().horizontalAdvance(box->title());
            } else if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
                wanted = line->isReadOnly() ? line->fontMetrics().horizontalAdvance(line->text()) : 0;
            } else if (!isOneOf(*widget, {"QAbstractButton", "QTabBar"})) {
                continue;
            }
            if (wanted > widget->width()) {
                find(*widget, QStringLiteral("is %1 wide and needs %2").arg(widget->width()).arg(wanted));
            }
        }
    }

    void takeKey(const QString& text, const QString& who) { takeKey(QKeySequence::mnemonic(text), who); }

    void takeKey(const QKeySequence& sequence, const QString& who) {
        const QString key = sequence.toString();
        if (key.isEmpty()) {
            return;
        }
        if (keys_.contains(key)) {
            findings_.append(who + QStringLiteral(" has the access key %1 of ").arg(key) + keys_.value(key));
        }
        keys_.insert(key, who);
    }

    void checkMenu(const QList<QAction*>& actions, const QString& menu) {
        QMap<QString, QString> keys;
        for (QAction* action : actions) {
            if (action->isSeparator() || !action->isVisible()) {
                continue;
            }
            const QString who = QStringLiteral("The item \"%1\" of %2").arg(action->text(), menu);
            const QString key = QKeySequence::mnemonic(action->text()).toString();
            if (key.isEmpty()) {
                findings_.append(who + QStringLiteral(" has no access key"));
            } else if (keys.contains(key)) {
                findings_.append(who + QStringLiteral(" has the access key %1 of ").arg(key) + keys.value(key));
            }
            keys.insert(key, who);
            if (action->menu() != nullptr) {
                checkMenu(action->menu()->actions(), QStringLiteral("the menu ") + action->text());
            }
        }
    }

    void checkKeys() {
        if (auto* mainWindow = qobject_cast<QMainWindow*>(&window_)) {
            checkMenu(mainWindow->menuBar()->actions(), QStringLiteral("the menu bar"));
            for (const QAction* action : mainWindow->menuBar()->actions()) {
                takeKey(action->isVisible() ? action->text() : QString(),
                        QStringLiteral("The menu \"%1\"").arg(action->text()));
            }
        }
        QList<const QWidget*> labelled;
        for (QWidget* widget : widgets_) {
            if (const auto* label = qobject_cast<const QLabel*>(widget);
                label != nullptr && label->buddy() != nullptr) {
                takeKey(label->text(), describe(*widget));
                if (!QKeySequence::mnemonic(label->text()).isEmpty()) {
                    labelled.append(label->buddy());
                }
            } else if (const auto* box = qobject_cast<const QGroupBox*>(widget)) {
                takeKey(box->title(), describe(*widget));
            } else if (const auto* strip = qobject_cast<const QTabBar*>(widget)) {
                for (int index = 0; index < strip->count(); ++index) {
                    takeKey(strip->tabText(index), QStringLiteral("The tab ") + strip->tabText(index));
                }
            } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
                // The access key is in the text or set beside it.
                takeKey(button->shortcut(), describe(*widget));
                if (button->shortcut().isEmpty() && exemption_(*widget).isEmpty()) {
                    find(*widget, QStringLiteral("has no access key"));
                }
            }
        }
        for (const QWidget* widget : widgets_) {
            if (isField(*widget) && !isReadOnly(*widget) && !labelled.contains(widget) &&
                exemption_(*widget).isEmpty()) {
                find(*widget, QStringLiteral("has no caption with an access key"));
            }
        }
    }

    /// Where a widget stands in its window.
    QRect placeOf(const QWidget& widget) const { return {widget.mapTo(&window_, QPoint(0, 0)), widget.size()}; }

    /// The two that stand side by side in the innermost widget that holds both; null if one holds the other.
    static std::pair<const QWidget*, const QWidget*> besideEachOther(const QWidget* one, const QWidget* other) {
        for (const QWidget* left = one; left != nullptr; left = left->parentWidget()) {
            for (const QWidget* right = other; right != nullptr; right = right->parentWidget()) {
                if (left == right) {
                    return {nullptr, nullptr};
                }
                if (left->parentWidget() == right->parentWidget()) {
                    return {left, right};
                }
            }
        }
        return {nullptr, nullptr};
    }

    /// From left to right and from top to bottom, or down one column and on to the next at its right.
    bool isBefore(const QWidget& one, const QWidget& next) const {
        const QRect here = placeOf(one);
        const QRect there = placeOf(next);
        if (there.left() > here.right() || there.top() > here.bottom()) {
            return true;
        }
        return there.top() <= here.bottom() && there.bottom() >= here.top() && there.left() >= here.left();
    }

    void checkTabOrder() {
        QList<QWidget*> way;
        for (QWidget* widget = window_.nextInFocusChain(); widget != &window_; widget = widget->nextInFocusChain()) {
            if (widgets_.contains(widget) && takesTab(*widget)) {
                way.append(widget);
            }
        }
        for (QWidget* widget : widgets_) {
            if (takesTab(*widget) && way.count(widget) != 1) {
                find(*widget, QStringLiteral("is visited %1 times by the Tab key").arg(way.count(widget)));
            }
            const bool button = qobject_cast<QAbstractButton*>(widget) != nullptr;
            if ((isField(*widget) || button) && widget->isEnabled() && !takesTab(*widget) && !hasTabInGroup(*widget)) {
                find(*widget, QStringLiteral("is not reached by the Tab key"));
            }
        }
        for (qsizetype i = 1; i < way.size(); ++i) {
            const auto [before, after] = besideEachOther(way[i - 1], way[i]);
            if (before != nullptr && !isBefore(*before, *after)) {
                find(*way[i], QStringLiteral("is reached by the Tab key only after ") + describe(*way[i - 1]) +
                                  QStringLiteral(", which stands behind it"));
            }
        }
    }

    /// Of option buttons that exclude each other one is enough; the arrow keys go on from there.
    bool hasTabInGroup(const QWidget& widget) const {
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        if (button == nullptr || !button->autoExclusive()) {
            return false;
        }
        const QWidget* parent = widget.parentWidget();
        const QList<QAbstractButton*> others = parent->findChildren<QAbstractButton*>();
        return std::any_of(others.begin(), others.end(), [](const QAbstractButton* other) {
            return other->autoExclusive() && other->isVisible() && takesTab(*other);
        });
    }

    QWidget& window_;
    const KeyExemption& exemption_;
    QList<QWidget*> widgets_;
    QMap<QString, QString> keys_;
    QStringList findings_;
};

} // namespace

std::string findingsIn(QWidget& window, const KeyExemption& exemption) {
    return WindowWalk(window, exemption).findings().join(u'\n').toStdString();
}

} // namespace orv
