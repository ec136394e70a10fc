// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/portsbox.h"

#include "base/words.h"
#include "ui/widgets.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
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
    case Qt::ToolTipRole:
        return described(choice);
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

void PortChooser::setMarked(const QString& why) {
    if (warning_ == nullptr && !why.isEmpty()) {
        warning_ =
            lineEdit()->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
    }
    if (warning_ != nullptr) {
        warning_->setVisible(!why.isEmpty());
        warning_->setToolTip(why);
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

namespace {

constexpr int refreshInterval = 2000; ///< Milliseconds.
constexpr int firstRefresh = 100;     ///< The same, after the box has been shown: listing would delay the window.

} // namespace

ConnectButton::ConnectButton(Program& program, PortChooser& chooser)
    : program_(program)
    , chooser_(chooser)
    , portNumber_(chooser.portNumber()) {
    setObjectName(QStringLiteral("ConnectButton%1").arg(portNumber_));
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, [this] { connectOrDisconnect(); });
    const Connection::PortCommand& command = program.link.connection.portCommand(portNumber_);
    bindings_.bind(command.canConnect, [this](bool) { follow(); });
    bindings_.bind(command.canClose, [this](bool) { follow(); });
    bindings_.bind(program.link.portChoices.shown[portNumber_].problem, [this](const Words&) { follow(); });
    bindings_.bind(chooser.typing(), [this](bool) { follow(); });
    bindings_.bind(program.link.session.commands.activity, [this](Activity activity) {
        if (activity == Activity::Collecting || activity == Activity::Downloading) {
            disarm();
        }
    });
}

/// Why the text of the chooser is not in force; empty if it is, or while it is being mended.
QString ConnectButton::refusal() const {
    return chooser_.typing() ? QString() : program_.link.portChoices.shown[portNumber_].problem.value().shown();
}

void ConnectButton::connectOrDisconnect() {
    if (disconnects_) {
        program_.closePort();
        return;
    }
    chooser_.finish(); // an access key leaves the focus in the box
    if (refusal().isEmpty()) {
        program_.connectPort(portNumber_);
    }
}

void ConnectButton::follow() {
    const Connection::PortCommand& command = program_.link.connection.portCommand(portNumber_);
    const bool disconnects = command.canClose;
    if (disconnects && !disconnects_) {
        disarm();
    }
    disconnects_ = disconnects;
    // One access key for both captions.
    const QString caption = disconnects ? (portNumber_ == 1 ? Screen::tr("Dis&connect") : Screen::tr("Disco&nnect"))
                                        : (portNumber_ == 1 ? Screen::tr("&Connect") : Screen::tr("Co&nnect"));
    setText(caption);
    setAccessibleName(Screen::tr("%1 COM %2").arg(QString(caption).remove(u'&'), QString::number(portNumber_)));
    const QString problem = refusal();
    setToolTip(disconnects ? Screen::tr("Closes COM %1. Rows on the sheet stay.").arg(portNumber_)
               : !problem.isEmpty()
                   ? problem
                   : Screen::tr("Wakes the instrument on COM %1 and reads its settings.").arg(portNumber_));
    setEnabled(disconnects || (command.canConnect && problem.isEmpty()));
    setEnterPresses(enterPresses_);
}

void ConnectButton::setEnterPresses(bool on) {
    enterPresses_ = on;
    setDefault(on && !disconnects_ && isEnabled());
}

PortsBox::PortsBox(Program& program)
    : QGroupBox(Screen::tr("Ports"))
    , program_(program)
    , choices_(program.link.portChoices) {
    setObjectName(QStringLiteral("PortsBox"));
    auto* layout = new QGridLayout(this);
    addPort(*layout, 1);
    addPort(*layout, 2);
    layout->setColumnStretch(1, 1);
    addNextStep(*layout);
    noteFocus(choosers_[0]);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { noteFocus(now); });
    refreshTimer_.setObjectName(QStringLiteral("PortRefresh"));
    refreshTimer_.setInterval(refreshInterval);
    refreshTimer_.setTimerType(Qt::VeryCoarseTimer);
    connect(&refreshTimer_, &QTimer::timeout, this, [this] { choices_.refreshIfChanged(); });
}

