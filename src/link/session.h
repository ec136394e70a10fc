// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "base/operator.h"
#include "base/words.h"

#include <QProperty>
#include <QString>

#include <optional>

namespace orv {

/// What goes on, `opstate`: what the program waits for. The numbers stand in the state dump. The status timer
/// dispatches on them; with any other value it does nothing but poll.
enum class Operation : int {
    Idle = 0,            ///< Idle or offline.
    CollectionSetUp = 1, ///< A real-time collection is set up, or has ended.
    SettingsOpen = 2,    ///< The computer's time and date are shown on the settings screen.
    Collecting = 11,     ///< Every reply line goes to `profilemode`.
    Ready = 23,          ///< Every reply line goes to `getprefs`.
    Importing = 28,      ///< Stored data goes to the sheet.
    SavingText = 38,     ///< Stored data goes to a text file.
    ClockCheck = 48,     ///< The clock reply is awaited.
    Identified = 64,     ///< The wake-up has told type and firmware.
    ShutterReset = 999,  ///< A shutter reset is under way.
};

/// The instruments of the series.
enum class InstrumentType { Unknown, Trx, Glow };

/// The type that a letter of either case stands for: "V" TRX, "F" GLOW.
InstrumentType instrumentType(const QString& letter);

/// What the operator reads for the type: "TRX", "GLOW" or eight underscores.
QString instrumentName(InstrumentType type);

/// The program-wide variables. One instance lives for the whole run; `fixit` gives the values named "reset".
struct SessionState {
    Operation Ctrlscrn = Operation::Idle; ///< What goes on. Reset: Idle.
    QString Rtn;                          ///< The last complete reply line, without its end. Reset: "wakeup!!!".
    qint16 Tmr = 0;                       ///< 1: the next poll first empties the receive buffer. Reset: 1.
    QString Vartemp;                      ///< The type letter after identification, "V" or "F". Kept by a reset.
    quint8 trouble = 0;                   ///< 1: service mode, the debug list is fed. Kept by a reset.
    quint8 portstatus = 0;                ///< 1: the operator has opened a port; 2: closed or offline. Reset: 2.
    quint8 gatherstart = 0;               ///< 1: a collection runs and the poll watches for prompts. Reset: 0.
    quint8 Gatherstop = 0;                ///< Prompt seen meanwhile: 1 for ">", 3 for "!". Reset: 0.
    qint16 plc = 0;                       ///< Data rows on the sheet, for the dump. Kept by a reset.
    qint16 Timeout = 0;                   ///< Calls of `getprefs` since the start of the program. Kept by a reset.
    quint8 Seeking = 0;                   ///< 1: a manual connection waits without limit. Reset: 0.
    quint8 Portused = 0;                  ///< COM port number in use, 1 or 2; 0 before the first. Kept by a reset.
    double firmware = 0.0;                ///< The firmware's number; 0 while it is not known. Kept by a reset.

    /// The type by the letter. The main window may show another: it shows the type from the first tick after the
    /// wake-up until the port is closed.
    InstrumentType type() const { return instrumentType(Vartemp); }
};

/// What the status page shows. Where two labels always read the same (the status on the status page and on the debug
/// screen, the buffer counts) they show one value.
struct StatusState {
    static QString unknownShort() { return QStringLiteral("________"); }
    static QString unknownLong() { return QStringLiteral("________________"); }

