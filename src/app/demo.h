// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/mainwindow.h"
#include "ui/messageboxes.h"

namespace orv {

/// Performs the main job unattended through the window's own menus and buttons: connects on COM 1, reads the settings,
/// collects 25 rows, stops, saves the sheet and takes a picture of each page. Prints a line a step; files and pictures
/// go to `folder`; a file that is there already stays, and the new one gets a dated name. Returns the exit status: 0,
/// or 1 after printing what failed.
int runDemo(Program& program, MainWindow& window, MessageBoxes& messages, const QString& folder);

} // namespace orv
