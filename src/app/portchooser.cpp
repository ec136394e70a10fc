// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/portchooser.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>

namespace orv {

namespace {

/// Longer names can be typed nowhere; the system's own are far shorter.
constexpr int longestName = 1000;

/// Asks for no more width than the list has, so that a long description ends in dots instead of at the edge.
class FittingDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
        return view == nullptr ? size : QSize(std::min(size.width(), view->viewport()->width()), size.height());
    }
};

} // namespace

PortChooser::PortChooser(PortChoices& choices, int portNumber)
    : choices_(choices)
    , portNumber_(portNumber) {
    const QString name = QStringLiteral("Device behind COM %1").arg(portNumber);
    setObjectName(QStringLiteral("PortChooser%1").arg(portNumber));
    setAccessibleName(name);
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr); // it would finish a name that means another device
    lineEdit()->setMaxLength(longestName);
    lineEdit()->setAccessibleName(name);
    lineEdit()->installEventFilter(this);
    keepReadable();
    setModel(&model_);
    view()->setItemDelegate(new FittingDelegate(this));
    view()->setTextElideMode(Qt::ElideRight);
    constexpr int usualNameLength = 14;
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(usualNameLength);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    connect(this, &QComboBox::activated, this, [this](int row) { choose(model_.device(row)); });
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { choose(lineEdit()->text()); });
    const PortChoicePanel& panel = choices.panel;
    bindings_.bind(panel.list, [this](const QList<PortChoice>& list) { setChoices(list); });
    bindings_.bind(panel[portNumber].device, [this](const QString&) { showDevice(); });
    bindings_.bind(panel[portNumber].lock, [this](const QString& reason) { setLock(reason); });
}

void PortChooser::showPopup() {
    choices_.refresh();
    QComboBox::showPopup();
}

void PortChooser::choose(const QString& device) {
    const PortChoicePanel::Chooser& chooser = choices_.panel[portNumber_];
    choices_.choose(portNumber_, device);
    // A name that was refused stays for mending, beside what is wrong with it.
    if (chooser.problem.value().isEmpty()) {
        showDevice();
    }
}

void PortChooser::showDevice() {
    const QString device = choices_.panel[portNumber_].device;
    const QSignalBlocker blocker(this);
    setCurrentIndex(model_.rowOf(device));
    if (lineEdit()->text() != device) {
        setEditText(device);
        lineEdit()->setCursorPosition(0); // of a long path, its beginning
    }
    showToolTip();
}

void PortChooser::setChoices(const QList<PortChoice>& list) {
    // The box follows its list by itself and would put an entry in the place of what is typed.
    const QSignalBlocker blocker(this);
    QLineEdit* edit = lineEdit();
    const QString text = edit->text();
    const int cursor = edit->cursorPosition();
    const int selected = edit->selectionStart();
    const auto selectedLength = static_cast<int>(edit->selectedText().size());
    model_.setChoices(list);
    setCurrentIndex(model_.rowOf(choices_.panel[portNumber_].device));
    if (edit->text() != text) {
        edit->setText(text);
        if (selected < 0) {
            edit->setCursorPosition(cursor);
        } else if (cursor == selected) {
            edit->setSelection(selected + selectedLength, -selectedLength);
        } else {
            edit->setSelection(selected, selectedLength);
        }
    }
    showToolTip();
}

void PortChooser::setLock(const QString& reason) {
    if (!reason.isEmpty()) {
        hidePopup();
        showDevice();
    }
    setEnabled(reason.isEmpty());
    showToolTip();
}

void PortChooser::showToolTip() {
    const PortChoicePanel& panel = choices_.panel;
    const QString lock = panel[portNumber_].lock;
    const QString device = panel[portNumber_].device;
    const int row = model_.rowOf(device);
    const QString text = QStringLiteral("%1.\n%2").arg(
        row < 0 ? device : described(panel.list.value().at(row)),
        lock.isEmpty() ? QStringLiteral("Choose a port or type the name of a device.") : lock);
    for (QWidget* widget : {static_cast<QWidget*>(this), static_cast<QWidget*>(lineEdit())}) {
        widget->setToolTip(text);
        widget->setAccessibleDescription(text);
    }
}

void PortChooser::keepReadable() {
    // Which device is connected must be as easy to read as which one is not.
    const QColor text = palette().color(QPalette::Active, QPalette::Text);
    QPalette own = lineEdit()->palette();
    own.setColor(QPalette::Disabled, QPalette::Text, text);
    lineEdit()->setPalette(own);
}

void PortChooser::changeEvent(QEvent* event) {
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && lineEdit() != nullptr) {
        keepReadable();
    }
}

bool PortChooser::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lineEdit() && event->type() == QEvent::KeyPress) {
        const bool isEscape = static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape;
        if (isEscape && lineEdit()->text() != choices_.panel[portNumber_].device.value()) {
            choose(choices_.panel[portNumber_].device);
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void PortChooser::wheelEvent(QWheelEvent* event) {
    event->ignore(); // scrolling past must not change the device
}

} // namespace orv
