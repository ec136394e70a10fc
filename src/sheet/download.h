// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "settings/settings.h"
#include "sheet/sheetfiles.h"

#include <QFile>

namespace orv {

/// Fetches the data in the instrument's memory, into a text file or into the sheet. The dump is asked for with "O",
/// opens with ">O", brings one line for each record and ends with "EOF"; "0" ends it too. "65535" is erased memory.
class Download {
public:
    Download(Link& link, Settings& settings, SheetRows& rows, SheetFiles& files);

    /// "Download Stored Data: Save as Text". A cancelled dialog sends and writes nothing, nor does an instrument
    /// that did not say what it is; the end of the connection closes the dialog.
    void saveAsText();

    /// The same into the file of that name, without a question and in place of what is there.
    void saveAsText(const QString& name);

    /// "Download Stored Data: View with Host Program".
    void vwhp();

    /// A record has been taken: its number, and its row as it stands in the file or on the sheet.
    Signal<int, const DataRow&> taken;

    /// Records of this download, or the last, that could not be read.
    int unreadRecords() const { return unread_; }
    /// The whole dump of this download, or the last, has come.
    bool isWhole() const { return whole_; }

    /// Take the reply to the text file, to the sheet. Called at every tick of a download, with an empty reply if none
    /// has come.
    void savefiletxt(const QString& reply);
    void importtofg1(const QString& reply);

    /// What becomes of the sheet when a download is cut off.
    enum class SheetThen { Stays, Goes, IsOffered };

    /// A download is cut off (reset, close, failure, quit): what arrived is kept, the file closed, and the operator
    /// told that it is incomplete. If the sheet goes with the program, he is not sent there; if the next start offers
    /// its rows, he is told so. Nothing happens without a download.
    void endIncomplete(SheetThen then = SheetThen::Stays);

private:
    /// Nowhere: taking has stopped, but the instrument is still sending; until its dump ends (or the link does) no
    /// command may be given, since what is left of this dump would be taken for the answer.
    enum class Target { None, TextFile, Sheet, Nowhere };

    Task<> askAndSave();
    void saveTo(const QString& name);
    void begin(Target target, Operation operation, const Words& status);
    bool takeReply(const QString& reply, const Words& progressLabel, DataRow& row);
    void showProgress(const Words& label);
    void finish();
    /// What is to be said of a download that is whole.
    Words outcome() const;
    void end();
    void dropTheRest();
    void closeTarget();
    Words bringToDisk();
    void tellIncomplete(Target target, SheetThen then = SheetThen::Stays);
    void tellFailure(const Words& reason, const Words& state, const Words& nextStep,
                     const QString& nextWithoutWindow = {});

    Link& link_;
    Settings& settings_;
    SheetRows& rows_;
    SheetFiles& files_;
    Target target_ = Target::None;
    QFile file_;
    int records_ = 0; ///< Data lines taken since ">O".
    int saved_ = 0;   ///< Records in the file.
    int unread_ = 0;
    qint64 bytes_ = 0;
    qint64 lastData_ = 0; ///< Monotonic milliseconds.
    bool whole_ = false;
    bool stallTold_ = false;
    bool savedOnTheWay_ = false; ///< The sheet became long and was saved and cleared.
    Words status_;               ///< What the status says while data comes.
};

} // namespace orv
