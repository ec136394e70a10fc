// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settings.h"
#include "sheet/download.h"
#include "sheet/folderplace.h"
#include "sheet/run.h"
#include "sheet/runrecovery.h"

#include <optional>

namespace orv {

/// The data sheet, its files, and what fills it.
struct Sheet {
    Sheet(Link& theLink, Settings& settings)
        : link(theLink)
        , rows(link.session, link.ports, data, shown)
        , files(link, data, rows, shown)
        , recordFile(link.session.clock, link.session.fileNames.record, &place)
        , recovery(link, rows, files, recordFile)
        , run(link, settings.shown, rows, files, recordFile)
        , download(link, settings, rows, files)
        , saved(files.saved.subscribe([this](bool wholly) { noteSaved(wholly); }))
        , discarded(data.rowsRemoved.subscribe([this] { recordFile.rowsDiscarded(); }))
        , savedAnew(shown.saved.addNotifier([this] { shown.rowsSinceSaved = false; }))
        , coming(data.rowAppended.subscribe([this] { noteRow(); }))
        , identified(link.connection.identified.subscribe([this] {
            files.forgetToldFailure();
            layOutHeaderRow();
        })) {}

    /// Makes the sheet ready for rows of the connected instrument, at the beginning of a run or a download. Returns
    /// whether they may come; if not, the operator has been told why.
    bool prepare();

    /// Every row on the sheet is whole in a file that something else has written: they count as saved, with all their
    /// columns, and go from the sheet. Not while a row is being taken.
    void handOver();

    /// "Clear All". Until the next row comes or a sheet is opened bringBack() undoes it.
    void clearAll();

    /// Brings back what "Clear All" took, whole: rows, type and header row, whether they are saved, and, if not, that
    /// the next start offers them should the program die. Nothing happens if there is nothing to bring back.
    void bringBack();

    Link& link;
    DataSheet data;
    SheetState shown;
    SheetRows rows;
    SheetFiles files;
    FolderPlace place;
    RecordFile recordFile;
    RunRecovery recovery;
    Run run;
    Download download;
    Subscription saved;
    Subscription discarded;
    QPropertyNotifier savedAnew;
    Subscription coming;
    Subscription identified;

private:
    /// What "Clear All" took.
    struct Cleared {
        DataSheet::Contents contents;
        RecordFile::Standing recorded;
        bool unsaved = false;
        int rowsInFile = 0;
        QString file;
        SavedRows saved;
        bool rowsSinceSaved = false;
        bool hasOtherType = false;
    };

    void noteRow();
    bool isOfAnotherType() const;
    bool layOutHeaderRow();
    void noteSaved(bool wholly);

    std::optional<Cleared> cleared_;
    bool missingColumnTold_ = false; ///< Since the run or the download began.
};

} // namespace orv
