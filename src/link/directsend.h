// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"

namespace orv {

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

/// Leave exactly one sensor frame of the debug screen visible; the frame "Tidelane Debug Screen" goes too. The
/// scattering meter's frame stays as it is. Only the fluorometer's announces itself.
class DebugFrames {
public:
    DebugFrames(ComPorts& ports, DebugState& debug);

    void showFluorometer();
    void showTransmissometer();
    void showTurbidity();

private:
    void showOnly(const QProperty<bool>& frame);

    ComPorts& ports_;
    DebugState& debug_;
};

} // namespace orv
