// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/words.h"
#include "program/program.h"

#include <QDir>
#include <QFileInfo>

namespace orv {

void Program::offerUnendedRun() {
    link.procedures.startBeside(Words::tr("Start"), [this] { return sheet.recovery.offer(); });
}

void Program::takePlace() {
    sheet.place.take();
    useOwnFiles();
    const FileNames& names = link.session.fileNames;
    if (sheet.place.cannotLock()) {
        link.session.messages.show(operatorWarning(
            Words::tr("No lock file can be made in this folder, perhaps because the disk is full: %1\n\n"
                      "So that no other program's files are written to, this program works without log "
                      "and record file. Make room on the disk, or choose another folder, and start the "
                      "program again.")
                .arg(QDir::currentPath())));
    }
    if (sheet.place.otherProgram().isEmpty()) {
        return;
    }
    const Words files = sheet.place.number() == 0
                            ? Words::tr("This program works without such files. Start it in another folder, so "
                                        "that log and record file are kept.")
                            : Words::tr("This program writes %1 and %2 instead.").arg(names.log, names.record);
    link.session.messages.show(operatorWarning(
        Words::tr("Another ORV Host Program uses this folder (%1): %2\n\nIts log and record file are left "
                  "alone. %3")
            .arg(sheet.place.otherProgram(), QDir::currentPath(), files)));
}

/// The files are named after the place; none are if there is none.
void Program::useOwnFiles() {
    FileNames& names = link.session.fileNames;
    names = FileNames();
    if (sheet.place.number() == 0) {
        sheet.recordFile.setPath(QString());
    } else {
        names.log = FolderPlace::nameIn(sheet.place.number(), names.log);
        names.record = FolderPlace::nameIn(sheet.place.number(), names.record);
        sheet.recordFile.setPath(names.record);
        sheet.recovery.takeOverFromFreePlaces(sheet.place.number());
    }
}

void Program::openLog() {
    if (sheet.place.number() == 0) {
        return;
    }
    const QString& name = link.session.fileNames.log;
    const Words reason = link.poll.log.open(name);
    if (reason.isEmpty()) {
        return;
    }
    link.session.messages.show(operatorWarning(Words::tr("The log file %1 cannot be written in this folder: %2.\n\nThe "
                                                         "program works without it. Start it in a folder where you may "
                                                         "write files, so that log and record file are kept.")
                                                   .arg(name, reason)));
}

} // namespace orv
