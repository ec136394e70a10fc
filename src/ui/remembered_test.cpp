// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/remembered.h"
#include "ui/sharedcolumns.h"

#include "testing/windowrig.h"
#include "ui/messageboxes.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QTableWidget>

namespace orv {
namespace {

class RememberedTest : public WindowTest {
protected:
    RememberedTest() { program.setComm2Output(false); }

    /// What a start with what was kept before finds.
    std::unique_ptr<Remembered> start() { return std::make_unique<Remembered>(path("kept.ini")); }
};

TEST_F(RememberedTest, APortThatWasConnectedComesBack) {
    const auto kept = start();
    kept->keepPorts(program);
    ports.setDevice(1, QStringLiteral("ttyC"));
    program.connectPort(1);
    EXPECT_TRUE(ports.isOpen());
    ProgramRig next;
    start()->restorePorts(next.program);
    EXPECT_EQ(next.ports.device(1).toStdString(), "ttyC");
    EXPECT_EQ(next.ports.device(2).toStdString(), "ttyB") << "it was not connected";
}

TEST_F(RememberedTest, APortThatWasOnlyChosenDoesNot) {
    const auto kept = start();
    kept->keepPorts(program);
    program.link.portChoices.choose(1, QStringLiteral("ttyC"));
    ProgramRig next;
    start()->restorePorts(next.program);
    EXPECT_EQ(next.ports.device(1).toStdString(), "ttyA");
}

TEST_F(RememberedTest, WhatTheTrialOrTheCommandLineHasChosenDoesNot) {
    const auto kept = start();
    kept->keepPorts(program);
    const auto next = [this] {
        ProgramRig rig;
        start()->restorePorts(rig.program);
        return rig.ports.device(1).toStdString();
    };
    program.trySimulation();
    EXPECT_TRUE(ports.isOpen());
    program.closePort();
    ports.setDevice(1, QStringLiteral("ttyG"));
    program.link.portChoices.noteGiven();
    program.connectPort(1);
    program.closePort();
    EXPECT_EQ(next(), "ttyA");
    program.link.portChoices.choose(1, QStringLiteral("ttyC"));
    program.connectPort(1);
    program.closePort();
    EXPECT_EQ(next(), "ttyC") << "this the operator has";
}

TEST_F(RememberedTest, APortThatIsGoneIsShownAsGoneAndNotReplaced) {
    program.link.portChoices.noteNothingChosen();
    program.link.portChoices.remember({QStringLiteral("ttyUSB3"), {}});
    portList.plugged = {{.name = QStringLiteral("ttyUSB0"), .description = {}, .manufacturer = {}, .isAdapter = true}};
    const auto& gone = find<QLabel>("PortProblem1");
    program.link.portChoices.refresh();
    EXPECT_EQ(ports.device(1).toStdString(), "ttyUSB3");
    EXPECT_TRUE(gone.isVisible());
    EXPECT_EQ(gone.text().toStdString(), "ttyUSB3 is not there now. Plug it in, or choose another port.");
    portList.plugged.front().name = QStringLiteral("ttyUSB3");
    program.link.portChoices.refresh();
    EXPECT_FALSE(gone.isVisible());
    portList.plugged.clear();
    program.link.portChoices.refresh();
    EXPECT_TRUE(gone.isVisible());
    program.link.portChoices.choose(1, QStringLiteral("sim:trx"));
    EXPECT_FALSE(gone.isVisible());
}

TEST_F(RememberedTest, ARememberedDeviceThatCannotBeUsedIsLeftOut) {
    for (const char* device : {"my port", "ttyB", ""}) {
        program.link.portChoices.remember({QString::fromLatin1(device), {}});
        EXPECT_EQ(ports.device(1).toStdString(), "ttyA");
    }
    program.link.portChoices.remember({QStringLiteral("/dev/pts/3"), QStringLiteral("sim:trx?records=60")});
    program.link.portChoices.refresh();
    EXPECT_EQ(ports.device(1).toStdString(), "/dev/pts/3");
    EXPECT_EQ(ports.device(2).toStdString(), "sim:trx?records=60");
    EXPECT_FALSE(find<QLabel>("PortProblem1").isVisible()) << "the list of ports has no paths";
    EXPECT_FALSE(find<QLabel>("PortProblem2").isVisible()) << "nor every simulation";
}

TEST_F(RememberedTest, PortsThatHaveChangedPlacesComeBack) {
    const auto devices = [this] { return ports.device(1).toStdString() + ' ' + ports.device(2).toStdString(); };
    const auto remember = [this](const char* one, const char* two) {
        program.link.portChoices.remember({QString::fromLatin1(one), QString::fromLatin1(two)});
    };
    remember("ttyB", "ttyA");
    EXPECT_EQ(devices(), "ttyB ttyA");
    remember("ttyC", "ttyC");
    EXPECT_EQ(devices(), "ttyC ttyA") << "of one device only the first";
    remember("my port", "ttyC");
    EXPECT_EQ(devices(), "ttyC ttyA");
}

TEST_F(RememberedTest, WindowsPageAndAxisComeBack) {
    const std::function<void(ProgramRig & rig)> ends[] = {[](ProgramRig& rig) { EXPECT_TRUE(rig.quit()); },
                                                          [](ProgramRig& rig) { rig.program.endUnasked(); }};
    QSize size(900, 611);
    std::pair<int, int> widths; // of two columns of the sheet
    for (const auto& end : ends) {
        size -= QSize(10, 10); // not that of the round before
        {
            const auto kept = start();
            ProgramRig rig;
            MainWindow first(rig.program, kept.get());
            first.show();
            first.prepareAllPages();
            first.resize(size);
            control<QComboBox>(first, "PlotAxis").setCurrentIndex(1);
            clickTab(control<QTabBar>(first, "TabStrip1"), 1);
            QCoreApplication::processEvents();
            auto& columns = control<QHeaderView>(first, "SheetColumns");
            columns.resizeSection(3, columns.sectionSize(3) + 25);
            widths = {columns.sectionSize(3), columns.sectionSize(4)};
            EXPECT_GT(widths.first, widths.second + 40);
            control<QTabBar>(first, "TabStrip1").setCurrentIndex(0);
            clickTab(control<QTabBar>(first, "TabStrip1"), 2);
            rig.program.showSettingsForm();
            first.settingsWindow()->resize(size - QSize(120, 111));
            end(rig);
        }
        const auto kept = start();
        ProgramRig rig;
        MainWindow second(rig.program, kept.get());
        second.show();
        EXPECT_EQ(second.size(), size);
        EXPECT_EQ(rig.program.pages.shown.value(), Page::Graphical);
        EXPECT_EQ(control<QComboBox>(second, "PlotAxis").currentIndex(), 1);
        clickTab(control<QTabBar>(second, "TabStrip1"), 1);
        QCoreApplication::processEvents();
        const auto& columns = control<QHeaderView>(second, "SheetColumns");
        EXPECT_NEAR(columns.sectionSize(3), widths.first, 1);
        EXPECT_NEAR(columns.sectionSize(4), widths.second, 1);
        rig.program.showSettingsForm();
        EXPECT_EQ(second.settingsWindow()->size(), size - QSize(120, 111));
    }
}

TEST_F(RememberedTest, ColumnWidthsThatAreNoneAreLeftOut) {
    SharedColumns* columns = nullptr;
    QTableWidget table(1, 3);
    table.setHorizontalHeader(columns = new SharedColumns(&table));
    table.show();
    columns->setShares({30, 20, 10});
    for (const QList<int>& none : {QList<int>{}, {1, 2}, {1, 2, 3, 4}, {1, 0, 2}, {1, -5, 2}}) {
        columns->setShares(none);
        EXPECT_EQ(columns->shares(), (QList<int>{30, 20, 10}));
    }
    columns->setShares({2147483647, 2147483647, 2147483647});
    EXPECT_NEAR(columns->sectionSize(0), columns->sectionSize(2), 1);
}

TEST_F(RememberedTest, WithoutAnEarlierStartNothingIsTakenOver) {
    const auto kept = start();
    ProgramRig rig;
    MainWindow first(rig.program, kept.get());
    EXPECT_EQ(first.size(), QSize(1000, 680));
    EXPECT_EQ(rig.program.pages.shown.value(), Page::Status);
    kept->restorePorts(rig.program);
    EXPECT_EQ(rig.ports.device(1).toStdString(), "ttyA");
}

TEST_F(RememberedTest, FileDialogsOpenInTheFolderOfTheLastFileOfTheirKind) {
    const auto kept = start();
    ASSERT_TRUE(QDir(path("")).mkdir(QStringLiteral("deployments")));
    kept->keepFolder(QStringLiteral(".OCM"), path("deployments/a.OCM"));
    QuestionDialogs questions;
    questions.setParent(window.get());
    questions.setRemembered(kept.get());
    const auto folderOf = [&](const Question& question) {
        const Subscription asked = questions.ask(question, [](const QString&) {});
        return window->findChildren<QFileDialog*>().constLast()->directory().dirName().toStdString();
    };
    const QString title = QStringLiteral("Save as");
    EXPECT_EQ(folderOf(saveQuestion(title, {}, QStringLiteral(".OCM"), {})), "deployments");
    EXPECT_EQ(folderOf(openQuestion(title, QStringLiteral(".OCM"), {})), "deployments");
    EXPECT_EQ(kept->folder(QStringLiteral(".ODV")), QString()) << "another kind";
    ASSERT_TRUE(QDir(path("")).rmdir(QStringLiteral("deployments")));
    EXPECT_NE(folderOf(openQuestion(title, QStringLiteral(".OCM"), {})), "deployments") << "it is there no more";
}

TEST_F(RememberedTest, AChosenFileTellsTheFolder) {
    const auto kept = start();
    QuestionDialogs questions;
    questions.setParent(window.get());
    questions.setRemembered(kept.get());
    const Subscription asked = questions.ask(
        saveQuestion(QStringLiteral("Save as"), path("sheet.txt"), QStringLiteral(".txt"), {}), [](const QString&) {});
    QDialog& dialog = *window->findChildren<QFileDialog*>().constLast();
    dialog.accept();
    EXPECT_EQ(kept->folder(QStringLiteral(".txt")), QDir(path("")).absolutePath());
    EXPECT_EQ(kept->folder(QStringLiteral(".OCM")), QString());
}

} // namespace
} // namespace orv
