// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/portsbox.h"

#include "base/words.h"
#include "ui/widgets.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>

#include <algorithm>

namespace orv {

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
        markBox(chooser->lineEdit(), text);
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
    line->addWidget(simulation, 0, Qt::AlignTop);
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
