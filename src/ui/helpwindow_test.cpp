// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/helpwindow.h"

#include "testing/windowrig.h"
#include "ui/guideview.h"
#include "ui/remembered.h"

#include <QDialog>
#include <QFileDialog>
#include <QImageReader>
#include <QListWidget>
#include <QMessageBox>
#include <QScrollBar>
#include <QTextBlock>
#include <QWindow>
#include <QtTest/QTest>

#include <algorithm>
#include <set>

namespace orv {
namespace {

QList<QWidget*> helpWindows() {
    QList<QWidget*> windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* window) { return window->objectName() != QLatin1String("UserGuide"); });
    return windows;
}

class HelpWindowTest : public WindowTest {
protected:
    QWidget& help() { return *helpWindows().value(0); }
    GuideView& view() { return control<GuideView>(help(), "GuideText"); }
    QListWidget& chapters() { return control<QListWidget>(help(), "GuideChapters"); }
    QLineEdit& findBox() { return control<QLineEdit>(help(), "GuideFind"); }
    bool isEnabled(const char* button) { return control<QPushButton>(help(), button).isEnabled(); }

    void openHelp() {
        item("Contents").trigger();
        QCoreApplication::processEvents();
    }

    /// The heading at the top.
    std::string shown() {
        QCoreApplication::processEvents();
        return view().headings().at(static_cast<std::size_t>(view().headingInView())).text.toStdString();
    }

    /// The heading that F1 leads to in a window.
    std::string helpIn(QWidget& active) {
        if (!helpWindows().isEmpty()) {
            view().goTo({});
        }
        QApplication::setActiveWindow(&active);
        QCoreApplication::processEvents();
        EXPECT_TRUE(active.isActiveWindow());
        QTest::keyClick(active.windowHandle(), Qt::Key_F1);
        return helpWindows().isEmpty() ? "no window" : shown();
    }

    void forEachFragment(const std::function<void(const QTextCharFormat&)>& look) {
        for (QTextBlock block = view().document()->begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                look(part.fragment().charFormat());
            }
        }
    }
};

TEST_F(HelpWindowTest, EveryScreenHasAChapter) {
    openHelp();
    std::set<QString> anchors;
    for (const GuideHeading& heading : view().headings()) {
        EXPECT_TRUE(anchors.insert(heading.anchor).second) << "twice: " << heading.text.toStdString();
    }
    EXPECT_GT(anchors.size(), 30U);
    for (const auto& [screen, anchor] : guideChapters()) {
        EXPECT_TRUE(anchors.contains(QLatin1String(anchor))) << screen;
    }
}

TEST_F(HelpWindowTest, TheListHasRoomForTheLongestHeading) {
    openHelp();
    EXPECT_GE(chapters().viewport()->width(), chapters().sizeHintForColumn(0));
    EXPECT_LT(chapters().width(), view().width());
}

TEST_F(HelpWindowTest, F1LeadsToTheChapterOfThePage) {
    std::map<std::string, std::string> chapterOf;
    program.toggleServiceMode();
    onEachPage([&](const std::string& caption) { chapterOf[caption] = helpIn(*window); });
    EXPECT_EQ(chapterOf, (std::map<std::string, std::string>{
                             {"Status and Controls", "Connect"},
                             {"Output: Spread Sheet", "The sheet"},
                             {"Output: Graphical", "The graphical page"},
                             {"Debug Screen", "Debug Screen"},
                             {"Testing", "Testing: reset the shutter"},
                             {"Calibration", "Calibration of a batch of TRX"},
                         }));
    connectAndRead();
    window->settingsWindow()->close();
    showPage(QStringLiteral("Status and Controls"));
    EXPECT_EQ(helpIn(*window), "Run: live data");
}

TEST_F(HelpWindowTest, F1LeadsToTheChapterOfTheSettingsTab) {
    status.instrument = InstrumentType::Trx;
    const std::pair<const char*, const char*> tabs[] = {{"", "Settings of the instrument"},
                                                        {"Modes", "Modes"},
                                                        {"Time and Date", "The instrument's clock"},
                                                        {"Control Bits", "Control Bits"},
                                                        {"Sampling", "Sampling"},
                                                        {"Calibration", "Calibration values and device files"}};
    for (const auto& [tab, heading] : tabs) {
        EXPECT_EQ(helpIn(openSettings(tab)), heading);
    }
    status.instrument = InstrumentType::Glow;
    EXPECT_EQ(helpIn(openSettings("Calibration")), "Calibration values and device files");
    control<QPushButton>(*window->settingsWindow(), "ViewCurrentSettingsTranscribedAsText").click();
    EXPECT_EQ(helpIn(control<QWidget>(*window->settingsWindow(), "PlainEnglish")), "Modes");
}

