// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/calibrationpanel.h"
#include "session/session.h"

#include <QByteArray>
#include <QDateTime>

namespace orv {

/// The calibration report of the instrument shown, from the worksheet as it stands on the screen: date and time, the
/// reference values of the selected colour, the instrument, the table of the worksheet. Lines end CR LF; some have a
/// CR more. The "Stdev" line repeats the "Air" row: there are no separate standard deviations.
QByteArray reportBytes(const CalibrationPanel& panel, const QDateTime& moment);

/// "Save Cal Info".
class Report {
public:
    Report(Session& session, CalibrationPanel& panel, OperatorQuestions& questions);

    /// Writes the report to the file that the operator names. A cancelled dialog writes nothing; if the file cannot be
    /// written, what was there stays and the operator is told why.
    void save();

private:
    Session& session_;
    CalibrationPanel& panel_;
    OperatorQuestions& questions_;
};

} // namespace orv
