// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/debugpage.h"

#include "testing/windowrig.h"

#include <QCheckBox>
#include <QListView>
#include <QRadioButton>

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
        const auto note = [this](const char* sign) {
            return [this, sign](const QModelIndex&, int first, int last) {
                changes << QStringLiteral("%1%2-%3").arg(QLatin1String(sign)).arg(first).arg(last);
            };
        };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, note("+"));
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model, note("-"));
        last = model.lastSelected.subscribe([this] { changes << QStringLiteral("last"); });
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
    Subscription last;
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
    EXPECT_TRUE(WindowRig::waitFor([this] { return model.rowCount() == 1; }, 5000));
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

/// The page in its window, in the service mode, with an open port and no debug output.
class DebugScreenTest : public WindowTest {
protected:
    DebugScreenTest() {
        program.setComm2Output(false);
        ports.open();
        program.toggleServiceMode();
        showPage(QStringLiteral("Debug Screen"));
    }

    std::string listed() const {
        QStringList entries;
        for (const QString& entry : debug.list.entries()) {
            entries << visibleText(entry, ControlSymbols::Pictures);
        }
        return entries.join(u'|').toStdString();
    }

    bool visible(const char* name) { return find<QWidget>(name).isVisible(); }
};

TEST_F(DebugScreenTest, AnEmptyListSaysHowToFillIt) {
    auto& hint = find<QLabel>("DebugListHint");
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
    auto& list = find<QListView>("DebugList");
    ASSERT_TRUE(waitFor([&list] { return list.model()->rowCount() == 1; }));
    EXPECT_FALSE(hint.isVisible());
    EXPECT_FALSE(hint.isVisibleTo(&list));
}

TEST_F(DebugScreenTest, RawBufferListsBlocks) {
    click("Option1");
    receive("abc\r\nde\r\n");
    EXPECT_EQ(listed(), "abc\u240d\u240ade\u240d\u240a");
    program.tick();
    EXPECT_EQ(debug.list.entries().size(), 1U);
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
        (option == std::string("Option1") ? debug.rawBuffer : debug.showParsing) = true;
        receive("abc\r\n");
    }
    EXPECT_EQ(listed(), "");
}

TEST_F(DebugScreenTest, TheControlsBelongToTheServiceMode) {
    for (const bool service : {true, false}) {
        for (const char* name : {"Check1", "Option1", "Option2", "DirectSendText", "DebugBuffer"}) {
            EXPECT_EQ(find<QWidget>(name).isHidden(), !service) << name;
            EXPECT_EQ(visible(name) && find<QWidget>(name).isEnabled(), service) << name;
        }
        program.toggleServiceMode();
    }
}

TEST_F(DebugScreenTest, RawBufferAnnouncesItselfShowParsingDoesNot) {
    click("Check1");
    ASSERT_TRUE(com2.isOpen());
    click("Option1");
    EXPECT_EQ(said(), "Huh?\r");
    click("Option2");
    EXPECT_EQ(said(), "");
    EXPECT_FALSE(debug.rawBuffer);
    EXPECT_FALSE(find<QRadioButton>("Option1").isChecked());
}

TEST_F(DebugScreenTest, ADebugPortThatCannotBeOpenedClearsTheBox) {
    com2.openReason = QStringLiteral("There is no such device.");
    auto& box = find<QCheckBox>("Check1");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        box.click();
        EXPECT_FALSE(box.isChecked()) << attempt;
        EXPECT_EQ(messages.shown.size(), static_cast<std::size_t>(attempt));
    }
}

TEST_F(DebugScreenTest, DirectSendKeepsTheText) {
    auto& box = find<QLineEdit>("DirectSendText");
    retype(box, "P 1");
    click("DirectSend");
    EXPECT_EQ(com1.allWritten(), "P 1");
    EXPECT_EQ(box.text().toStdString(), "P 1");
    press(box, Qt::Key_Return);
    EXPECT_EQ(com1.allWritten(), "P 1P 1");
}

TEST_F(DebugScreenTest, DirectSendOnAClosedPortOnlyAnnounces) {
    click("Check1");
    ports.close();
    retype(find<QLineEdit>("DirectSendText"), "P");
    click("DirectSend");
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_TRUE(com2.allWritten().endsWith("Direct Enter\r"));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DebugScreenTest, DirectSendWaitsForWhatIsUnderWay) {
    commands.activity = Activity::Collecting;
    EXPECT_FALSE(button("DirectSend").isEnabled());
    commands.activity = Activity::None;
    EXPECT_TRUE(button("DirectSend").isEnabled());
}

TEST_F(DebugScreenTest, TheNewestEntryIsSelected) {
    auto& list = find<QListView>("DebugList");
    click("Option2");
    receive("abc\r\nde\r\n");
    program.tick();
    static_cast<DebugListModel*>(list.model())->flush();
    EXPECT_EQ(list.currentIndex().row(), 1);
    EXPECT_EQ(list.currentIndex().data().toString().toStdString(), "de");
}

TEST_F(DebugScreenTest, StatusAndBufferFollow) {
    status.status = QStringLiteral("Connecting...");
    receive("abc");
    EXPECT_EQ(text("DebugStatus"), "Connecting...");
    EXPECT_TRUE(waitFor([this] { return text("DebugBuffer") == "3"; }, 5000)) << text("DebugBuffer");
}

TEST_F(DebugScreenTest, FramesAndTheirValuesFollow) {
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
    waitFor([this] { return text("Fluorometer output") == "77"; }, 5000);
    expectTexts({{"Scattering output at 125 degrees", "125.5"},
                 {"Reference detector", "4000"},
                 {"Fluorometer output", "77"},
                 {"Transmissometer output", ""},
                 {"Turbidity sensor output", ""}});
}

} // namespace
} // namespace orv
