// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"
#include "testing/graphpagetest.h"
#include "ui/plotpicture.h"

#include <QClipboard>
#include <QDir>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>

namespace orv {
namespace {

class PlotPictureTest : public GraphPageTest {
protected:
    PlotPictureTest() { begin(100); }

    QByteArray save(const char* action, const char* name) {
        answers.fileName = folder.path(name);
        item(action).trigger();
        return QFile::exists(answers.fileName) ? contentsOf(answers.fileName) : QByteArray();
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

    /// Presses "Print Graph..." and answers the system's dialog.
    void print(const std::function<void(QPrintDialog& dialog)>& answer) {
        bool asked = false;
        QTimer::singleShot(0, window.get(), [&asked, answer] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            asked = true;
            answer(*dialog);
        });
        button("PrintPicture").click();
        EXPECT_TRUE(asked);
    }

    /// An answer that takes the program's page and prints it into a file.
    static auto printInto(const QString& name) {
        return [name](QPrintDialog& dialog) {
            dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
            dialog.printer()->setOutputFileName(name);
            dialog.done(QDialog::Accepted);
        };
    }
};

TEST_F(PlotPictureTest, EachFormatIsSavedUnderTheNameThatIsChosen) {
    sheetState.fileName = QStringLiteral("bay");
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
    setColours(Qt::black, Qt::white);
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
    EXPECT_EQ(canvas().graph(0)->pen().color(), plotTheme(page.palette()).curves[0]);
    EXPECT_TRUE(canvas().notAntialiasedElements().testFlag(QCP::aePlottables));
    curve(2).click();
    EXPECT_FALSE(shows(plotImage(canvas()), paperTheme().curves[1])) << "what is switched off is not in it";
}

TEST_F(PlotPictureTest, ACancelledDialogDoesNothing) {
    const int before = canvas().drawings();
    answers.fileName.clear();
    item("SavePng").trigger();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(canvas().drawings(), before);
    EXPECT_TRUE(folder.files().isEmpty());
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
    EXPECT_TRUE(folder.files().isEmpty()) << "nothing half written is left";
}

TEST_F(PlotPictureTest, CopyPutsThePictureOnTheClipboard) {
    QGuiApplication::clipboard()->clear();
    button("CopyPicture").click();
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), plotImage(canvas()).size());
    EXPECT_TRUE(shows(copied, paperTheme().curves[0]));
}

TEST_F(PlotPictureTest, PrintsOnePageUnlessItIsCancelled) {
    const QString name = folder.path("page.pdf");
    print([](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.printer()->pageLayout().orientation(), QPageLayout::Landscape);
        dialog.reject();
    });
    EXPECT_FALSE(QFile::exists(name));
    print(printInto(name));
    EXPECT_TRUE(contentsOf(name).startsWith("%PDF-1."));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PlotPictureTest, APrinterThatDoesNotTakeThePageIsTold) {
    print(printInto(folder.path("gone/page.pdf")));
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title.toStdString(), "Print Graph");
}

} // namespace
} // namespace orv
