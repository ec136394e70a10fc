// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/portchooser.h"

#include "base/words.h"
#include "ui/tooltips.h"
#include "ui/widgets.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace orv {

QString described(const PortChoice& choice) {
    return choice.description.isEmpty() ? choice.device
                                        : QStringLiteral("%1 - %2").arg(choice.device, choice.description.shown());
}

void PortChoiceModel::setChoices(const QList<PortChoice>& wanted) {
    const auto removeRow = [this](int row) {
        beginRemoveRows({}, row, row);
        choices_.removeAt(row);
        endRemoveRows();
    };
    for (int row = rowCount() - 1; row >= 0; --row) {
        const bool stays = std::any_of(wanted.begin(), wanted.end(), [this, row](const PortChoice& choice) {
            return choice.device == choices_.at(row).device;
        });
        if (!stays) {
            removeRow(row);
        }
    }
    for (int row = 0; row < wanted.size(); ++row) {
        if (row < rowCount() && choices_.at(row).device == wanted.at(row).device) {
            if (choices_.at(row) != wanted.at(row)) {
                choices_[row] = wanted.at(row);
                Q_EMIT dataChanged(index(row), index(row));
            }
        } else {
            beginInsertRows({}, row, row);
            choices_.insert(row, wanted.at(row));
            endInsertRows();
        }
    }
    for (int row = rowCount() - 1; row >= wanted.size(); --row) {
        removeRow(row);
    }
}

int PortChoiceModel::rowOf(const QString& device) const {
    const auto found = std::find_if(choices_.begin(), choices_.end(),
                                    [&device](const PortChoice& choice) { return choice.device == device; });
    return found == choices_.end() ? -1 : static_cast<int>(found - choices_.begin());
}

int PortChoiceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(choices_.size());
}

QVariant PortChoiceModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const PortChoice& choice = choices_.at(index.row());
    switch (role) {
    case Qt::EditRole:
        return choice.device;
    case Qt::DisplayRole:
        return described(choice);
    case Qt::ToolTipRole:
        return ToolTips::inLines(described(choice));
    default:
        return {};
    }
}

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
    const QString name = Screen::tr("Device behind COM %1").arg(portNumber);
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
    takeSelections(this);
    view()->setItemDelegate(new FittingDelegate(this));
    view()->setTextElideMode(Qt::ElideRight);
    constexpr int usualNameLength = 14;
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(usualNameLength);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    connect(this, &QComboBox::activated, this, [this](int row) { choose(model_.device(row)); });
    connect(this, &QComboBox::currentIndexChanged, this, [this](int row) {
        if (row >= 0) {
            choose(model_.device(row));
        }
    });
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { choose(lineEdit()->text()); });
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { typing_ = true; });
    connect(lineEdit(), &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!signalsBlocked() && !typing_ && !lineEdit()->hasFocus()) {
            choose(text); // an assistive program has set it, and nobody will finish it
        }
    });
    const PortChoiceState& shown = choices.shown;
    bindings_.bind(shown.list, [this](const QList<PortChoice>& list) { setChoices(list); });
    bindings_.bind(shown[portNumber].device, [this](const QString&) {
        if (!typing_) { // else an adapter that has been plugged in would take what is being typed
            showDevice();
        }
    });
    bindings_.bind(shown[portNumber].lock, [this](const Words& reason) { setLock(reason.shown()); });
}

void PortChooser::showPopup() {
    choices_.refresh();
    QComboBox::showPopup();
}

void PortChooser::choose(const QString& device) {
    const PortChoiceState::Chooser& chooser = choices_.shown[portNumber_];
    typing_ = false;
    choices_.choose(portNumber_, device);
    // A name that was refused stays for mending, beside what is wrong with it.
    if (chooser.problem.value().isEmpty()) {
        showDevice();
    }
}

void PortChooser::finish() {
    if (typing_) {
        choose(lineEdit()->text());
    }
}

void PortChooser::showDevice() {
    const QString device = choices_.shown[portNumber_].device;
    const QSignalBlocker blocker(this);
    typing_ = false;
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
    setCurrentIndex(model_.rowOf(choices_.shown[portNumber_].device));
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
    const PortChoiceState& shown = choices_.shown;
    const QString lock = shown[portNumber_].lock.value().shown();
    const QString device = shown[portNumber_].device;
    const int row = model_.rowOf(device);
    const QString text = QStringLiteral("%1.\n%2").arg(
        row < 0 ? device : described(shown.list.value().at(row)),
        lock.isEmpty() ? Screen::tr("Choose a port or type the name of a device.") : lock);
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

/// Esc takes back what was typed; the Enter key that finishes it is not to do anything else. Returns whether the key
/// has done all that it was to do.
bool PortChooser::takeKey(int key) {
    const QString inForce = choices_.shown[portNumber_].device;
    if (lineEdit()->text() == inForce) {
        return false;
    }
    finishing_ = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (key == Qt::Key_Escape) {
        choose(inForce);
        return true;
    }
    return false;
}

void PortChooser::keyPressEvent(QKeyEvent* event) {
    if (takeKey(event->key())) {
        return;
    }
    QComboBox::keyPressEvent(event);
    if (std::exchange(finishing_, false)) {
        event->accept();
    }
}

bool PortChooser::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lineEdit() && event->type() == QEvent::KeyPress &&
        takeKey(static_cast<const QKeyEvent*>(event)->key())) {
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

void PortChooser::wheelEvent(QWheelEvent* event) {
    event->ignore(); // scrolling past must not change the device
}

} // namespace orv
