// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "link/comports.h"
#include "link/port.h"

#include <QList>
#include <QProperty>

#include <array>
#include <functional>
#include <vector>

namespace orv {

/// A device that is offered for COM 1 and COM 2.
struct PortChoice {
    QString device;
    Words description; ///< In plain words; may be empty.

    bool operator==(const PortChoice&) const = default;
};

/// What the choosers of COM 1 and COM 2 show.
struct PortChoiceState {
    struct Chooser {
        QProperty<QString> device; ///< The device in force.
        QProperty<Words> problem;  ///< Why what was chosen last is not in force; empty: it is.
        QProperty<Words> lock;     ///< Why the device cannot be changed now; empty: it can.
        /// Says that the device has been a port of this computer and is none now; empty otherwise.
        QProperty<Words> gone;
    };

    /// The system's ports in the order of their names and numbers, then the simulated instruments.
    QProperty<QList<PortChoice>> list;
    std::array<Chooser, 2> choosers;
    /// Says that what is connected is simulated; while nothing is connected, which ports would be. Empty: none.
    QProperty<Words> simulation;
    /// Nobody has chosen a device, no adapter is plugged in and nothing is connected: a simulated instrument can be
    /// tried.
    QProperty<bool> offersSimulation;

    Chooser& operator[](int portNumber) { return choosers.at(static_cast<std::size_t>(portNumber - 1)); }
    const Chooser& operator[](int portNumber) const { return choosers.at(static_cast<std::size_t>(portNumber - 1)); }
};

/// Offers the devices that can be COM 1 and COM 2 and takes the operator's choices. A choice lasts until the
/// program ends. As long as nobody has chosen, an adapter that is plugged in becomes COM 1.
class PortChoices {
public:
    /// `portList` is null where this computer has no ports. `deviceProblem` says what is wrong with a device name; the
    /// empty text if nothing is.
    PortChoices(ComPorts& ports, PortList* portList, std::function<Words(const QString& device)> deviceProblem);

    /// Brings the list up to date.
    void refresh();
    /// The same, but lists the ports only if they may have changed and there is a port to choose one for.
    void refreshIfChanged();

    /// The operator's choice, a device of the list or any text; blanks around it do not count. If it cannot be
    /// taken, the chooser's `problem` says why and the device stays what it was. A port in use keeps its device.
    void choose(int portNumber, const QString& device);

    /// Makes the devices that were connected in earlier sessions those of COM 1 and COM 2, each if it can be; empty:
    /// there is none. A port of this computer that is not there now stays, and is shown as gone.
    void remember(const std::array<QString, 2>& devices);
    /// Nobody has chosen a device, neither now nor before: what the ports have are mere defaults.
    void noteNothingChosen();
    /// The command line has chosen the devices, which are no choice for later sessions.
    void noteGiven();
    /// The same as choosing a simulated instrument for COM 1, but for this session alone; see `offersSimulation`.
    void chooseSimulation();
    /// Whether the port's device is not one for later sessions.
    bool isForNowOnly(int portNumber) const { return given_.at(indexOf(portNumber)) == ports_.device(portNumber); }

    PortChoiceState shown;

private:
    static std::size_t indexOf(int portNumber) { return static_cast<std::size_t>(portNumber - 1); }
    bool isListed(const QString& device) const;
    void takeAdapter(const std::vector<ListedPort>& ports);
    Words problemOf(int portNumber, const QString& device) const;

    ComPorts& ports_;
    PortList* portList_;
    std::function<Words(const QString& device)> deviceProblem_;
    QProperty<bool> nothingChosen_{false};
    std::array<QProperty<QString>, 2> known_; ///< A device that has been a port of this computer, for each port.
    std::array<QString, 2> given_;            ///< A device that is not the operator's choice, for each port.
    QProperty<bool> listed_{false};           ///< The computer's ports are known.
    QProperty<bool> noAdapter_{false};        ///< The ports have been listed, and no adapter was among them.
    std::vector<QPropertyNotifier> notifiers_;
    Bindings bindings_;
};

} // namespace orv
