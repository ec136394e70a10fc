// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/filedescriptor.h"
#include "simulator/simulatedinstrument.h"

#include <QString>

namespace orv {

/// Serves a simulated instrument on a pseudo-terminal (Linux).
///
/// A pseudo-terminal has no DTR. In its place, a host that has opened it and then discards its input wakes the
/// instrument; so does every further discarding until the host has sent something to the awake instrument. After that,
/// discarding only discards. When the last host has closed it the instrument sleeps; it may be opened again.
///
/// Like a serial adapter it hands over what has arrived every 8 ms, not character by character; with `baud` 0 at once.
class PtyServer {
public:
    /// `clock` must live longer than the server.
    PtyServer(const SimulatorOptions& options, const Clock& clock);

    /// Makes the pseudo-terminal. Returns the empty text, or why there is none.
    QString open();

    /// The path that a host opens, such as "/dev/pts/3".
    QString path() const { return path_; }

    /// Waits until there is something to do, at most so many milliseconds or until a signal, and does it. Returns
    /// whether there still is a line: false when the instrument's fault has unplugged it, or it was never made.
    bool serve(int maximumMilliseconds);

    /// How many characters have been taken from hosts and given to them so far.
    qint64 taken() const { return taken_; }
    qint64 given() const { return given_; }

private:
    int waitingTime(int maximumMilliseconds);
    void configureLine();
    void followHosts();
    void hostCameOrWent(bool came);
    void takeFromHost();
    void hostDiscardedInput();
    void giveToHost();
    void vanish();

    const Clock& clock_;
    const bool isPaced_; ///< The instrument sends at a pace, not everything at once.
    SimulatedInstrument instrument_;
    QString path_;
    FileDescriptor master_;
    FileDescriptor slave_;   ///< held open so that the line keeps its configuration and reports no hang-up
    FileDescriptor watch_;   ///< tells when hosts open and close the line
    int hosts_ = 0;          ///< how many have it open
    bool heardHost_ = false; ///< the awake instrument has been sent something
    QByteArray rest_;        ///< what the line had no room for
    qint64 handOverAt_ = 0;  ///< monotonic milliseconds; before this nothing more is handed to the host
    qint64 taken_ = 0;
    qint64 given_ = 0;
};

} // namespace orv