PortsBox::~PortsBox() {
    qApp->disconnect(this); // a control loses the focus when it goes, after this object's own part
}

void PortsBox::addPort(QGridLayout& layout, int portNumber) {
    const int row = 2 * (portNumber - 1);
    const auto index = static_cast<std::size_t>(portNumber - 1);
    auto* chooser = new PortChooser(choices_, portNumber);
    auto* button = new ConnectButton(program_, *chooser);
    choosers_.at(index) = chooser;
    buttons_.at(index) = button;
    // As wide with either caption, so that nothing moves.
    for (const QString& caption : {Screen::tr("&Connect"), Screen::tr("Dis&connect")}) {
        button->setMinimumWidth(std::max(button->minimumWidth(), QPushButton(caption).sizeHint().width()));
    }
    auto* problem = makeValueLabel(QStringLiteral("PortProblem%1").arg(portNumber),
                                   Screen::tr("What is wrong with the device for COM %1").arg(portNumber));
    problem->setTextInteractionFlags(Qt::NoTextInteraction); // a click there must not finish what is typed
    problem->setWordWrap(true);
    // One long word in it must not make the window wider.
    problem->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    layout.addWidget(makeCaption(Screen::tr("COM &%1").arg(portNumber), chooser), row, 0);
    layout.addWidget(chooser, row, 1);
    layout.addWidget(button, row, 2);
    layout.addWidget(problem, row + 1, 1, 1, 2, Qt::AlignTop);
    const PortChoiceState::Chooser& shown = choices_.shown[portNumber];
    const auto showProblem = [problem, chooser, &shown](const Words&) {
        const QString text = (shown.problem.value().isEmpty() ? shown.gone : shown.problem).value().shown();
        chooser->setMarked(text);
        problem->setText(text);
        problem->setToolTip(text);
        problem->setVisible(!text.isEmpty());
    };
    bindings_.bind(shown.problem, showProblem);
    bindings_.bind(shown.gone, showProblem);
}

void PortsBox::addNextStep(QGridLayout& layout) {
    constexpr int row = 4;
    auto* step = new SteadyLabel(makeValueLabel("NextStep", Screen::tr("Next step")), 2);
    auto* simulation = makeButton(
        Screen::tr("&Try a Simulated Instrument"), "TrySimulation", [this] { program_.trySimulation(); },
        Screen::tr("Chooses a simulated scattering meter for COM 1 and connects: everything can be tried without an "
                   "instrument."));
    auto* line = new QHBoxLayout;
    layout.addLayout(line, row, 0, 1, 3);
    line->addWidget(step, 1);
    line->addWidget(simulation);
    bindText(bindings_, step, program_.nextStep.text);
    bindVisible(bindings_, simulation, choices_.shown.offersSimulation);
    bindEnabled(bindings_, simulation, program_.link.connection.portCommand(1).canConnect);
}

void PortsBox::noteFocus(QWidget* control) {
    for (std::size_t index = 0; index < choosers_.size(); ++index) {
        const PortChooser* chooser = choosers_.at(index);
        if (control == chooser || control == chooser->lineEdit() || control == buttons_.at(index)) {
            entered_ = index;
        }
    }
    for (std::size_t index = 0; index < buttons_.size(); ++index) {
        buttons_.at(index)->setEnterPresses(index == entered_);
    }
}

void PortsBox::enter() {
    if (buttons_.at(entered_)->isDefault()) {
        buttons_.at(entered_)->click();
    }
}

void PortsBox::showEvent(QShowEvent* event) {
    refreshTimer_.start();
    QTimer::singleShot(firstRefresh, this, [this] { choices_.refreshIfChanged(); });
    QGroupBox::showEvent(event);
}

void PortsBox::hideEvent(QHideEvent* event) {
    refreshTimer_.stop();
    QGroupBox::hideEvent(event);
}

} // namespace orv
