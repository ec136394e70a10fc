// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/plotdata.h"

#include <vector>

namespace orv {

/// Which part of the curves is seen.
///
/// While rows come in, the newest are followed; what was loaded is seen whole; who zooms or drags keeps what was chosen
/// until the rows are replaced or the next run begins.
class PlotView {
public:
    enum class Mode {
        All,    ///< Every point, also those that come.
        Newest, ///< The points of the newest rows, and what lies between them.
        Own,    ///< What the operator zoomed or dragged to.
    };

    /// Followed are so many points at most: about two minutes of a usual run.
    static constexpr int followedPoints = 1000;

    struct Range {
        double lower = 0.0;
        double upper = 0.0;

        bool operator==(const Range&) const = default;
    };

    Mode mode() const { return mode_; }
    /// Sets the mode; the values' range is laid out anew.
    void setMode(Mode mode);

    /// Rows begin or cease to come from the instrument.
    void setReceiving(bool receiving);

    /// What became of the points; Relaid means, too, that they may lie along another axis.
    void noteChange(PlotData::Change change);

    /// The part of the axis to show, for a mode other than Own. A margin is left at either side.
    Range places(const PlotData& data) const;

    /// The values to show: those of the shown curves between `places`, with a margin. The same as before while the
    /// values fit and fill it well, so that the picture stands still. 0..1 where there are none.
    Range values(const PlotData& data, const std::vector<bool>& shown, Range places);

private:
    Mode mode_ = Mode::All;
    bool receiving_ = false;
    bool keepValues_ = false;
    Range values_;
};

} // namespace orv
