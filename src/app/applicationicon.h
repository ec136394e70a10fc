// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace orv {

/// The program's icon in the sizes that windows need. It is part of the program: asking the desktop's icon theme, whose
/// picture is the same, would read its index at every start.
QIcon applicationIcon();

} // namespace orv
