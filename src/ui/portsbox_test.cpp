// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"
#include "ui/portsbox.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QWheelEvent>

namespace orv {
namespace {

class PortsBoxTest : public WindowTest {
protected:
    PortsBoxTest() { plug("ttyUSB0", "Serial Adapter"); }

    void plug(const char* name, const char* description = "") {
        portList.plugged.push_back({QString::fromLatin1(name), QString::fromLatin1(description), QString()});
        program.link.portChoices.refresh();
    }

    void unplugAll() {
        portList.plugged.clear();
        program.link.portChoices.refresh();
    }

    std::string listed() const {
        std::string all;
        for (int row = 0; row < chooser.view()->model()->rowCount(); ++row) {
            all += chooser.view()->model()->index(row, 0).data(Qt::DisplayRole).toString().toStdString() + "\n";
        }
        return all;
    }

    std::string shown() const { return edit.text().toStdString(); }
    std::string device() const { return program.link.ports.device(1).toStdString(); }
    void expectTaken(const char* device) const {
        EXPECT_EQ(shown(), device);
        EXPECT_EQ(this->device(), device);
    }
    /// Also the sign in the box goes with it.
    std::string complaint() {
        const auto signs = edit.actions();
        EXPECT_NE(std::any_of(signs.begin(), signs.end(), [](const QAction* sign) { return sign->isVisible(); }),
                  complaintLabel.isHidden());
        return complaintLabel.isHidden() ? "" : complaintLabel.text().toStdString();
    }

