// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"

#include <QString>

#include <array>
#include <deque>

namespace orv {

class ComPorts;

/// The list of the debug screen: the newest 10000 entries, oldest first.
class DebugList {
public:
    static constexpr std::size_t maximumEntries = 10000;

    /// Adds an entry at the end; the oldest goes when the list is full.
    void append(const QString& entry);

    /// Selects the last entry, so that it scrolls into view.
    void selectLast();

    const std::deque<QString>& entries() const { return entries_; }

    Signal<bool> appended; ///< Tells whether the oldest entry went.
    Signal<> lastSelected;

private:
    std::deque<QString> entries_;
};

/// What the debug screen shows and what its controls ask for.
struct DebugState {
    QProperty<bool> comm2Output{false}; ///< `Check1`, "Comm 2 Debug Output".
    QProperty<bool> rawBuffer{false};   ///< `Option1`, "Raw Buffer".
    QProperty<bool> showParsing{false}; ///< `Option2`, "Show Parsing".
    QProperty<bool> debugFrameVisible{false};
    QProperty<bool> turbidityFrameVisible{false};
    QProperty<bool> fluorometerFrameVisible{false};
    QProperty<bool> transmissometerFrameVisible{false};
    QProperty<bool> outputFrameVisible{false}; ///< The scattering meter's output frame.

    // The newest row's values, as the sheet shows them; empty before the first.
    QProperty<QString> fluorometerOutput;
    std::array<QProperty<QString>, 3> scatteringOutputs; ///< Angles 100, 125, 150.
    QProperty<QString> scatteringReference;              ///< "Ref Det".

    DebugList list;
};

/// "Direct Send": lets a technician send the instrument any text by hand.
class DirectSend {
public:
    explicit DirectSend(ComPorts& ports);

    /// Writes the text exactly as typed, without a terminator; characters that the line does not know (beyond Latin-1)
    /// go out as "?". On a closed port it is only announced.
    void send(const QString& text);

private:
    ComPorts& ports_;
};

} // namespace orv
