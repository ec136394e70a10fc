// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/tellings.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

namespace orv {

namespace {

const Telling tellings[] = {
    {"lost", "The connection on ... was lost.", "Check the cable, then connect again."},
    {"lost", "COM 1 ... was lost.", "Check the cable, then press Connect."},
    {"silent", "No answer from COM 1 ... within 5 s.", "Check power and cable, press Quit, connect again."},
    {"silent", "No answer for 10 s.", "Reset connects again."},
    {"stalled", "No data for 10 s.", "Reset stops the download."},
    {"late", "No row for ... s.", "Reset ends the run."},
    {"unknown", "The instrument has not said what it is.", "Press Reset to ask again."},
    {"unsent", "Error Sending Prefs. Error Code 1", ""},
    {"unsent", "Not sent whole: the instrument did not answer.", "Connect or press \"Retrieve Settings\""},
    {"unsent", "Not sent whole: the connection ended.", "Connect to see what it has."},
    {"differs", "Sent at ..., but the instrument has not all of it", "press \"Apply Settings\" again."},
    {"partly", "Read at ..., but not all", "Press \"Retrieve Settings\"."},
    {"unread", "... could not be read; ", "log.ohp"},
    {"early", "The instrument ended the run after ... rows;", "log.ohp"},
    {"unread", "Unable to read clock. Error #2", ""},
    {"unread", "The clock was sent, but could not be read back.", "Press \"Display Logger Time/Date\""},
    {"incomplete", "The download is incomplete", "download it again."},
    {"record", "The record file Orvtemp.tmp cannot be written", "Save the sheet when the run has ended."},
    {"save", "The sheet could not be saved as ", "Choose another folder or make room on the disk, then save again."},
    {"report", "... could not be saved: ", "Choose another folder or make room on the disk, then save again."},
    {"open", "... could not be opened.", "The sheet is as it was."},
    {"file", "The stored data cannot be written to ", "download it again."},
    {"shutter", "The shutter reset was interrupted before", "The instrument still has its own settings."},
    {"shutter", "The shutter reset was interrupted.", "When it is connected again, compare them with the settings"},
    {"restore", "The settings from before could not be sent back.", "send them with \"Apply Settings\"."},
    {"misread", "The settings that the instrument gave", "correct them and press \"Apply Settings\"."},
    {"untyped", "The rows of the last run are on the sheet.", "has everything."},
    {"place", "No lock file can be made in this folder", "Make room on the disk, or choose another folder"},
    {"log", "The log file log.ohp cannot be written", "Start it in a folder where you may write files"},
    {"log", "The log file log.ohp can no longer be written", "make room on the disk"},
    // Of a command.
    {"lost", "The connection on ... was lost.", "Look at the cable and the adapter."},
    {"lost", "The line was lost.", "kept."},
    {"early", "The instrument ended the run early.", "kept."},
    {"silent", "The instrument fell silent.", "kept."},
    {"silent", "The instrument on ... does not answer.", "then try again."},
    {"unknown", "The instrument on ... did not say what it is.", "Try again."},
    {"unread", "... could not be read", "log.ohp has what came."},
    {"unread", "... not there and ... missing.", "log.ohp has what came."},
    {"unread", "The instrument answered with a date or a time that cannot be read", "\"orv clock\" asks again."},
    {"incomplete", "The download was ended before", "download it again."},
    {"record", "The record file Orvtemp.tmp cannot be written", "Make room on the disk."},
    {"file", "rows.csv could not be written: ", "Make room or choose another folder."},
    {"file", "rows.csv could not be written: ", "Choose another name or folder."},
    {"kept", "The last run in this folder did not end", "Its rows are offered again at the next start."},
};

/// Of a session in which all is well.
const char* const usual[] = {
    "[A-Z][A-Za-z]*( [A-Za-z]+)*",
    "Connecting\\.\\.\\.",
    "Sending \\.\\.\\.",
    "Sent, and not read back yet",
    "Sent and read back at .*",
    "Read from the instrument at .*",
    "The instrument's clock was set .*",
    "Saved \\d+ records? to memory\\.txt",
    "Waiting for the instrument\\. \"Quit\" in the dialog ends it\\.",
    "No answer from COM 1",
    // The next step.
    "(Choose a port|Plug in an adapter, or choose a port) and press Connect\\.",
    "Waking the instrument on .*",
    "Switch the instrument's power on\\.",
    "(Reading|Setting|Sending) the (instrument's )?(settings|clock)\\.",
    "Moving the shutter\\.",
    "Collecting\\. Reset ends the run\\.",
    "Downloading\\. Reset stops it; what has arrived is kept\\.",
    "A question waits for your answer\\.",
    "The dialog Manual Connection says how to go on\\.",
    "(\\d+ of )?\\d+ rows?, not saved\\. Save As is on the page Output: Spread Sheet\\.",
    "Press Run to collect\\. Reset ends a run\\.",
    "The sheet has rows of another type of instrument\\. Clear All is on the page Output: Spread Sheet\\.",
    // Of a command.
    "\\d+ rows? (was|were) collected\\.",
    "\\d+ of \\d+ records are in rows\\.csv\\.",
};

bool begins(const QString& sentence, const QString& pattern) {
    return QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption)
        .match(sentence, 0, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption)
        .hasMatch();
}

} // namespace

std::span<const Telling> allTellings() {
    return tellings;
}

bool mayBeToldAgain(const QString& sentence) {
    return sentence.startsWith(QLatin1String("Error Sending Prefs")); // of a shutter reset, which sends twice
}

const Telling* tellingOf(const QString& sentence) {
    bool isKnown = false;
    for (const Telling& telling : tellings) {
        const QString pattern = QRegularExpression::escape(QLatin1String(telling.words));
        const bool begun = begins(sentence, QString(pattern).replace(QLatin1String("\\.\\.\\."), QLatin1String(".*")));
        if (begun && sentence.contains(QLatin1String(telling.advice))) {
            return &telling;
        }
        isKnown = isKnown || begun;
    }
    EXPECT_FALSE(isKnown) << "this does not say what to do: " << sentence.toStdString();
    const bool isUsual = std::ranges::any_of(usual, [&sentence](const char* pattern) {
        return begins(sentence, QStringLiteral("(%1)\\s*$").arg(QLatin1String(pattern)));
    });
    EXPECT_TRUE(isUsual) << "this is told, and not among those that are known: " << sentence.toStdString();
    return nullptr;
}

} // namespace orv
