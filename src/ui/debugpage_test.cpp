// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/debugpage.h"

#include "program/program.h"
#include "testing/fakes.h"
#include "testing/screenchecks.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orv {

namespace {

TEST(VisibleText, ControlCharactersBecomePictures) {
    const auto visible = [](const QString& text) { return visibleText(text, ControlSymbols::Pictures); };
    EXPECT_EQ(visible(QStringLiteral("V512\r")), QStringLiteral("V512\u240d"));
    EXPECT_EQ(visible(QStringLiteral("a\r\nb\tc")), QStringLiteral("a\u240d\u240ab\u2409c"));
    EXPECT_EQ(visible(QString(QChar(0)) + QChar(0x1b) + QChar(0x7f)), QStringLiteral("\u2400\u241b\u2421"));
    EXPECT_EQ(visible(QStringLiteral(" ~\u00b5")), QStringLiteral(" ~\u00b5"));
}

TEST(VisibleText, OrArrowsAndNumbers) {
    const auto visible = [](const QString& text) { return visibleText(text, ControlSymbols::Arrows); };
    EXPECT_EQ(visible(QStringLiteral("a\r\nb\tc ~")), QStringLiteral("a\u21b5\u2193b\u2192c ~"));
    EXPECT_EQ(visible(QString(QChar(0)) + QChar(0x1b) + QChar(0x7f)), QStringLiteral("\\x00\\x1B\\x7F"));
}

class DebugListModelTest : public testing::Test {
protected:
    DebugListModelTest() {
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model,
                         [this](const QModelIndex&, int first, int last) {
                             changes << QStringLiteral("+%1-%2").arg(first).arg(last);
                         });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model,
                         [this](const QModelIndex&, int first, int last) {
                             changes << QStringLiteral("-%1-%2").arg(first).arg(last);
                         });
        model.lastSelected = [this] { changes << QStringLiteral("last"); };
    }

    void append(std::size_t count) {
        for (std::size_t entry = 0; entry < count; ++entry) {
            list.append(QString::number(next++));
        }
    }

    QString at(int row) const { return model.data(model.index(row), Qt::DisplayRole).toString(); }

    DebugList list;
    DebugListModel model{list};
    QStringList changes;
    int next = 0;
};

TEST_F(DebugListModelTest, TheViewHearsOfManyEntriesAtOnce) {
    append(3);
    list.selectLast();
    EXPECT_EQ(model.rowCount(), 0);
    model.flush();
    EXPECT_EQ(changes.join(u' ').toStdString(), "+0-2 last");
    EXPECT_EQ(at(2).toStdString(), "2");
    append(1);
    model.flush();
    model.flush();
    EXPECT_EQ(changes.join(u' ').toStdString(), "+0-2 last +3-3");
}

TEST_F(DebugListModelTest, TheViewSeesTheSymbolsTheEntryStays) {
    list.append(QStringLiteral("V512\r"));
    model.flush();
    EXPECT_EQ(at(0), QStringLiteral("V512\u240d"));
    model.setSymbols(ControlSymbols::Arrows);
    EXPECT_EQ(at(0), QStringLiteral("V512\u21b5"));
    EXPECT_EQ(list.entries().front(), QStringLiteral("V512\r"));
}

