// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/port.h"
#include "link/systemport.h"
#include "testing/fakes.h"

#include <QSerialPortInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>

namespace orv {

namespace {

/// A device that is in order: what keeps it from being opened is added by each test.
OpenFailureFacts soundDevice() {
    return {.exists = true,
            .isSerialDevice = true,
            .accessible = true,
            .lockFolderWritable = true,
            .lockFolder = QStringLiteral("/var/lock"),
            .group = {},
            .lockedBy = {},
            .busy = false,
            .systemText = QStringLiteral("Input/output error")};
}

TEST(OpenFailure, saysWhatToDoAndEndsWithTheWordsForTryingAgain) {
    const struct {
        std::function<void(OpenFailureFacts& facts)> spoil;
        const char* text;
    } cases[] = {
        {[](OpenFailureFacts& facts) { facts.exists = facts.accessible = false; },
         "There is no such device. Plug the adapter in, check the device's name, and connect again."},
        {[](OpenFailureFacts& facts) { facts.isSerialDevice = false; },
         "It is not a serial port. Choose the device of the serial adapter and connect again."},
        {[](OpenFailureFacts& facts) {
             facts.accessible = false;
             facts.group = QStringLiteral("tty");
         },
         "You have no permission to use it. Ask for your user to be added to the group \"tty\" (sudo usermod -aG tty "
         "$USER), log out and in again, then connect again."},
        {[](OpenFailureFacts& facts) { facts.accessible = false; }, // the usual group if the device's is not known
         "You have no permission to use it. Ask for your user to be added to the group \"dialout\" (sudo usermod -aG "
         "dialout $USER), log out and in again, then connect again."},
        {[](OpenFailureFacts& facts) { facts.busy = true; },
         "It is used by another program. Close that program, then connect again."},
        {[](OpenFailureFacts& facts) {
             facts.busy = true;
             facts.lockedBy = QStringLiteral("terminal, process 1234");
         },
         "It is used by another program (terminal, process 1234). Close that program, then connect again."},
        {[](OpenFailureFacts& facts) { facts.lockFolderWritable = false; },
         "The lock file that keeps other programs off the port cannot be written in /var/lock. Ask for write "
         "permission to that folder, log out and in again, then connect again."},
        {[](OpenFailureFacts& /*facts*/) {},
         "The system says: Input/output error. Unplug the adapter and plug it in again, then connect again."},
    };
    for (const auto& each : cases) {
        OpenFailureFacts facts = soundDevice();
        each.spoil(facts);
        const QString text = explainOpenFailure(facts);
        EXPECT_EQ(text.toStdString(), each.text);
        EXPECT_TRUE(text.endsWith(QLatin1String(Port::tryAgainWords) + u'.')) << text.toStdString();
    }
}

TEST(OpenFailure, tellsTheCauseThatMustBeRemovedFirst) {
    OpenFailureFacts facts = soundDevice();
    facts.busy = true;
    facts.lockFolderWritable = false;
    EXPECT_TRUE(explainOpenFailure(facts).startsWith(QStringLiteral("It is used by another program")));
    facts.accessible = false;
    EXPECT_TRUE(explainOpenFailure(facts).startsWith(QStringLiteral("You have no permission")));
    facts.isSerialDevice = false;
    EXPECT_TRUE(explainOpenFailure(facts).startsWith(QStringLiteral("It is not a serial port")));
    facts.exists = false;
    EXPECT_TRUE(explainOpenFailure(facts).startsWith(QStringLiteral("There is no such device")));
}

} // namespace

namespace {

class SystemPortListTest : public testing::Test {
protected:
    /// As if a device's file had come or gone.
    void touchFolder() {
        const std::filesystem::path path = folder.path().toStdString();
        std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::seconds(3));
    }

    QTemporaryDir folder;
    TestClock clock;
};

TEST_F(SystemPortListTest, MayHaveChangedForTenSecondsAfterItsFolderDid) {
    SystemPortList list(clock, folder.path());
    EXPECT_TRUE(list.mayHaveChanged());
    clock.advance(9999);
    EXPECT_TRUE(list.mayHaveChanged());
    clock.advance(1);
    EXPECT_FALSE(list.mayHaveChanged());
    clock.advance(100'000);
    EXPECT_FALSE(list.mayHaveChanged());
    touchFolder();
    EXPECT_TRUE(list.mayHaveChanged());
    clock.advance(9999);
    EXPECT_TRUE(list.mayHaveChanged()) << "an adapter's description comes after its file";
    touchFolder();
    EXPECT_TRUE(list.mayHaveChanged());
    clock.advance(9999);
    EXPECT_TRUE(list.mayHaveChanged());
    clock.advance(1);
    EXPECT_FALSE(list.mayHaveChanged());
}

TEST_F(SystemPortListTest, MayAlwaysHaveChangedWhereNoFolderTells) {
    for (const QString& nowhere : {QString(), folder.filePath(QStringLiteral("none"))}) {
        SystemPortList list(clock, nowhere);
        for (int time = 0; time < 3; ++time) {
            EXPECT_TRUE(list.mayHaveChanged());
            clock.advance(100'000);
        }
    }
}

TEST_F(SystemPortListTest, ListsWhatTheSystemLists) {
    SystemPortList list(clock, SystemPortList::systemDeviceFolder());
    QStringList names;
    for (const ListedPort& port : list.ports()) {
        names << port.name;
    }
    QStringList expected;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        expected << port.portName();
    }
    EXPECT_EQ(names, expected);
}

} // namespace

} // namespace orv
