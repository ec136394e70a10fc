// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/processes.h"

namespace orv {

/// A program in a folder of its own, on an instrument of its own; perhaps it is started with a signal ignored. Without
/// other variables it has no display.
class ProgramProcess {
public:
    ProgramProcess(const QString& program, const std::function<QStringList(const QString& device)>& arguments,
                   int ignored = 0, const QMap<QString, QString>& variables = {});
    ~ProgramProcess();
    ProgramProcess(const ProgramProcess&) = delete;
    ProgramProcess& operator=(const ProgramProcess&) = delete;

    /// Handles events until it is so. The test fails if the program ends before.
    void waitFor(const std::function<bool()>& reached);
    void waitForRows(int rows);
    void waitForWord(const QByteArray& word);

    void send(int signal) const;
    /// Sends a signal that ends the program. Milliseconds from the signal to the end.
    qint64 end(int signal);

    QByteArray file(const char* name) const;
    bool has(const char* name) const;
    /// In the record file.
    int rowsOnDisk() const;
    /// Rows that have come from the instrument, as the log has them; on a full disk it lacks some. The last one's line
    /// may not have come whole.
    int rowsReceived() const;
    /// The program has ended, and the next start offers every row that came.
    void expectEveryRowOffered() const;

    InstrumentProcess instrument;
    QTemporaryDir folder;
    QProcess process;
    QByteArray output;
};

/// How many rows the next start in the folder offers and then has; 0 if it asks nothing.
int offeredIn(const QString& folder);

/// Whether something took at most a second, or so much longer as programs of this computer share a processor.
bool isWithinASecond(qint64 milliseconds);

} // namespace orv
