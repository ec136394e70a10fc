// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace orv {

/// Spreads a number over all 64 bits; equal numbers give equal results on every platform.
constexpr quint64 mixed(quint64 number) {
    number += 0x9E3779B97F4A7C15U;
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31U);
}

} // namespace orv
