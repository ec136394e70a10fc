// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/controls.h"
#include "testing/sendingtest.h"
#include "ui/settingswindow.h"

namespace orv {

class CountedDeviceFiles final : public SettingsActions {
public:
    void loadDeviceFile() override { ++loads; }
    void saveDeviceFile() override { ++saves; }

    int loads = 0;
    int saves = 0;
};

/// The settings screen on an open port with an answering instrument.
class SettingsWindowTest : public SendingTest {
protected:
    template <typename Widget>
    Widget& find(const char* name) const {
        return control<Widget>(window, name);
    }

    /// The frames that can be seen, by object name.
    QStringList shownFrames() const {
        QStringList names;
        for (const char* name : {"ModesFrame", "TimeAndDateFrame", "ControlBitsFrame", "SamplesFrame",
                                 "TrxCalibrationFrame", "GlowCalibrationFrame"}) {
            if (find<QWidget>(name).isVisible()) {
                names << QString::fromLatin1(name);
            }
        }
        return names;
    }

    void open() {
        settings.visible = true;
        QApplication::processEvents();
    }

    void openAt(const char* tab) {
        open();
        window.chooseTab(QString::fromLatin1(tab));
        QApplication::processEvents();
    }

    PreparedAnswers answers;
    CountedDeviceFiles deviceFiles;
    SettingsCommands commands{session, ports, settings, progress, sender};
    Modes modes{session, ports, settings, sender, answers};
    int mainWindowShown = 0;
    SettingsWindow window{{.session = session,
                           .shown = settings,
                           .commands = commands,
                           .modes = modes,
                           .actions = deviceFiles,
                           .showMainWindow = [this] { ++mainWindowShown; }}};
};

} // namespace orv
