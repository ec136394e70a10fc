// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/link.h"
#include "settings/loggersettings.h"

#include <QByteArray>

#include <optional>

namespace orv {

/// The six boxes of the frame "TRX Calibration: Offsets and B calculations" in the order of a device file: `Text10`,
/// `Text8`, `Text9` (clean water offsets of the angles 100, 125, 150), `Text13`, `Text11`, `Text12` (their 1/mC).
using DeviceValues = std::array<QString, 6>;

/// One value a line, as it stands, ended by CR LF.
QByteArray deviceFileBytes(const DeviceValues& values);

/// Reads the first six fields; a comma or a line end ends a field, double quotes around one are taken off. Nothing if
/// there are fewer. A value that holds a comma is one line when saved but two fields when read: that is the format.
std::optional<DeviceValues> readDeviceFile(const QByteArray& bytes);

/// "Load Device File" and "Save Device File" of the TRX frame. Those of the GLOW frame have nothing to do.
class DeviceFiles {
public:
    DeviceFiles(Link& link, SettingsState& settings);

    /// A cancelled dialog, a missing file and one with fewer than six values leave the boxes as they are, silently.
    void loadDeviceFile();

    /// If the file cannot be written, the operator is told. A cancelled dialog does nothing.
    void saveDeviceFile();

private:
    Task<> askAndLoad();
    Task<> askAndSave();

    Link& link_;
    SettingsState& settings_;
    QString suffix_; ///< What the dialog was last set to: only saving sets it.
    QString filter_;
};

} // namespace orv