TEST_F(HelpWindowTest, F1LeadsToTheChapterOfTheDialog) {
    item("ManualConnect1").trigger();
    EXPECT_EQ(helpIn(find<QDialog>("ManualConnection")), "If the instrument does not answer: manual connection");
    progress.show();
    EXPECT_EQ(helpIn(find<QDialog>("Processing")), "Download: stored data");
    item("About").trigger();
    EXPECT_EQ(helpIn(find<QDialog>("AboutDialog")), "ORV Host: user guide");
    QMessageBox box(window.get());
    box.setModal(false);
    box.show();
    EXPECT_EQ(helpIn(box), "When something does not work");
    QFileDialog files(window.get());
    files.setOption(QFileDialog::DontUseNativeDialog);
    files.setModal(false);
    files.show();
    EXPECT_EQ(helpIn(files), "Files, and what happens after a crash");
    EXPECT_EQ(helpIn(help()), "ORV Host: user guide") << "from the guide itself to its beginning";
    EXPECT_EQ(helpWindows().size(), 1);
}

TEST_F(HelpWindowTest, TheMenuItemOpensOneWindowThatHoldsNothing) {
    EXPECT_TRUE(helpWindows().isEmpty()) << "it is made when it is wanted";
    openHelp();
    openHelp();
    ASSERT_EQ(helpWindows().size(), 1);
    EXPECT_FALSE(help().isModal());
    EXPECT_EQ(help().parentWidget(), nullptr) << "the main window can stand before it";
    QTest::keyClick(&help(), Qt::Key_Escape);
    EXPECT_FALSE(help().isVisible());
    openHelp();
    EXPECT_TRUE(help().isVisible());
    EXPECT_TRUE(quit());
    EXPECT_FALSE(help().isVisible()) << "it goes with the program";
}

TEST_F(HelpWindowTest, PicturesAreThereAndNoWiderThanTheView) {
    openHelp();
    int pictures = 0;
    forEachFragment([&](const QTextCharFormat& format) {
        if (format.isImageFormat()) {
            ++pictures;
            const QString name = format.toImageFormat().name();
            EXPECT_TRUE(QImageReader(QStringLiteral(":/guide/") + name).canRead()) << name.toStdString();
        }
    });
    EXPECT_GT(pictures, 20);
    for (const int width : {1500, 700}) {
        help().resize(width, 600);
        QCoreApplication::processEvents();
        EXPECT_LE(view().document()->size().width(), view().viewport()->width()) << width;
        EXPECT_FALSE(view().horizontalScrollBar()->isVisible()) << width;
    }
}

TEST_F(HelpWindowTest, APictureIsDrawn) {
    openHelp();
    view().goTo(QStringLiteral("the-graphical-page"));
    const QImage page = view().grab().toImage();
    std::set<QRgb> colours;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            colours.insert(page.pixel(x, y));
        }
    }
    EXPECT_GT(colours.size(), 600U) << "text alone has some hundred";
}

TEST_F(HelpWindowTest, EveryLinkLeadsSomewhere) {
    openHelp();
    std::set<QString> anchors;
    for (const GuideHeading& heading : view().headings()) {
        anchors.insert(u'#' + heading.anchor);
    }
    int links = 0;
    forEachFragment([&](const QTextCharFormat& format) {
        if (const QString link = format.anchorHref(); !link.isEmpty()) {
            ++links;
            EXPECT_TRUE(anchors.contains(link) || link.startsWith(QLatin1String("https://"))) << link.toStdString();
        }
    });
    EXPECT_GT(links, 15);
}

