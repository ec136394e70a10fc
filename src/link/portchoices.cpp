// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/portchoices.h"

#include "link/port.h"

#include <algorithm>

namespace orv {

namespace {

/// A device's name before its number, and the number: "ttyUSB10" stands after "ttyUSB9".
struct SortKey {
    QString name;
    qlonglong number = -1;

    explicit SortKey(const QString& device) {
        qsizetype digits = device.size();
        while (digits > 0 && device.at(digits - 1) >= u'0' && device.at(digits - 1) <= u'9') {
            --digits;
        }
        bool isNumber = false;
        const qlonglong value = device.mid(digits).toLongLong(&isNumber);
        name = isNumber ? device.left(digits) : device;
        number = isNumber ? value : -1;
    }

    bool operator<(const SortKey& other) const {
        return name != other.name ? name < other.name : number < other.number;
    }
};

constexpr qsizetype simulatedCount = 2; ///< Of the list's last devices.

QString describe(const ListedPort& port) {
    const QString description = port.description.simplified();
    const QString manufacturer = port.manufacturer.simplified();
    if (description.isEmpty() || description.contains(manufacturer, Qt::CaseInsensitive)) {
        return description.isEmpty() ? manufacturer : description;
    }
    return QStringLiteral("%1, %2").arg(description, manufacturer);
}

Words lockReason(int portNumber, PortUse use) {
    switch (use) {
    case PortUse::Instrument:
        return Words::tr(R"(COM %1 is open. "Close Port" in the menu "Operation" lets you choose another device.)")
            .arg(portNumber);
    case PortUse::DebugOutput:
        return Words::tr("The debug output uses COM %1. Clear \"Comm 2 Debug Output\" on the debug screen to free it.")
            .arg(portNumber);
    case PortUse::None:
        break;
    }
    return {};
}

Words simulationText(const ComPorts& ports) {
    const bool one = isSimulatedDevice(ports.chosenDevice(1).value());
    const bool two = isSimulatedDevice(ports.chosenDevice(2).value());
    const auto on = [](const char* where) { return Words::tr("Simulated instrument on %1").arg(QLatin1String(where)); };
    if (ports.use(1).value() == PortUse::Instrument) {
        return one ? on("COM 1") : Words();
    }
    if (ports.use(2).value() == PortUse::Instrument) {
        return two ? on("COM 2") : Words();
    }
    if (one && two) {
        return Words::tr("Simulated instruments on COM 1 and COM 2");
    }
    return one ? on("COM 1") : two ? on("COM 2") : Words();
}

} // namespace

PortChoices::PortChoices(ComPorts& comPorts, PortList* portList,
                         std::function<Words(const QString& device)> deviceProblem)
    : ports_(comPorts)
    , portList_(portList)
    , deviceProblem_(std::move(deviceProblem)) {
    const ComPorts& ports = ports_;
    for (const int portNumber : {1, 2}) {
        PortChoiceState::Chooser& chooser = shown[portNumber];
        chooser.device.setBinding([&ports, portNumber] { return ports.chosenDevice(portNumber).value(); });
        chooser.lock.setBinding([&ports, portNumber] { return lockReason(portNumber, ports.use(portNumber).value()); });
        QProperty<QString>& known = known_.at(indexOf(portNumber));
        chooser.gone.setBinding([this, &chooser, &known] {
            const QString device = chooser.device;
            return listed_.value() && known.value() == device && !device.isEmpty() && !isListed(device)
                       ? Words::tr("%1 is not there now. Plug it in, or choose another port.").arg(device)
                       : Words();
        });
        // What is open now is the device in force: an older complaint would only mislead.
        notifiers_.push_back(chooser.lock.addNotifier([&chooser] { chooser.problem = QString(); }));
        bindings_.bind(ports.use(portNumber),
                       [this](PortUse use) { nothingChosen_ = nothingChosen_ && use != PortUse::Instrument; });
    }
    shown.simulation.setBinding([&ports] { return simulationText(ports); });
    noAdapter_ = portList_ == nullptr;
    shown.offersSimulation.setBinding([this, &ports] {
        return nothingChosen_.value() && noAdapter_.value() && ports.use(1).value() == PortUse::None &&
               ports.use(2).value() != PortUse::Instrument;
    });
    shown.list = {{.device = QStringLiteral("sim:trx"), .description = Words::tr("simulated scattering meter")},
                  {.device = QStringLiteral("sim:glow"), .description = Words::tr("simulated fluorometer")}};
}

void PortChoices::refresh() {
    if (portList_ == nullptr) {
        return;
    }
    QList<PortChoice> list;
    const std::vector<ListedPort> ports = portList_->ports();
    for (const ListedPort& port : ports) {
        list.append({.device = port.name, .description = describe(port)});
    }
    std::stable_sort(list.begin(), list.end(), [](const PortChoice& one, const PortChoice& other) {
        return SortKey(one.device) < SortKey(other.device);
    });
    list += shown.list.value().last(simulatedCount);
    shown.list = list;
    listed_ = true;
    for (const int portNumber : {1, 2}) {
        if (const QString device = ports_.device(portNumber); isListed(device)) {
            known_.at(indexOf(portNumber)) = device;
        }
    }
    takeAdapter(ports);
}

bool PortChoices::isListed(const QString& device) const {
    return std::ranges::any_of(shown.list.value(),
                               [&device](const PortChoice& choice) { return choice.device == device; });
}

void PortChoices::remember(const std::array<QString, 2>& devices) {
    std::array<QString, 2> wanted = devices;
    const auto leaveOut = [this, &wanted](int portNumber) {
        wanted.at(indexOf(portNumber)) = ports_.device(portNumber);
    };
    for (const int portNumber : {1, 2}) {
        const QString& device = devices.at(indexOf(portNumber));
        if (device.isEmpty() || ports_.use(portNumber).value() != PortUse::None || !deviceProblem_(device).isEmpty()) {
            leaveOut(portNumber);
        }
    }
    // Both are looked at together, for they may have changed places.
    for (const int portNumber : {2, 1}) {
        if (sameDevice(wanted.front(), wanted.back())) {
            leaveOut(portNumber);
        }
    }
    for (const int portNumber : {1, 2}) {
        const auto index = indexOf(portNumber);
        const QString& device = wanted.at(index);
        if (device.isEmpty() || device != devices.at(index)) {
            continue;
        }
        nothingChosen_ = false;
        ports_.setDevice(portNumber, device);
        if (!device.contains(u'/') && !isSimulatedDevice(device)) { // the list has no paths, and not every simulation
            known_.at(index) = device;
        }
    }
}

void PortChoices::noteNothingChosen() {
    nothingChosen_ = true;
}

void PortChoices::noteGiven() {
    given_ = {ports_.device(1), ports_.device(2)};
}

void PortChoices::chooseSimulation() {
    choose(1, shown.list.value().at(shown.list.value().size() - simulatedCount).device);
    given_.front() = ports_.device(1);
}

void PortChoices::takeAdapter(const std::vector<ListedPort>& ports) {
    noAdapter_ = std::ranges::none_of(ports, &ListedPort::isAdapter);
    const auto adapter = std::ranges::find_if(
        ports, [this](const ListedPort& port) { return port.isAdapter && problemOf(1, port.name).isEmpty(); });
    const bool isThere = std::ranges::any_of(
        ports, [this](const ListedPort& port) { return port.isAdapter && sameDevice(port.name, ports_.device(1)); });
    if (adapter != ports.end() && !isThere && nothingChosen_ && ports_.use(1).value() == PortUse::None) {
        ports_.setDevice(1, adapter->name); // nobody has chosen it: once it is gone, another takes its place
        shown[1].problem = QString();
    }
}

void PortChoices::refreshIfChanged() {
    const bool allLocked = !shown[1].lock.value().isEmpty() && !shown[2].lock.value().isEmpty();
    if (!allLocked && portList_ != nullptr && portList_->mayHaveChanged()) {
        refresh();
    }
}

Words PortChoices::problemOf(int portNumber, const QString& device) const {
    const int otherNumber = 3 - portNumber;
    Words problem = deviceProblem_(device);
    if (problem.isEmpty() && sameDevice(device, ports_.device(otherNumber))) {
        problem = Words::tr("COM %1 is set to %2 already. Choose another device here, or change COM %1 first.")
                      .arg(QString::number(otherNumber), ports_.device(otherNumber));
    }
    return problem;
}

void PortChoices::choose(int portNumber, const QString& device) {
    if (ports_.use(portNumber).value() != PortUse::None) {
        return;
    }
    PortChoiceState::Chooser& chooser = shown[portNumber];
    const QString wanted = device.trimmed();
    const QString inForce = ports_.device(portNumber);
    const Words problem = wanted == inForce ? Words() : problemOf(portNumber, wanted);
    if (problem.isEmpty()) {
        if (wanted != inForce) { // leaving the box is no choice
            nothingChosen_ = false;
            given_.at(indexOf(portNumber)).clear();
        }
        ports_.setDevice(portNumber, wanted);
        chooser.problem = QString();
    } else {
        chooser.problem = Words::tr("%1 COM %2 stays %3.").arg(problem, QString::number(portNumber), inForce);
    }
}

} // namespace orv