    PortChooser& chooser = find<PortChooser>("PortChooser1");
    PortChooser& second = find<PortChooser>("PortChooser2");
    QLineEdit& edit = *chooser.lineEdit();
    QLabel& complaintLabel = find<QLabel>("PortProblem1");
};

const char* const simulated = "sim:trx - simulated scattering meter\nsim:glow - simulated fluorometer\n";

TEST_F(PortsBoxTest, StartsWithTheDevicesOfTheCommandLine) {
    EXPECT_EQ(shown(), "ttyA");
    EXPECT_EQ(second.currentText().toStdString(), "ttyB");
    EXPECT_EQ(complaint(), "");
}

TEST_F(PortsBoxTest, ListsThePortsWithWhatTheySayAndTakesTheDeviceAlone) {
    EXPECT_EQ(listed(), std::string("ttyUSB0 - Serial Adapter\n") + simulated);
    chooser.showPopup();
    chooser.view()->setCurrentIndex(chooser.model()->index(0, 0));
    press(*chooser.view(), Qt::Key_Return);
    EXPECT_FALSE(chooser.view()->isVisible());
    expectTaken("ttyUSB0");
    EXPECT_TRUE(chooser.toolTip().startsWith(QStringLiteral("ttyUSB0 - Serial Adapter.")));
}

TEST_F(PortsBoxTest, TheArrowKeysStepThroughTheList) {
    press(chooser, Qt::Key_Down);
    EXPECT_EQ(device(), "ttyUSB0");
    press(chooser, Qt::Key_Down);
    expectTaken("sim:trx");
    press(chooser, Qt::Key_Up);
    EXPECT_EQ(device(), "ttyUSB0");
}

TEST_F(PortsBoxTest, OpeningTheListBringsItUpToDate) {
    portList.plugged.clear();
    chooser.showPopup();
    EXPECT_EQ(listed(), simulated);
    chooser.hidePopup();
}

TEST_F(PortsBoxTest, AnOpenListStaysOpenWhilePortsComeAndGo) {
    chooser.showPopup();
    chooser.view()->setCurrentIndex(chooser.model()->index(1, 0));
    plug("ttyACM0");
    EXPECT_TRUE(chooser.view()->isVisible());
    EXPECT_EQ(listed(), std::string("ttyACM0\nttyUSB0 - Serial Adapter\n") + simulated);
    unplugAll();
    EXPECT_TRUE(chooser.view()->isVisible());
    EXPECT_EQ(listed(), simulated);
    EXPECT_EQ(chooser.view()->currentIndex().data(Qt::EditRole).toString().toStdString(), "sim:trx");
    press(*chooser.view(), Qt::Key_Return);
    EXPECT_EQ(device(), "sim:trx");
}

TEST_F(PortsBoxTest, AChosenPortThatVanishesStaysChosenAndComesBack) {
    press(chooser, Qt::Key_Down);
    unplugAll();
    expectTaken("ttyUSB0");
    EXPECT_EQ(chooser.currentIndex(), -1);
    plug("ttyACM0");
    plug("ttyUSB0", "Another Adapter");
    expectTaken("ttyUSB0");
    EXPECT_EQ(chooser.currentIndex(), 1);
    EXPECT_TRUE(chooser.toolTip().startsWith(QStringLiteral("ttyUSB0 - Another Adapter.")));
}

TEST_F(PortsBoxTest, WhatIsBeingTypedSurvivesPortsThatComeAndGo) {
    press(chooser, Qt::Key_Down);
    retype(edit, "/dev/tty");
    edit.setSelection(8, -3);
    const auto expectKept = [this] {
        EXPECT_EQ(shown(), "/dev/tty");
        EXPECT_EQ(edit.selectedText().toStdString(), "tty");
        EXPECT_EQ(edit.cursorPosition(), 5);
        EXPECT_EQ(device(), "ttyUSB0");
    };
    unplugAll();
    expectKept();
    plug("ttyS0");
    expectKept();
    plug("ttyUSB0");
    expectKept();
    portList.plugged[1].description = QStringLiteral("Adapter");
    program.link.portChoices.refresh();
    expectKept();
    edit.setSelection(0, 4);
    unplugAll();
    EXPECT_EQ(edit.selectedText().toStdString(), "/dev");
    EXPECT_EQ(edit.cursorPosition(), 4);
    edit.setCursorPosition(2);
    plug("ttyUSB0");
    EXPECT_EQ(edit.cursorPosition(), 2);
    edit.end(false);
    type(edit, "S5");
    press(edit, Qt::Key_Return);
    EXPECT_EQ(device(), "/dev/ttyS5");
}

TEST_F(PortsBoxTest, ATypedDeviceCountsWhenItIsFinished) {
    retype(edit, "ttyS7");
    EXPECT_EQ(device(), "ttyA");
    press(edit, Qt::Key_Return);
    EXPECT_EQ(device(), "ttyS7");
    retype(edit, " /dev/ttyS8 ");
    tellFocus(edit, QEvent::FocusOut, Qt::TabFocusReason);
    expectTaken("/dev/ttyS8");
    retype(edit, "ttyS9");
    tellFocus(edit, QEvent::FocusOut, Qt::PopupFocusReason); // the menu is opened
    EXPECT_EQ(device(), "ttyS9");
}

TEST_F(PortsBoxTest, EscapeTakesBackWhatWasTyped) {
    retype(edit, "nonsense");
    press(edit, Qt::Key_Escape);
    expectTaken("ttyA");
}

TEST_F(PortsBoxTest, AMalformedNameIsToldBelowTheBoxAndStaysForMending) {
    enter(edit, "my port");
    EXPECT_EQ(complaint(), "\"my port\" is no device. COM 1 stays ttyA.");
    EXPECT_EQ(shown(), "my port");
    EXPECT_EQ(device(), "ttyA");
    unplugAll();
    EXPECT_EQ(shown(), "my port");
    press(edit, Qt::Key_Escape);
    EXPECT_EQ(complaint(), "");
    EXPECT_EQ(shown(), "ttyA");
    enter(edit, "my port");
    enter(edit, "myport");
    EXPECT_EQ(complaint(), "");
    EXPECT_EQ(device(), "myport");
}

TEST_F(PortsBoxTest, NothingConnectsWhileTheBoxHoldsWhatIsNoDevice) {
    auto& connect = button("ConnectButton1");
    ASSERT_TRUE(connect.isEnabled());
    const QString usual = connect.toolTip();
    enter(edit, "my port");
    EXPECT_FALSE(connect.isEnabled());
    EXPECT_FALSE(connect.isDefault());
    EXPECT_EQ(connect.toolTip().toStdString(), complaint());
    press(edit, Qt::Key_Escape);
    EXPECT_TRUE(connect.isEnabled());
    EXPECT_EQ(connect.toolTip(), usual);
    // Its access key presses the button while the focus stays in the box.
    retype(edit, "my port");
    connect.click();
    EXPECT_FALSE(connect.isEnabled());
    EXPECT_EQ(complaint(), "\"my port\" is no device. COM 1 stays ttyA.");
    EXPECT_EQ(program.link.ports.use(1).value(), PortUse::None);
    retype(edit, "ttyUSB0");
    EXPECT_TRUE(connect.isEnabled()) << "what is being mended is judged when it is finished";
    connect.click();
    EXPECT_EQ(program.link.ports.use(1).value(), PortUse::Instrument);
    EXPECT_EQ(device(), "ttyUSB0");
}

TEST_F(PortsBoxTest, TheOtherPortsDeviceIsRefused) {
    enter(edit, "/dev/ttyB");
    EXPECT_EQ(complaint(),
              "COM 2 is set to ttyB already. Choose another device here, or change COM 2 first. COM 1 stays ttyA.");
    EXPECT_EQ(device(), "ttyA");
}

TEST_F(PortsBoxTest, CannotBeChangedWhileThePortIsOpen) {
    EXPECT_TRUE(chooser.isEnabled());
    enter(edit, "my port");
    connectAndRead();
    EXPECT_FALSE(chooser.isEnabled());
    EXPECT_EQ(shown(), "ttyA") << "what is open, not what was typed";
    EXPECT_EQ(complaint(), "");
    EXPECT_TRUE(chooser.toolTip().contains(QStringLiteral("\"Close Port\"")));
    plug("ttyA");
    EXPECT_EQ(shown(), "ttyA");
    item("ClosePort").trigger();
    EXPECT_TRUE(chooser.isEnabled());
}

TEST_F(PortsBoxTest, CannotBeChangedDuringAnAttemptAndAnOpenListCloses) {
    chooser.showPopup();
    retype(edit, "half");
    program.autoConnect1();
    for (const double seconds : {0.0, 0.5, 1.0}) { // the wake-up pulse, the attempt
        live(seconds);
        EXPECT_FALSE(chooser.isEnabled());
        EXPECT_FALSE(chooser.view()->isVisible());
        EXPECT_EQ(shown(), "ttyA");
    }
    com1.input = "V512\r";
    finish();
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
}

TEST_F(PortsBoxTest, TheDebugOutputLocksItsPort) {
    EXPECT_FALSE(second.isEnabled());
    EXPECT_TRUE(second.toolTip().contains(QStringLiteral("debug output")));
    com2.failureReason = QStringLiteral("Gone.");
    program.link.ports.debugsay(QStringLiteral("text"));
    EXPECT_TRUE(second.isEnabled());
}

TEST_F(PortsBoxTest, ALockedDeviceIsAsReadableInLightAndDark) {
    for (const QColor& text : {QColor(Qt::white), QColor(Qt::black)}) {
        QPalette palette;
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::Disabled, QPalette::Text, Qt::gray);
        chooser.setPalette(palette);
        EXPECT_EQ(edit.palette().color(QPalette::Disabled, QPalette::Text), text);
    }
}

TEST_F(PortsBoxTest, TheWheelChangesNothing) {
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&chooser, &event);
    EXPECT_EQ(device(), "ttyA");
}

