// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orv {

/// Operation codes: what the program waits for. The status timer dispatches on them, compared for exact equality;
/// with any other value it does nothing but poll.
namespace opstate {
inline constexpr float idle = 0.0F;            ///< Idle or offline.
inline constexpr float collectionSetUp = 1.0F; ///< A real-time collection is set up, or has ended.
inline constexpr float settingsOpen = 2.0F;    ///< The computer's time and date are shown on the settings screen.
inline constexpr float collecting = 11.0F;     ///< Every reply line goes to `profilemode`.
inline constexpr float ready = 23.0F;          ///< Every reply line goes to `getprefs`.
inline constexpr float importing = 28.0F;      ///< Stored data goes to the sheet.
inline constexpr float savingText = 38.0F;     ///< Stored data goes to a text file.
inline constexpr float clockCheck = 48.0F;     ///< The clock reply is awaited.
inline constexpr float identified = 64.0F;     ///< The wake-up has told type and firmware.
inline constexpr float shutterReset = 999.0F;  ///< A shutter reset is under way.
} // namespace opstate

/// The program-wide variables. One instance lives for the whole run; `fixit` gives the values named "reset".
struct SessionState {
    float Ctrlscrn = opstate::idle; ///< The operation code. Reset: 0.
    QString Rtn;                    ///< The last complete reply line, without its end. Reset: "wakeup!!!".
    qint16 Tmr = 0;                 ///< 1: the next poll first empties the receive buffer. Reset: 1.
    QString Vartemp;                ///< The type letter after identification, "V" or "F". Kept by a reset.
    quint8 trouble = 0;             ///< 1: service mode, the debug list is fed. Kept by a reset.
    quint8 portstatus = 0;          ///< 1: the operator has opened a port; 2: closed or offline. Reset: 2.
    quint8 gatherstart = 0;         ///< 1: a collection runs and the poll watches for prompts. Reset: 0.
    quint8 Gatherstop = 0;          ///< Prompt seen meanwhile: 1 for ">", 3 for "!". Reset: 0.
    qint16 plc = 0;                 ///< Data rows on the sheet. Kept by a reset.
    qint16 Timeout = 0;             ///< Calls of `getprefs` since the start of the program. Kept by a reset.
    quint8 Seeking = 0;             ///< 1: a manual connection waits without limit. Reset: 0.
    quint8 Portused = 0;            ///< COM port number in use, 1 or 2; 0 before the first. Kept by a reset.

    bool isTrx() const { return Vartemp == QLatin1String("V") || Vartemp == QLatin1String("v"); }
    bool isGlow() const { return Vartemp == QLatin1String("F") || Vartemp == QLatin1String("f"); }
};

} // namespace orv
