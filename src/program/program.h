// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/calibration.h"
#include "calibration/shutterreset.h"
#include "formats/sheetexport.h"
#include "link/link.h"
#include "program/capture.h"
#include "program/nextstep.h"
#include "program/pages.h"
#include "settings/settings.h"
#include "sheet/sheet.h"

#include <QSet>

namespace orv {

/// The whole program below its windows: what the screens show and what the operator's actions do. Everything runs on
/// the one thread that made it.
///
/// A run-time error that a procedure does not handle ends the operator's action or the tick it happened in and leaves
/// all data as it is; the operator is told once.
class Program final {
public:
    using Surroundings = Link::Surroundings;

    explicit Program(const Surroundings& surroundings);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // The operator's actions.

    /// Where a run is recorded: in the working directory, or not at all because none will be begun.
    enum class Files { InFolder, None };

    /// Start-up: opens the debug port if its box is ticked, resets everything, takes a place in the working directory
    /// and opens the log there, starts the timer.
    void load(Files files = Files::InFolder);
    /// Offers the rows of a run in the working directory that did not end. Once after load(), with the window on the
    /// screen.
    void offerUnendedRun();
    void autoConnect1();
    void autoConnect2();
    /// The button "Connect" beside a port's chooser.
    void connectPort(int portNumber);
    /// "Try a Simulated Instrument": chooses it for COM 1 and connects.
    void trySimulation();
    void manualConnect(int portNumber);
    void closePort();
    /// The "Reset" button: stops a collection or download and connects again.
    void reset();
    /// A second way to stop, the same as reset() except that it leaves the records label.
    void abort2();
    void run();
    void clearAll();
    /// Takes "Clear All" back, as long as that is possible.
    void bringBack();
    void saveAs();
    void saveSupportFile();
    /// "Export" of these rows; of all if there are none.
    void exportSheet(const std::vector<RowRange>& chosen = {});
    void openSheet();
    /// "Download Stored Data: Save as Text" and "... View with Host Program".
    void downloadText();
    void vwhp();
    /// The "Reset Shutter" button.
    void resetShutter();
    void showSettingsForm();
    void setComm2Output(bool ticked);
    void toggleServiceMode();
    /// A tab of either strip was chosen; a caption of no page hides every page.
    void selectUpperTab(const QString& caption);
    void selectLowerTab(const QString& caption);
    /// "Quit", and the closing of the window. Rows that are not saved are offered for saving first, and a question that
    /// stands is taken back; then the program ends, unless the operator has changed his mind.
    void quit();
    void leave();
    /// Ends whatever runs, whole, and closes the instrument's port.
    void end();
    /// The same when nobody can be asked (the computer is shut down, say): a question that stands is taken back, and
    /// rows that are not saved are offered at the next start. Waits for nothing. Nothing happens after the end.
    void endUnasked();
    /// The program may be ended soon without being told: rows that are not saved are on the disk, where the next start
    /// offers them. Everything goes on. Returns whether they are; if not, the operator has been told why.
    bool keepForNextStart();

    Signal<> aboutToEnd; ///< By quit() or leave(): nothing stops it any more, and what is told from now on is its last.
    Signal<> endedUnasked; ///< By endUnasked().
    Signal<> ended;        ///< By quit() or leave(): the windows may go.

    /// One tick of the status timer: polls and dispatches on the operation code.
    void tick();

    Link link;
    Settings settings;
    Sheet sheet;
    SheetExport sheetExport;
    Calibration calibration;
    ShutterReset shutter;
    PageState pages;
    RunProgress progress;
    NextStep nextStep;
    Capture capture{*this};

private:
    Task<> saveSheet();
    Task<> askAndEnd();
    void takeWhatArrived();
    void closeRecordFile();
    void stopEverything();
    void forgetToldErrors();
    void takePlace();
    void useOwnFiles();
    void openLog();
    QString takeLine();
    bool dispatch();
    bool collecting() const;
    void collect(const QString& line);
    void duringTick(const std::function<void()>& body);
    void act(const char* operation, const std::function<void()>& body);

    std::vector<Subscription> subscriptions_;
    bool takingWhatArrived_ = false;
    enum class End { NotYet, Asked, Unasked } end_ = End::NotYet;
    const char* tickStep_ = ""; ///< What the tick is doing, for the message if it fails.
    QSet<QString> tickErrorsTold_;
};

} // namespace orv