TEST_F(PortsBoxTest, LongNamesAndDescriptionsDoNotWidenTheWindow) {
    const int width = window->minimumSizeHint().width();
    const std::string longText(300, 'W');
    plug("ttyUSB1", longText.c_str());
    enter(edit, (longText + " " + longText).c_str());
    EXPECT_NE(complaint(), "");
    EXPECT_EQ(window->minimumSizeHint().width(), width);
    plug("ttyUSB2", "Serial Adapter with a description that is too long for one line");
    const int row = chooser.findText(QStringLiteral("ttyUSB2 - Serial"), Qt::MatchStartsWith);
    EXPECT_EQ(chooser.itemData(row, Qt::ToolTipRole).toString().toStdString(),
              "ttyUSB2 - Serial Adapter with a description that is too long\nfor one line");
    chooser.showPopup();
    EXPECT_LE(chooser.view()->width(), chooser.width());
    EXPECT_LE(chooser.view()->sizeHintForColumn(0), chooser.width());
    chooser.hidePopup();
    enter(edit, longText.c_str());
    EXPECT_EQ(device(), longText);
    EXPECT_EQ(window->minimumSizeHint().width(), width);
}

TEST_F(PortsBoxTest, FollowsThePortsWhileItCanBeSeenOnly) {
    auto& timer = find<QTimer>("PortRefresh");
    EXPECT_TRUE(timer.isActive());
    timer.setInterval(1);
    portList.plugged.clear();
    const int before = portList.listings;
    EXPECT_TRUE(waitFor([this, before] { return portList.listings > before; }));
    EXPECT_EQ(listed(), simulated);
    program.selectUpperTab(QStringLiteral("Output: Spread Sheet"));
    EXPECT_FALSE(timer.isActive());
    program.selectUpperTab(QStringLiteral("Status and Controls"));
    EXPECT_TRUE(timer.isActive());
    window->hide();
    EXPECT_FALSE(timer.isActive());
}

