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

} // namespace orv
