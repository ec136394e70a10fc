// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"
#include "ui/tabstrip.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QtTest/QTest>

#include <algorithm>

namespace orv {
namespace {

std::string plain(QString text) {
    return text.remove(u'&').toStdString();
}

TEST_F(WindowTest, TheMenusHaveTheirItemsInOrder) {
    EXPECT_EQ(window->windowTitle().toStdString(), "ORV Host Program");
    std::string all;
    const std::function<void(const QList<QAction*>&, const std::string&)> walk = [&](const QList<QAction*>& actions,
                                                                                     const std::string& parent) {
        for (const QAction* action : actions) {
            if (!action->isSeparator()) {
                const std::string name = parent + plain(action->text());
                if (action->menu() != nullptr) {
                    walk(action->menu()->actions(), name + " > ");
                } else {
                    all += name + "\n";
                }
            }
        }
    };
    walk(window->menuBar()->actions(), "");
    EXPECT_EQ(all, "Operation > Start Communication > Auto Connect Comm 1\n"
                   "Operation > Start Communication > Auto Connect Comm 2\n"
                   "Operation > Start Communication > Manual Connect Comm 1\n"
                   "Operation > Start Communication > Maunal Connect Comm 2\n"
                   "Operation > Close Port\n"
                   "Operation > Quit\n"
                   "Processing > Download Stored Data: Save as Text\n"
                   "Processing > Download Stored Data: View with Host Program\n"
                   "Settings > Settings\n"
                   "Help > Contents\n"
                   "Help > Save Support File...\n"
                   "Help > About Orv Host ...\n");
}

TEST_F(WindowTest, TheConnectItemsStartTheirConnection) {
    const std::pair<const char*, const char*> items[] = {{"AutoConnect1", "Auto Open 1\rOpen port 1\r"},
                                                         {"AutoConnect2", "Auto Open 2\rOpen Port 2\r"},
                                                         {"ManualConnect1", "Manual 1 Start\r"},
                                                         {"ManualConnect2", "Manual 2 Start\r"}};
    com1.openReason = QStringLiteral("There is no such device.");
    for (const auto& [name, announcement] : items) {
        item(name).trigger();
        EXPECT_TRUE(said().starts_with(announcement)) << name;
        program.link.connection.fixit();
        said();
    }
}

TEST_F(WindowTest, OnlyTheProceduresMarkAConnectItem) {
    com1.openReason = QStringLiteral("There is no such device.");
    item("AutoConnect1").trigger();
    EXPECT_FALSE(item("AutoConnect1").isChecked());
    com1.openReason.clear();
    replies = {"V512\r"};
    int looks = 0;
    com1.dtrChanged = [&](bool) {
        ++looks;
        EXPECT_FALSE(item("AutoConnect1").isChecked()) << "only when the attempt has ended";
    };
    item("AutoConnect1").trigger();
    finish();
    com1.dtrChanged = nullptr;
    EXPECT_EQ(looks, 2);
    EXPECT_TRUE(item("AutoConnect1").isChecked());
    item("AutoConnect1").trigger();
    EXPECT_TRUE(item("AutoConnect1").isChecked()) << "a second click takes the mark away";
    item("ClosePort").trigger();
    EXPECT_FALSE(item("AutoConnect1").isChecked());
}

TEST_F(WindowTest, TheOtherItemsDoWhatTheyName) {
    connectAndRead();
    said();
    item("ShowSettingsForm").trigger();
    EXPECT_EQ(said(), "Show Settings Form\r");
    item("Contents").trigger();
    EXPECT_EQ(said(), "");
    item("DownloadText").trigger();
    EXPECT_EQ(said(), "F2 Click\r");
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen) << "cancelled";
    item("DownloadView").trigger();
    EXPECT_EQ(state.Ctrlscrn, Operation::Importing);
    item("ClosePort").trigger();
    EXPECT_TRUE(said().find("Close Port\r") != std::string::npos);
    EXPECT_FALSE(com1.isOpen());
}

TEST_F(WindowTest, AboutTellsTheVersionAndIsClosedByOk) {
    QCoreApplication::setApplicationVersion(QStringLiteral("4.5.6"));
    item("About").trigger();
    EXPECT_EQ(said(), "About\r");
    auto& dialog = find<QDialog>("AboutDialog");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(text("VersionLabel"), "Version 4.5.6");
    button("cmdOK").click();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(WindowTest, TheButtonsDoWhatTheyName) {
    connectAndRead();
    said();
    button("Command2").click();
    EXPECT_EQ(said(), "Run 1\rStart Running Profile\r");
    replies = {"V512\r"};
    button("ResetButton").click();
    EXPECT_TRUE(said().starts_with("Abort Run\rAbort Run Function\r"));
    finish();
    said();
    button("Command9").click();
    EXPECT_EQ(said(), "Clear Spread Sheet\r");
    button("Command10").click();
    EXPECT_EQ(said(), "Loading Spread Sheet\r");
    button("Command11").click();
    EXPECT_EQ(said(), "Save Spread Sheet\r");
}

TEST_F(WindowTest, WhatCanBePressedFollowsTheProcedures) {
    const auto enabled = [this] {
        std::string names;
        for (const char* name : {"AutoConnect1", "ManualConnect2", "ClosePort", "Quit", "DownloadView"}) {
            names += item(name).isEnabled() ? std::string(name) + " " : "";
        }
        for (const char* name : {"Command2", "ResetButton", "ResetShutterButton", "Command9", "Command11"}) {
            names += button(name).isEnabled() ? std::string(name) + " " : "";
        }
        return names;
    };
    program.link.connection.fixit();
    EXPECT_EQ(enabled(), "AutoConnect1 ManualConnect2 Quit ");
    connectAndRead();
    EXPECT_EQ(enabled(), "AutoConnect1 ClosePort Quit DownloadView "
                         "Command2 ResetButton ResetShutterButton Command9 Command11 ");
    program.run();
    EXPECT_EQ(enabled(), "ClosePort Quit ResetButton Command11 ") << "nothing that would disturb a run";
    receive("R\r\n");
    receiveRow();
    receive(">");
    EXPECT_EQ(enabled(), "AutoConnect1 ClosePort Quit DownloadView "
                         "Command2 ResetButton ResetShutterButton Command9 Command11 ");
    program.closePort();
    EXPECT_FALSE(button("ResetShutterButton").isVisibleTo(window.get()));
    EXPECT_FALSE(button("Command2").isEnabled());
    connectAndRead();
    EXPECT_TRUE(button("ResetShutterButton").isVisibleTo(window.get()));
}

TEST_F(WindowTest, TheMenusOfAKnownInstrumentComeAndGo) {
    const auto shown = [this] {
        std::string names;
        for (const QAction* action : window->menuBar()->actions()) {
            names += action->isVisible() ? plain(action->text()) + " " : "";
        }
        return names;
    };
    program.link.connection.fixit();
    EXPECT_EQ(shown(), "Operation Help ");
    connectAndRead();
    EXPECT_EQ(shown(), "Operation Processing Settings Help ");
    program.closePort();
    EXPECT_EQ(shown(), "Operation Help ");
}

TEST_F(WindowTest, TheStatusPageShowsTheSession) {
    expectTexts({{"Label20", "Offline"}, {"FirmwareLabel", "________"}, {"Label23", "________________"}});
    connectAndRead();
    waitFor([this] { return text("BufferLabel") == "1"; }, 5000);
    expectTexts({{"Label20", "Ready"},
                 {"InstrumentLabel", "TRX"},
                 {"FirmwareLabel", "512"},
                 {"Label23", "11/21/26"},
                 {"Label22", "9:30:14 AM"},
                 {"BufferLabel", "1"}});
    EXPECT_EQ(find<QLineEdit>("Text38").palette().color(QPalette::Base), QColor(Qt::transparent));
    EXPECT_EQ(button("ResetButton").toolTip().toStdString(),
              "Stops current collection and requires the instrument to be reset.");
}

TEST_F(WindowTest, TheValuesOfTheNewestRowAreAsWideAsTheyNeed) {
    QLabel* value = nullptr;
    const auto shows = [this, &value](const QString& text) {
        for (QLabel* label : find<QWidget>("StatusPage").findChildren<QLabel*>()) {
            value = label->accessibleName() == QLatin1String("Output") ? label : value;
        }
        return value != nullptr && value->text() == text;
    };
    program.sheet.data.setHeader({.letter = QStringLiteral("F"), .firmware = 310.0}, {QStringLiteral("Output")});
    for (const char* each : {"11111111111", "MMMMMMMMMMM", "1111111111111111", "MMMMMMMMMMMMMMMM", "1"}) {
        const QString text = QString::fromLatin1(each);
        program.sheet.data.appendRow({text});
        sheetState.counter = QString::number(program.sheet.data.rowCount());
        ASSERT_TRUE(waitFor([&] { return shows(text); }, 5000)) << each;
        EXPECT_GT(value->width(), value->fontMetrics().horizontalAdvance(text)) << each;
    }
    const int usual = value->width();
    QFont wider = window->font();
    wider.setLetterSpacing(QFont::AbsoluteSpacing, 9);
    window->setFont(wider);
    EXPECT_GT(value->width(), usual + 50);
}

class TabsTest : public WindowTest {
protected:
    std::string shownPages() {
        std::string names;
        for (const char* name : {"StatusPage", "SheetPage", "GraphicalPage"}) {
            names += find<QWidget>(name).isVisible() ? std::string(name) + " " : "";
        }
        return names;
    }

    QTabBar& upper = find<QTabBar>("TabStrip1");
    QTabBar& lower = find<QTabBar>("TabStrip2");
};

TEST_F(TabsTest, TheStripsHaveTheirCaptionsAndToolTips) {
    const auto captions = [](const QTabBar& strip) {
        std::string all;
        for (int index = 0; index < strip.count(); ++index) {
            all += strip.tabText(index).toStdString() + "|";
        }
        return all;
    };
    EXPECT_EQ(captions(upper), "Status and Controls|Output: Spread Sheet|Output: Graphical|");
    EXPECT_EQ(upper.toolTip().toStdString(), "Form Select Tabs.");
    EXPECT_EQ(captions(lower), "Debug Screen|Testing|Calibration|");
    EXPECT_EQ(lower.toolTip().toStdString(), "Special Tidelane Debug screens and Tools. Internal use only so far.");
    EXPECT_TRUE(upper.isVisible());
    EXPECT_FALSE(lower.isVisible());
}

TEST_F(TabsTest, EachUpperTabShowsItsPageAndSaysSo) {
    EXPECT_EQ(shownPages(), "StatusPage ");
    const std::pair<int, const char*> tabs[] = {{1, "SheetPage "}, {2, "GraphicalPage "}, {0, "StatusPage "}};
    for (const auto& [index, page] : tabs) {
        clickTab(upper, index);
        EXPECT_EQ(shownPages(), page);
        EXPECT_EQ(said(), "Tabstrip changing\r");
    }
}

TEST_F(TabsTest, TheFramesOfEachPageBeginAtOnePlace) {
    const auto begin = [this](const char* page) {
        QCoreApplication::processEvents();
        int least = window->width();
        for (const auto* frame : find<QWidget>(page).findChildren<QGroupBox*>()) {
            if (frame->isVisible()) {
                least = std::min(least, frame->mapTo(window.get(), QPoint()).x());
            }
        }
        return least;
    };
    const int usual = begin("StatusPage");
    clickTab(upper, 2);
    EXPECT_EQ(begin("GraphicalPage"), usual);
}

TEST_F(TabsTest, ALowerTabHidesTheUpperPageAndTheUpperTabBringsItBack) {
    program.toggleServiceMode();
    EXPECT_TRUE(lower.isVisible());
    clickTab(upper, 1);
    clickTab(lower, 1);
    EXPECT_EQ(program.pages.shown.value(), Page::Testing);
    EXPECT_EQ(shownPages(), "");
    clickTab(upper, 1);
    EXPECT_EQ(shownPages(), "SheetPage ");
    clickTab(lower, 1);
    EXPECT_EQ(program.pages.shown.value(), Page::Testing) << "the selected tab of a strip can be chosen again";
}

TEST_F(TabsTest, OnlyTheStripOfTheShownPageLooksChosen) {
    const auto looksChosen = [](QTabBar& strip) {
        auto& choice = dynamic_cast<ChoiceTabBar&>(strip);
        const bool chosen = choice.isChosen();
        const QImage before = strip.grab().toImage();
        choice.setChosen(false);
        const QImage unchosen = strip.grab().toImage();
        choice.setChosen(chosen);
        return before != unchosen;
    };
    program.toggleServiceMode();
    clickTab(upper, 1);
    EXPECT_TRUE(looksChosen(upper));
    EXPECT_FALSE(looksChosen(lower));
    clickTab(lower, 0);
    EXPECT_EQ(program.pages.shown.value(), Page::Debug);
    EXPECT_FALSE(looksChosen(upper));
    EXPECT_TRUE(looksChosen(lower));
    program.link.connection.fixit();
    EXPECT_TRUE(looksChosen(upper));
    EXPECT_FALSE(looksChosen(lower));
}

TEST_F(TabsTest, KeysChooseAStripsOwnTabAgain) {
    program.toggleServiceMode();
    clickTab(upper, 2);
    for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        said();
        press(lower, key);
        EXPECT_EQ(program.pages.shown.value(), Page::Debug) << key;
        EXPECT_EQ(said(), "");
        press(upper, key);
        EXPECT_EQ(shownPages(), "GraphicalPage ") << key;
        EXPECT_EQ(said(), "Tabstrip changing\r");
    }
    press(upper, Qt::Key_Left);
    EXPECT_EQ(shownPages(), "SheetPage ");
    press(upper, Qt::Key_Return);
    EXPECT_EQ(shownPages(), "SheetPage ");
}

TEST_F(TabsTest, OnlyCtrlAltHTogglesTheServiceMode) {
    QCoreApplication::processEvents();
    QApplication::setActiveWindow(window.get());
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(window->windowHandle(), key, modifiers);
    };
    press(Qt::Key_H, Qt::NoModifier);
    press(Qt::Key_H, Qt::ControlModifier);
    press(Qt::Key_H, Qt::AltModifier);
    press(Qt::Key_H, Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier);
    press(Qt::Key_G, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(state.trouble, 0);
    EXPECT_FALSE(lower.isVisible());
    press(Qt::Key_H, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(state.trouble, 1);
    EXPECT_TRUE(lower.isVisible());
    press(Qt::Key_H, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(state.trouble, 0);
    EXPECT_FALSE(lower.isVisible());
}

TEST_F(TabsTest, AResetComesBackToTheUpperStripsPage) {
    clickTab(upper, 1);
    program.toggleServiceMode();
    clickTab(lower, 2);
    program.link.connection.fixit();
    EXPECT_EQ(shownPages(), "SheetPage ");
}

/// Notes what a box says whenever it is painted.
class PaintedTexts : public QObject {
public:
    explicit PaintedTexts(QLineEdit& box)
        : box_(box) {
        box.installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            texts << box_.text();
        }
        return false;
    }

    QStringList texts;

private:
    QLineEdit& box_;
};

TEST_F(WindowTest, EachStepOfTheShutterResetIsPainted) {
    connectAndRead();
    auto& box = find<QLineEdit>("Text38");
    PaintedTexts painted(box);
    resetShutter();
    painted.texts.removeDuplicates();
    for (const char* step : {"Getting Settings 1", "Getting Settings 21", "Sending New Settings", "Moving Shutter",
                             "Moving Shutter 100", "Moving Shutter 30000", "Restoring Orignal Settings"}) {
        EXPECT_TRUE(painted.texts.contains(QLatin1String(step))) << step;
    }
    EXPECT_FALSE(box.isVisible());
}

TEST_F(WindowTest, ChangingPagesNeverChangesTheWindowsSize) {
    program.toggleServiceMode();
    const QStringList captions = upperCaptions() + lowerCaptions();
    const auto show = [this](const QString& caption) {
        showPage(caption);
        QCoreApplication::processEvents();
    };
    connectAndRead();
    program.run();
    receive("R\r\n");
    receiveRow();
    for (const QSize size : {QSize(1000, 680), QSize(800, 600)}) {
        show(captions.front());
        window->resize(size);
        QCoreApplication::processEvents();
        ASSERT_EQ(window->size(), size);
        for (const QString& from : captions) {
            for (const QString& to : captions) {
                show(from);
                show(to);
                ASSERT_EQ(window->size(), size) << qPrintable(from) << " to " << qPrintable(to);
            }
        }
    }
}

} // namespace
} // namespace orv