TEST_F(PortsBoxTest, IsOperableByKeyboardAndNamed) {
    for (const PortChooser* port : {&chooser, &second}) {
        EXPECT_FALSE(port->accessibleName().isEmpty());
        EXPECT_FALSE(port->accessibleDescription().isEmpty());
        EXPECT_EQ(port->lineEdit()->accessibleName(), port->accessibleName());
        EXPECT_TRUE((port->focusPolicy() & Qt::TabFocus) != 0);
    }
    const auto buddies = find<QWidget>("PortsBox").findChildren<QLabel*>();
    EXPECT_EQ(std::count_if(buddies.begin(), buddies.end(),
                            [this](const QLabel* label) {
                                return (label->buddy() == &chooser && label->text() == QLatin1String("COM &1")) ||
                                       (label->buddy() == &second && label->text() == QLatin1String("COM &2"));
                            }),
              2);
}

TEST_F(PortsBoxTest, ASimulatedInstrumentIsMarkedOnEveryPageAndInTheTitle) {
    auto& marker = find<QLabel>("SimulationMarker");
    EXPECT_FALSE(marker.isVisible());
    EXPECT_EQ(window->windowTitle().toStdString(), "ORV Host Program");
    enter(edit, "sim:trx");
    program.toggleServiceMode();
    onEachPage([&marker](const std::string& caption) { EXPECT_TRUE(marker.isVisible()) << caption; });
    EXPECT_EQ(marker.text().toStdString(), "Simulated instrument on COM 1");
    EXPECT_EQ(marker.palette().color(QPalette::Window), QColor(255, 191, 0));
    EXPECT_EQ(marker.palette().color(QPalette::WindowText), QColor(Qt::black));
    EXPECT_EQ(window->windowTitle().toStdString(), "ORV Host Program (simulated instrument)");
    enter(edit, "ttyA");
    EXPECT_FALSE(marker.isVisible());
    EXPECT_EQ(window->windowTitle().toStdString(), "ORV Host Program");
}

} // namespace
} // namespace orv
