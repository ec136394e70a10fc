// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settings.h"
#include "sheet/download.h"
#include "sheet/folderplace.h"
#include "sheet/run.h"
#include "sheet/runrecovery.h"

namespace orv {

/// The data sheet, its files, and what fills it.
struct Sheet {
    Sheet(Link& link, Settings& settings)
        : rows(link.session, link.ports, data, shown)
        , files(link, data, rows, shown)
        , recordFile(link.session.clock, link.session.fileNames.record, &place)
        , recovery(link, rows, files, recordFile)
        , run(link, settings.shown, rows, files, recordFile)
        , download(link, settings, rows, files)
        , saved(files.saved.subscribe([this] { recordFile.rowsSaved(); }))
        , discarded(data.rowsRemoved.subscribe([this] { recordFile.rowsDiscarded(); }))
        , identified(link.connection.identified.subscribe([this] { layOutHeaderRow(); })) {}

    /// Writes the header row of the identified instrument's type; nothing for an unknown type. Rows of another type
    /// that are not saved are saved first.
    void layOutHeaderRow() {
        if (isOfAnotherType()) {
            files.saveAside();
        }
        rows.layOutOnOpening();
    }

    /// The sheet is of another type than the instrument: one that was loaded, or that another instrument has filled.
    bool isOfAnotherType() const {
        const RowLayout layout = rows.connectedLayout();
        return layout != RowLayout::Unknown && layout != data.type().layout();
    }

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
    Subscription identified;
};

} // namespace orv
