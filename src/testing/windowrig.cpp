// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace orv {

WindowRig::WindowRig() {
    com1.waited = [this](int milliseconds) {
        clock.advance(milliseconds);
        ++waits;
        if (!replies.empty()) {
            com1.input = replies.front();
            replies.pop_front();
        } else if (waits >= mostWaits) {
            ADD_FAILURE() << "the wake-up loop does not end";
            com1.input = "V512\r";
        } else if (atWait) {
            atWait(waits);
        }
    };
    events.process = [this](int milliseconds) {
        windowEvents.processEvents(1);
        clock.advance(milliseconds);
    };
    events.whileResponsive = [this](bool manualDialogLives) { windowEvents.keepResponsive(manualDialogLives); };
    events.programEnds = [this] { return windowEvents.programEnding(); };
    tickDebugOutput();
    window = std::make_unique<MainWindow>(program, windowEvents);
    window->show();
    window->prepareAllPages();
}

WindowRig::~WindowRig() {
    window.reset();
    // A window that ended the program leaves an exit behind, which keeps dialogs of later tests from waiting; only the
    // application's own loop forgets it.
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    QCoreApplication::exec();
}

void WindowRig::showPage(const QString& caption) {
    if (upperCaptions().contains(caption)) {
        program.selectUpperTab(caption);
    } else {
        program.selectLowerTab(caption);
    }
}

void WindowRig::onEachPage(const std::function<void(const std::string& caption)>& look) {
    for (const QString& caption : upperCaptions() + lowerCaptions()) {
        showPage(caption);
        look(caption.toStdString());
    }
}

bool WindowRig::waitFor(const std::function<bool()>& reached) {
    constexpr int patience = 60000; // milliseconds
    QElapsedTimer passed;
    passed.start();
    while (!reached() && passed.elapsed() < patience) {
        QTimer wakeUp;
        wakeUp.start(1);
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return reached();
}

void WindowRig::pass(int milliseconds) {
    QElapsedTimer passed;
    passed.start();
    waitFor([&passed, milliseconds] { return passed.elapsed() >= milliseconds; });
}

} // namespace orv
