// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/port.h"

namespace orv {

/// The ports of a computer that the test plugs together.
class FakePortList final : public PortList {
public:
    std::vector<ListedPort> ports() override {
        ++listings;
        return plugged;
    }
    bool mayHaveChanged() override { return changed; }

    std::vector<ListedPort> plugged;
    bool changed = true;
    int listings = 0;
};

} // namespace orv
