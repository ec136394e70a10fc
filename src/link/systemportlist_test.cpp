// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/systemportlist.h"

#include "testing/testclock.h"

#include <QSerialPortInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace orv {
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