TEST_F(DebugListModelTest, ItHearsByItself) {
    append(1);
    QElapsedTimer patience;
    patience.start();
    while (model.rowCount() == 0 && patience.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(DebugListModelTest, AFullListLosesItsOldest) {
    append(DebugList::maximumEntries);
    model.flush();
    append(5);
    model.flush();
    EXPECT_EQ(changes.join(u' ').toStdString(), "+0-9999 -0-4 +9995-9999");
    EXPECT_EQ(model.rowCount(), 10000);
    EXPECT_EQ(at(0).toStdString(), "5");
    EXPECT_EQ(at(9999).toStdString(), "10004");
}

TEST_F(DebugListModelTest, EntriesThatCameAndWentUnseenAreNeverShown) {
    append(10);
    model.flush();
    append(DebugList::maximumEntries + 100);
    model.flush();
    EXPECT_EQ(changes.join(u' ').toStdString(), "+0-9 -0-9 +0-9999");
    EXPECT_EQ(at(0).toStdString(), "110");
    EXPECT_EQ(at(9999).toStdString(), "10109");
}

TEST_F(DebugListModelTest, AListFilledBeforeIsShown) {
    DebugList filled;
    filled.append(QStringLiteral("early"));
    const DebugListModel late(filled);
    EXPECT_EQ(late.rowCount(), 1);
}

TEST_F(DebugListModelTest, TheListOutlivesTheModel) {
    DebugList longLived;
    { const DebugListModel shortLived(longLived); }
    longLived.append(QStringLiteral("x"));
    longLived.selectLast();
    EXPECT_EQ(longLived.entries().size(), 1U);
}

} // namespace

namespace {

/// The page over the whole program, with the test at the far end of both ports.
class DebugScreenTest : public testing::Test {
protected:
    DebugScreenTest() {
        program.ports.setDevice(1, QStringLiteral("instrument"));
        program.ports.setDevice(2, QStringLiteral("debug"));
        program.ports.open();
        program.toggleServiceMode();
        program.selectLowerTab(QStringLiteral("Debug Screen"));
        page.resize(960, 560);
        page.show();
    }

    void receive(const char* bytes) {
        instrument->input += bytes;
        program.tick();
    }

    std::string listed() const {
        QStringList entries;
        for (const QString& entry : program.debug.list.entries()) {
            entries << visibleText(entry, ControlSymbols::Pictures);
        }
        return entries.join(u'|').toStdString();
    }

    void click(const char* name) { control<QAbstractButton>(page, name).click(); }
    bool visible(const char* name) { return control<QWidget>(page, name).isVisible(); }

    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    SteppedYield yield{clock};
    FakePort* instrument = nullptr;
    FakePort* debugPort = nullptr;
    QString debugPortReason;
    Program program{{.clock = clock,
                     .events = yield,
                     .messages = messages,
                     .questions = answers,
                     .makePort = [this](const QString& device) {
                         auto port = std::make_unique<FakePort>();
                         if (device == QLatin1String("debug")) {
                             port->openReason = debugPortReason;
                             debugPort = port.get();
                         } else {
                             instrument = port.get();
                         }
                         return port;
                     }}};
    DirectSend directSend{program.ports};
    DebugPage page{{.session = program.session,
                    .ports = program.ports,
                    .debug = program.debug,
                    .pages = program.pages,
                    .directSend = directSend,
                    .setComm2Output = [this](bool ticked) { program.setComm2Output(ticked); }}};
};

TEST_F(DebugScreenTest, IsOperableByKeyboardAndFits) {
    expectOperable(page);
    expectFits(page);
}

TEST_F(DebugScreenTest, AnEmptyListSaysHowToFillIt) {
    auto& hint = control<QLabel>(page, "DebugListHint");
    EXPECT_TRUE(hint.isVisible());
    EXPECT_EQ(hint.text().toStdString(),
              "Choose \"Raw Buffer\" or \"Show Parsing\" to list what the instrument sends.");
    receive("abc\r\n");
    EXPECT_TRUE(hint.isVisible());
    for (const char* option : {"Option1", "Option2"}) {
        click(option);
        EXPECT_EQ(hint.text().toStdString(), "Nothing has been received since.");
    }
    receive("abc\r\n");
    auto& list = control<QListView>(page, "DebugList");
    QElapsedTimer patience;
    patience.start();
    while (list.model()->rowCount() == 0 && patience.elapsed() < 60'000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    ASSERT_EQ(list.model()->rowCount(), 1);
    EXPECT_FALSE(hint.isVisible());
    EXPECT_FALSE(hint.isVisibleTo(&list));
}

TEST_F(DebugScreenTest, RawBufferListsBlocks) {
    click("Option1");
    receive("abc\r\nde\r\n");
    EXPECT_EQ(listed(), "abc\u240d\u240ade\u240d\u240a");
    program.tick();
    EXPECT_EQ(program.debug.list.entries().size(), 1U);
}

TEST_F(DebugScreenTest, ShowParsingListsLinesOneAPoll) {
    click("Option2");
    receive("abc\r\nde\r\n");
    EXPECT_EQ(listed(), "abc");
    program.tick();
    EXPECT_EQ(listed(), "abc|de");
}

TEST_F(DebugScreenTest, WithoutServiceModeNothingIsListed) {
    program.toggleServiceMode();
    for (const char* option : {"Option1", "Option2"}) {
        (option == std::string("Option1") ? program.debug.rawBuffer : program.debug.showParsing) = true;
        receive("abc\r\n");
    }
    EXPECT_EQ(listed(), "");
}

TEST_F(DebugScreenTest, TheControlsBelongToTheServiceMode) {
    for (const char* name : {"Check1", "Option1", "Option2", "DirectSendText", "DebugBuffer"}) {
        EXPECT_TRUE(visible(name)) << name;
    }
    program.toggleServiceMode();
    for (const char* name : {"Check1", "Option1", "Option2", "DirectSendText", "DebugBuffer"}) {
        EXPECT_TRUE(control<QWidget>(page, name).isHidden()) << name;
        EXPECT_FALSE(control<QWidget>(page, name).isEnabled()) << name;
    }
}

TEST_F(DebugScreenTest, RawBufferAnnouncesItselfShowParsingDoesNot) {
    click("Check1");
    ASSERT_NE(debugPort, nullptr);
    click("Option1");
    EXPECT_EQ(debugPort->allWritten(), "Huh?\r");
    click("Option2");
    EXPECT_EQ(debugPort->allWritten(), "Huh?\r");
    EXPECT_FALSE(program.debug.rawBuffer);
    EXPECT_FALSE(control<QRadioButton>(page, "Option1").isChecked());
}

TEST_F(DebugScreenTest, ADebugPortThatCannotBeOpenedClearsTheBox) {
    debugPortReason = QStringLiteral("There is no such device.");
    auto& box = control<QCheckBox>(page, "Check1");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        box.click();
        EXPECT_FALSE(box.isChecked()) << attempt;
        EXPECT_EQ(messages.shown.size(), static_cast<std::size_t>(attempt));
    }
}

TEST_F(DebugScreenTest, DirectSendKeepsTheText) {
    auto& box = control<QLineEdit>(page, "DirectSendText");
    type(box, "P 1");
    click("DirectSend");
    EXPECT_EQ(instrument->allWritten(), "P 1");
    EXPECT_EQ(box.text().toStdString(), "P 1");
    pressKey(box, Qt::Key_Return);
    EXPECT_EQ(instrument->allWritten(), "P 1P 1");
}

TEST_F(DebugScreenTest, DirectSendOnAClosedPortOnlyAnnounces) {
    click("Check1");
    program.ports.close();
    type(control<QLineEdit>(page, "DirectSendText"), "P");
    click("DirectSend");
    EXPECT_TRUE(instrument->writes.empty());
    EXPECT_TRUE(debugPort->allWritten().endsWith("Direct Enter\r"));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DebugScreenTest, DirectSendWaitsForWhatIsUnderWay) {
    program.session.commands.activity = Activity::Collecting;
    EXPECT_FALSE(control<QPushButton>(page, "DirectSend").isEnabled());
    program.session.commands.activity = Activity::None;
    EXPECT_TRUE(control<QPushButton>(page, "DirectSend").isEnabled());
}

TEST_F(DebugScreenTest, TheNewestEntryIsSelected) {
    auto& list = control<QListView>(page, "DebugList");
    click("Option2");
    receive("abc\r\nde\r\n");
    program.tick();
    static_cast<DebugListModel*>(list.model())->flush();
    EXPECT_EQ(list.currentIndex().row(), 1);
    EXPECT_EQ(list.currentIndex().data().toString().toStdString(), "de");
}

TEST_F(DebugScreenTest, StatusAndBufferFollow) {
    program.session.status.status = QStringLiteral("Connecting...");
    receive("abc");
    EXPECT_EQ(control<QLabel>(page, "DebugStatus").text().toStdString(), "Connecting...");
    EXPECT_EQ(control<QLabel>(page, "DebugBuffer").text().toStdString(), "3");
}

TEST_F(DebugScreenTest, FramesAndTheirValuesFollow) {
    DebugState& debug = program.debug;
    const std::vector<std::pair<const char*, QProperty<bool>*>> frames = {
        {"DebugFrame", &debug.debugFrameVisible},
        {"FluorometerFrame", &debug.fluorometerFrameVisible},
        {"OutputFrame", &debug.outputFrameVisible},
        {"TransmissometerFrame", &debug.transmissometerFrameVisible},
        {"TurbidityFrame", &debug.turbidityFrameVisible}};
    for (const auto& [name, shown] : frames) {
        *shown = true;
        EXPECT_TRUE(visible(name)) << name;
        *shown = false;
        EXPECT_FALSE(visible(name)) << name;
    }
    debug.outputFrameVisible = true;
    debug.scatteringOutputs[1] = QStringLiteral("125.5");
    debug.scatteringReference = QStringLiteral("4000");
    debug.fluorometerOutput = QStringLiteral("77");
    debug.transmissometerOutput = QStringLiteral("78");
    debug.turbidityOutput = QStringLiteral("79");
    EXPECT_EQ(control<QLabel>(page, "Scattering output at 125 degrees").text().toStdString(), "125.5");
    EXPECT_EQ(control<QLabel>(page, "Reference detector").text().toStdString(), "4000");
    EXPECT_EQ(control<QLabel>(page, "Fluorometer output").text().toStdString(), "77");
    EXPECT_EQ(control<QLabel>(page, "Transmissometer output").text().toStdString(), "78");
    EXPECT_EQ(control<QLabel>(page, "Turbidity sensor output").text().toStdString(), "79");
}

} // namespace

} // namespace orv