TEST_F(HelpWindowTest, BackAndForwardLeadWhereOneWas) {
    showPage(QStringLiteral("Output: Spread Sheet"));
    openHelp();
    EXPECT_FALSE(isEnabled("GuideForward"));
    view().goTo(QStringLiteral("keys"));
    EXPECT_EQ(shown(), "Keys");
    control<QPushButton>(help(), "GuideBack").click();
    EXPECT_EQ(shown(), "The sheet");
    EXPECT_TRUE(isEnabled("GuideForward"));
    QTest::keyClick(&help(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(shown(), "Keys");
    EXPECT_FALSE(isEnabled("GuideForward"));
}

TEST_F(HelpWindowTest, TheListOfChaptersLeadsAndFollows) {
    openHelp();
    const auto& headings = view().headings();
    ASSERT_EQ(chapters().count(), static_cast<int>(headings.size()));
    for (int row = 0; row < chapters().count(); ++row) {
        chapters().setCurrentRow(row);
        EXPECT_EQ(chapters().currentRow(), row);
        const QTextCursor cursor = view().textCursor();
        EXPECT_EQ(cursor.position(), headings.at(static_cast<std::size_t>(row)).position);
        EXPECT_TRUE(view().viewport()->rect().contains(view().cursorRect(cursor).center())) << row;
    }
    chapters().setCurrentRow(7);
    view().verticalScrollBar()->setValue(0);
    EXPECT_EQ(chapters().currentRow(), 0);
}

TEST_F(HelpWindowTest, ATextIsFoundAgainAndAgain) {
    openHelp();
    QTest::keyClick(&help(), Qt::Key_F, Qt::ControlModifier);
    enter(findBox(), "Calc Consentration");
    const int first = view().textCursor().position();
    EXPECT_EQ(view().textCursor().selectedText().toStdString(), "Calc Consentration");
    EXPECT_TRUE(view().viewport()->rect().contains(view().cursorRect().center()));
    EXPECT_LT(view().cursorRect().top(), view().viewport()->height() / 2) << "with what follows";
    EXPECT_EQ(chapters().currentRow(), view().headingOf(first));
    QTest::keyClick(&help(), Qt::Key_F3);
    EXPECT_GT(view().textCursor().position(), first);
    int turns = 0;
    while (view().textCursor().position() != first && ++turns < 20) {
        QTest::keyClick(&help(), Qt::Key_F3);
    }
    EXPECT_LT(turns, 20) << "after the last comes the first";
    control<QPushButton>(help(), "GuideFindPrevious").click();
    EXPECT_GT(view().textCursor().position(), first) << "before the first comes the last";
    enter(findBox(), "no such words");
    EXPECT_EQ(control<QLabel>(help(), "GuideFound").text().toStdString(), "Not found.");
    retype(findBox(), "x");
    EXPECT_EQ(control<QLabel>(help(), "GuideFound").text().toStdString(), "");
}

TEST_F(HelpWindowTest, WhatIsReadStaysWhenLettersOrWindowGrow) {
    openHelp();
    view().goTo(QStringLiteral("modes"));
    const double usual = view().font().pointSizeF();
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Plus}) {
        QTest::keyClick(&help(), key, Qt::ControlModifier);
        EXPECT_EQ(shown(), "Modes");
    }
    EXPECT_GT(view().font().pointSizeF(), usual + 2.0);
    help().resize(700, 500);
    EXPECT_EQ(shown(), "Modes");
    QTest::keyClick(&help(), Qt::Key_Minus, Qt::ControlModifier);
    QTest::keyClick(&help(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(view().font().pointSizeF(), usual);
    EXPECT_EQ(shown(), "Modes");
}

TEST_F(HelpWindowTest, LinksHaveTheColourOfTheDesktop) {
    openHelp();
    const auto colours = [this] {
        std::set<QRgb> found;
        forEachFragment([&found](const QTextCharFormat& format) {
            if (!format.anchorHref().isEmpty()) {
                found.insert(format.foreground().color().rgb());
            }
        });
        return found;
    };
    QPalette dark = help().palette();
    dark.setColor(QPalette::Link, QColor(90, 170, 250));
    EXPECT_NE(colours(), std::set<QRgb>{dark.color(QPalette::Link).rgb()});
    help().setPalette(dark);
    EXPECT_EQ(colours(), std::set<QRgb>{dark.color(QPalette::Link).rgb()});
}

TEST_F(HelpWindowTest, EveryControlCanBeReachedAndHasAName) {
    openHelp();
    EXPECT_EQ(findingsIn(help()), "");
    view().goTo(QStringLiteral("keys"));
    EXPECT_EQ(findingsIn(help()), "") << "with a way back";
}

TEST_F(HelpWindowTest, SizeIsRemembered) {
    Remembered kept(path("kept.ini"));
    const auto start = [&kept](const std::function<void(QWidget&)>& look) {
        ProgramRig rig;
        MainWindow main(rig.program, &kept);
        control<QAction>(main, "Contents").trigger();
        look(*helpWindows().value(0));
        EXPECT_TRUE(rig.quit());
    };
    start([](QWidget& guide) { guide.resize(777, 555); });
    start([](QWidget& guide) { EXPECT_EQ(guide.size(), QSize(777, 555)); });
}

} // namespace
} // namespace orv
