// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/capturestore.h"
#include "link/link.h"
#include "sheet/dataline.h"

#include <QSet>

namespace orv {

class Program;

/// Captures a program: what passes on the instrument's line with its waits, what the operator is told and asked, what
/// the program shows of the instrument; see base/captureformat.h. The newest minutes are kept in any case.
///
/// Of the operator's files it tells the names without their folders, and nothing of what stands in them; rows only as
/// the instrument sends them.
class Capture {
public:
    explicit Capture(Program& program);
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    /// Captures into the file from now on; an older one is kept under a dated name. If that fails, now or later, the
    /// operator is told, once, and the program goes on without.
    void begin(const QString& file);

    /// A file that the operator has named: its folder is not told, though it may not be known for one in a text.
    void noteFile(const QString& file);

    /// The operator has used a control: its object name, its caption, and what it is set to, empty for a command.
    void did(const QString& control, const QString& caption, const QString& value = {});

    /// The program has said a line on standard error.
    void said(const QString& line);

    /// "Save Support File...": asks for a name and writes what is in memory, and the state of everything.
    Task<> saveSupportFile();

    /// What is in memory, and the state of everything, as the bytes of a capture file.
    QByteArray supportFile();

private:
    void listenToLine();
    void listenToOperator();
    void followState();
    void tellSheet();
    void tellLate(const QString& late);
    QJsonObject settingsNow() const;
    QJsonObject stateNow() const;
    QString withoutFolders(QString text) const;

    Program& program_;
    CaptureStore store_;
    QString file_;          ///< The file's name; empty: none.
    QSet<QString> folders_; ///< Whose names are left out, beside the usual ones.
    int rows_ = 0;          ///< From the instrument, that were not told yet.
    DataRow newestRow_;
    bool isLate_ = false;
    std::vector<Subscription> subscriptions_;
    std::vector<QPropertyNotifier> notifiers_;
};

/// A command line or a device without the folders of the files that it names.
QString withoutFolder(const QString& argument);

} // namespace orv
