// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The plotting library's header wants two keywords that the program's own code does without.
#include <QtGlobal>
#define signals Q_SIGNALS
#define foreach(variable, container) for (variable : container) // NOLINT(bugprone-macro-parentheses): a declaration
#include <qcustomplot.h>
#undef foreach
#undef signals
