// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"
#include "testing/graphpagetest.h"
#include "ui/plotpicture.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace orv {
namespace {

class PlotPictureTest : public GraphPageTest {
protected:
    PlotPictureTest() {
        layOut("V", 512);
        appendAndDraw(100);
    }

    QByteArray save(const char* action, const char* name) {
        answers.fileName = folder.filePath(QString::fromLatin1(name));
        control<QAction>(page, action).trigger();
        QFile file(answers.fileName);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Whether a picture shows a colour anywhere.
    static bool shows(const QImage& image, const QColor& colour) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == colour) {
                    return true;
                }
            }
        }
        return false;
    }

    QTemporaryDir folder;
};

TEST_F(PlotPictureTest, EachFormatIsSavedUnderTheNameThatIsChosen) {
    shown.fileName = QStringLiteral("bay");
    EXPECT_TRUE(save("SavePng", "a.png").startsWith("\x89PNG\r\n\x1a\n"));
    EXPECT_TRUE(save("SavePdf", "a.pdf").startsWith("%PDF-1."));
    EXPECT_TRUE(save("SavePdf", "a.pdf").trimmed().endsWith("%%EOF"));
    const QByteArray svg = save("SaveSvg", "a.svg");
    EXPECT_TRUE(svg.startsWith("<?xml")) << svg.left(50).toStdString();
    EXPECT_TRUE(svg.contains("<polyline") || svg.contains("<path")) << "lines, not pixels";
    EXPECT_TRUE(svg.trimmed().endsWith("</svg>"));
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(),
              "Save Picture|bay.png|.png|*.png\nSave Picture|bay.pdf|.pdf|*.pdf\n"
              "Save Picture|bay.pdf|.pdf|*.pdf\nSave Picture|bay.svg|.svg|*.svg");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PlotPictureTest, TheNamesEndingDecidesTheFormatIfItTellsOne) {
    EXPECT_TRUE(save("SavePng", "b.PDF").startsWith("%PDF-1."));
    EXPECT_TRUE(save("SaveSvg", "b.picture").startsWith("<?xml"));
}

TEST_F(PlotPictureTest, APictureIsLightSmoothAndHasALegendWhateverTheScreen) {
    const QImage before = plotImage(canvas());
    QPalette dark = page.palette();
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    page.setPalette(dark);
    commands.activity = Activity::Collecting;
    page.refreshNow();
    follow().click();
    showAll().click();
    moveTo(pixel(50, 2500));
    const QImage after = plotImage(canvas());
    EXPECT_EQ(before, after) << "neither palette nor cursor nor a run change it";
    EXPECT_EQ(after.size().width(), 2000);
    EXPECT_EQ(after.pixelColor(2, 2), QColor(Qt::white));
    EXPECT_TRUE(shows(after, paperTheme().curves[1]));
    EXPECT_FALSE(canvas().legend->visible()) << "the screen has a legend of its own";
    EXPECT_EQ(canvas().plotLayout()->rowCount(), 1);
    EXPECT_EQ(canvas().graph(0)->pen().color(), plotTheme(dark).curves[0]);
    EXPECT_TRUE(canvas().notAntialiasedElements().testFlag(QCP::aePlottables));
    curve(2).click();
    EXPECT_FALSE(shows(plotImage(canvas()), paperTheme().curves[1])) << "what is switched off is not in it";
}

TEST_F(PlotPictureTest, ACancelledDialogDoesNothing) {
    const int before = canvas().drawings();
    answers.fileName.clear();
    control<QAction>(page, "SavePng").trigger();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(canvas().drawings(), before);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(PlotPictureTest, APictureThatCannotBeWrittenIsToldAndTheOldOneStays) {
    EXPECT_TRUE(save("SavePng", "gone/a.png").isEmpty());
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title.toStdString(), "Save Picture");
    const std::string text = messages.shown[0].text.toStdString();
    EXPECT_NE(text.find("gone/a.png"), std::string::npos) << text;
    EXPECT_NE(text.find("Choose another folder"), std::string::npos) << text;
    EXPECT_EQ(messages.shown[0].icon, Message::Icon::Exclamation);

    EXPECT_FALSE(writeWholeFile(folder.path(), "bytes").isEmpty()) << "a folder is no file";
    EXPECT_TRUE(QDir(folder.path()).isEmpty()) << "nothing half written is left";
}

TEST_F(PlotPictureTest, CopyPutsThePictureOnTheClipboard) {
    QGuiApplication::clipboard()->clear();
    control<QPushButton>(page, "CopyPicture").click();
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), plotImage(canvas()).size());
    EXPECT_TRUE(shows(copied, paperTheme().curves[0]));
}

TEST_F(PlotPictureTest, PrintsOnePageUnlessItIsCancelled) {
    const QString name = folder.filePath(QStringLiteral("page.pdf"));
    choosePrinter = [](QPrinter&) { return false; };
    control<QPushButton>(page, "PrintPicture").click();
    EXPECT_FALSE(QFile::exists(name));
    choosePrinter = [&name](QPrinter& printer) {
        EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(name);
        return true;
    };
    control<QPushButton>(page, "PrintPicture").click();
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("%PDF-1."));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PlotPictureTest, APrinterThatDoesNotTakeThePageIsTold) {
    choosePrinter = [this](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(QStringLiteral("gone/page.pdf")));
        return true;
    };
    control<QPushButton>(page, "PrintPicture").click();
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title.toStdString(), "Print Graph");
}

} // namespace
} // namespace orv
