// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/controls.h"
#include "testing/programrig.h"
#include "ui/settingswindow.h"

namespace orv {

/// The settings screen on an open port whose far end answers every item.
class SettingsWindowTest : public ProgramTest {
protected:
    SettingsWindowTest() {
        ports.open();
        com1.written = [this](const QByteArray& item) {
            if (item != "P" && item != "C") {
                com1.input += item + (QByteArray("BTDQI").contains(item) ? '.' : '>');
            }
        };
        state.Ctrlscrn = Operation::SettingsOpen;
        state.Vartemp = QStringLiteral("V");
        status.instrument = InstrumentType::Trx;
        settings.record = {.samplesPerPoint = QStringLiteral("30"),
                           .hoursBeforeBlock = QStringLiteral("24"),
                           .pointsPerBlock = QStringLiteral("60000"),
                           .secondsBetweenPoints = QStringLiteral("3600")};
    }

    template <typename Widget>
    Widget& find(const char* name) const {
        return control<Widget>(window, name);
    }

    void click(const char* button) const { find<QAbstractButton>(button).click(); }

    /// What has been written to the instrument since the last call.
    std::vector<QByteArray> written() { return std::exchange(com1.writes, {}); }

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

    SettingsWindow window{program};
    int mainWindowShown = 0;
    Subscription mainWindowWanted = window.mainWindowWanted.subscribe([this] { ++mainWindowShown; });
};

} // namespace orv