    QProperty<Words> status{Words::tr("Offline")};
    QProperty<QString> firmware{unknownShort()};                   ///< What the wake-up's reply says of it.
    QProperty<InstrumentType> instrument{InstrumentType::Unknown}; ///< Known once identified.
    QProperty<QString> date{unknownLong()};                        ///< The instrument's date at the last clock reply.
    QProperty<QString> time{unknownLong()};                        ///< The instrument's time at the last clock reply.
    /// Seconds by which the instrument's clock was ahead of the computer's at that reply; it ticks every 4/3 s.
    QProperty<std::optional<qint64>> clockOffset;
    QProperty<int> bufferCount{0};     ///< Characters received and not yet consumed as a line.
    QProperty<Words> shutterProgress;  ///< `Text38`.
    QProperty<Words> shutterCountdown; ///< Seconds left of the shutter's long wait; empty otherwise.
    QProperty<QString> downloadedBytes{QStringLiteral("0")}; ///< Size of the last whole download.
    QProperty<Words> notice; ///< A remark beside the status that needs no answer; empty most of the time.
    /// Why the last attempt to connect or the last connection ended by itself, and what to do now; empty from the next
    /// attempt on, after "Close Port", "Reset" and "Quit" of the dialog, and when its port is given another device.
    QProperty<Words> failure;
};

/// The long operation under way, if any.
enum class Activity {
    None,
    Connecting,
    ReadingSettings,
    Collecting,
    Downloading,
    Sending,
    SettingClock,
    ResettingShutter
};

/// What the procedures say of the main window's commands, and what follows from it for the operator.
///
/// The flags are set by the procedures. Whether a button can really be pressed is derived from them and from the
/// activity here and nowhere else: an operation under way must not be disturbed, but "Reset", "Close Port" and "Quit"
/// always work.
struct CommandState {
    CommandState();
    CommandState(const CommandState&) = delete;
    CommandState& operator=(const CommandState&) = delete;

    QProperty<Activity> activity{Activity::None};
    QProperty<bool> asking{false}; ///< A question to the operator stands; set by the waits.

    QProperty<bool> resetEnabled{false};
    QProperty<bool> runEnabled{false};
    QProperty<bool> runVisible{true};
    QProperty<bool> clearAllEnabled{false};
    QProperty<bool> saveAsEnabled{false};
    QProperty<bool> resetShutterEnabled{false};
    QProperty<bool> resetShutterVisible{true};
    QProperty<bool> closePortEnabled{false};
    QProperty<bool> processingMenuVisible{false};
    QProperty<bool> settingsMenuVisible{false};
    QProperty<bool> settingsFormEnabled{false};
    QProperty<bool> portOpen{false};       ///< Set by the ports.
    QProperty<bool> sheetHoldsRows{false}; ///< Set by the sheet.

    /// The instrument can be sent a command: its port is open and nothing is under way that would be disturbed.
    QProperty<bool> canCommand;
    /// Nothing is under way, and no question stands.
    QProperty<bool> undisturbed;
    QProperty<bool> canAsk; ///< No question stands.
    /// What is typed into the instrument's settings would stay. It would not while settings are sent, the clock is set,
    /// for which a full minute may be waited for, or the shutter is reset: the report that follows fills the boxes.
    QProperty<bool> canTypeSettings;
    QProperty<bool> canRun;
    /// A reset disables both, yet rows on the sheet can always be cleared and saved.
    QProperty<bool> canClearAll;
    QProperty<bool> canSaveAs;
    QProperty<bool> canExport; ///< There are rows.
    QProperty<bool> canOpenSheet;
    QProperty<bool> canResetShutter;
};

/// The files of the program itself; other names if another program has taken these in the same folder.
struct FileNames {
    QString log = QStringLiteral("log.ohp");
    QString record = QStringLiteral("Orvtemp.tmp");
};

/// What every procedure shares: the state, what the main window shows and any of them may change, the clock and
/// the way to tell the operator something.
struct Session {
    Session(Clock& clockToUse, OperatorMessages& messagesToUse)
        : clock(clockToUse)
        , messages(messagesToUse) {}

    /// Shows the firmware and keeps the number that the text begins with, 0 if none.
    void setFirmware(const QString& text);

    SessionState state;
    StatusState status;
    CommandState commands;
    FileNames fileNames;
    Clock& clock;
    ToldMessages messages;
};

} // namespace orv
