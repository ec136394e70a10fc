// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotcanvas.h"

#include "base/files.h"
#include "testing/graphpagetest.h"
#include "ui/plotpicture.h"

#include <QClipboard>
#include <QDir>
#include <QPrintDialog>
#include <QPrinter>

#include <cstdlib>
#include <utility>

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
        button("PrintPicture").click();
        auto* dialog = page.findChild<QPrintDialog*>();
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_FALSE(dialog->isModal());
        answer(*dialog);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(page.findChild<QPrintDialog*>(), nullptr);
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

TEST_F(PlotPictureTest, OneIsMadeOfEachArrangementAfterTheOther) {
    for (const int arrangement : {1, 0, 2, 1, 2, 0}) {
        chooseArrangement(arrangement);
        const QImage picture = plotImage(canvas());
        ASSERT_NE(canvas().legend, nullptr) << "it went with a pane before " << arrangement;
        EXPECT_TRUE(shows(picture, paperTheme().curves[1])) << arrangement;
        EXPECT_EQ(canvas().axisRectCount(), arrangement == 1 ? 4 : 1);
        EXPECT_EQ(canvas().plotLayout()->rowCount(), arrangement == 1 ? 4 : 1);
    }
}

TEST_F(PlotPictureTest, ACancelledDialogDoesNothing) {
    const int before = canvas().drawings();
    answers.fileName.clear();
    item("SavePng").trigger();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(canvas().drawings(), before);
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST_F(PlotPictureTest, WhileItsNameIsChosenRowsComeAndNoOtherQuestionCanBeAsked) {
    answers.late = true;
    item("SavePng").trigger();
    EXPECT_FALSE(button("SavePicture").isEnabled());
    append(50);
    answers.answer(folder.path("a.png"));
    EXPECT_TRUE(button("SavePicture").isEnabled());
    EXPECT_TRUE(contentsOf(folder.path("a.png")).startsWith("\x89PNG"));
    EXPECT_EQ(canvas().graph(0)->dataCount(), 150) << "the rows since are on the picture";
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

TEST_F(PlotPictureTest, WhatWasSavedOrCopiedIsSaidUntilTheOperatorGoesOn) {
    const std::string before = text("PlotNote");
    save("SavePng", "bay.png");
    EXPECT_EQ(text("PlotNote"), "Saved to bay.png.");
    EXPECT_EQ(find<QLabel>("PlotNote").toolTip(), folder.path("bay.png"));
    appendAndDraw(1);
    EXPECT_EQ(text("PlotNote"), "Saved to bay.png.") << "rows that come in a run do not take it away";
    wheel(middle());
    EXPECT_EQ(text("PlotNote"), before);
    EXPECT_TRUE(find<QLabel>("PlotNote").toolTip().isEmpty());
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"a curve", [this] { curve(2).click(); }},
        {"the axis", [this] { chooseAxis(1); }},
        {"the view", [this] { chooseArrangement(1); }},
        {"the mode", [this] { follow().click(); }},
        {"a range", [this] { press(canvas(), Qt::Key_Escape); }},
        {"a run", [this] { commands.activity = Activity::Collecting; }},
        {"the rows", [this] {
             sheet.removeRows();
             appendAndDraw(5);
         }}};
    for (const auto& [what, change] : changes) {
        button("CopyPicture").click();
        EXPECT_EQ(text("PlotNote"), "Copied.") << what;
        change();
        EXPECT_EQ(text("PlotNote"), before) << what;
    }
    save("SavePng", "gone/a.png");
    EXPECT_EQ(text("PlotNote"), before) << "what failed is told as that";
}

TEST_F(PlotPictureTest, PrintsOnePageUnlessItIsCancelled) {
    const QString name = folder.path("page.pdf");
    print([](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.printer()->pageLayout().orientation(), QPageLayout::Landscape);
        dialog.reject();
    });
    EXPECT_FALSE(QFile::exists(name));
    print([this](QPrintDialog& dialog) {
        button("PrintPicture").click();
        EXPECT_EQ(page.findChildren<QPrintDialog*>().size(), 1) << "one dialog at a time";
        dialog.close();
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

class PlotPanesTest : public GraphPageTest {
protected:
    PlotPanesTest() {
        begin(50);
        chooseArrangement(1);
        settle();
    }
};

TEST_F(PlotPanesTest, InEachPaneTheCurveLiesOverTheGrid) {
    ASSERT_EQ(canvas().axisRectCount(), 4);
    for (const QCPAxisRect* pane : canvas().axisRects()) {
        for (const QCPAxis* axis : pane->axes()) {
            EXPECT_EQ(axis->grid()->layer()->name().toStdString(), "grid");
            EXPECT_EQ(axis->layer()->name().toStdString(), "axes");
        }
    }
    for (int graph = 0; graph < 4; ++graph) {
        EXPECT_GT(canvas().graph(graph)->layer()->index(), canvas().layer(QStringLiteral("grid"))->index());
    }
}

TEST_F(PlotPanesTest, InALowWindowTheyAreOfOneHeightAndNoLabelLiesOnAnother) {
    window->resize(window->width(), 600);
    settle();
    canvas().replot();
    ASSERT_LT(canvas().axisRect()->height(), 150);
    for (const QCPAxisRect* pane : canvas().axisRects()) {
        EXPECT_NEAR(pane->height(), canvas().axisRect()->height(), 2);
        const QCPAxis& values = *pane->axis(QCPAxis::atLeft);
        const QVector<double> ticks = values.tickVector();
        EXPECT_FALSE(ticks.isEmpty());
        for (qsizetype tick = 1; tick < ticks.size(); ++tick) {
            EXPECT_GE(values.coordToPixel(ticks[tick - 1]) - values.coordToPixel(ticks[tick]),
                      canvas().fontMetrics().height());
        }
    }
}

class PlotCurveTest : public GraphPageTest {
protected:
    PlotCurveTest() {
        layOut("V", 512);
        commands.activity = Activity::Collecting;
    }

    /// Draws rows of which only the first value is more than "?".
    void draw(int rows, const std::function<QString(int row)>& value, bool all = true) {
        sheet.removeRows();
        for (int row = 1; row <= rows; ++row) {
            sheet.appendRow({QString::number(row), QString(), QString(), value(row), gap, gap, gap});
        }
        page.refreshNow();
        if (all) {
            showAll().click();
        }
        picture = canvas().toPixmap().toImage();
    }

    /// Whether the first curve is seen within a few pixels of a value of a row.
    bool isSeen(int row, double value) {
        const QColor colour = canvas().graph(0)->pen().color();
        // Symbols are smooth and may have no pixel of the very colour.
        const auto resembles = [&colour](const QColor& other) {
            return std::abs(other.red() - colour.red()) + std::abs(other.green() - colour.green()) +
                       std::abs(other.blue() - colour.blue()) <
                   colourTolerance;
        };
        const QPoint at = pixel(row, value).toPoint();
        for (int x = at.x() - 5; x <= at.x() + 5; ++x) {
            for (int y = at.y() - 5; y <= at.y() + 5; ++y) {
                if (resembles(picture.pixelColor(x, y))) {
                    return true;
                }
            }
        }
        return false;
    }

    static constexpr int colourTolerance = 100;
    const QString gap = QStringLiteral("?");
    QImage picture;
};

TEST_F(PlotCurveTest, ASpikeBesideAGapIsSeenWhenManyRowsShareAPixel) {
    for (int spike = 0; spike < 40; ++spike) {
        const int at = 5000 + spike * 7;
        draw(20000, [&](int row) {
            const bool inGap = row >= at - 13 && row < at - 3;
            return row == at ? QStringLiteral("9000") : inGap ? gap : QStringLiteral("100");
        });
        EXPECT_TRUE(isSeen(at, 9000)) << at;
    }
}

TEST_F(PlotCurveTest, ANumberAloneBetweenGapsHasItsSymbol) {
    for (int alone = 1; alone <= 100; ++alone) {
        draw(100, [&](int row) { return row == alone ? QStringLiteral("500") : gap; });
        EXPECT_TRUE(isSeen(alone, 500)) << alone;
    }
}

TEST(PlotCurve, OfSymbolsThatWouldStandCloseTogetherOnlyTheFirstIsDrawn) {
    QCustomPlot plot;
    plot.setViewport(QRect(0, 0, 640, 400));
    auto* curve = new PlotCurve(plot.xAxis, plot.yAxis);
    curve->setScatterStyle(QCPScatterStyle::ssCircle);
    const auto symbolsAt = [curve] {
        QVector<QCPGraphData> points;
        curve->getOptimizedScatterData(&points, curve->data()->constBegin(), curve->data()->constEnd());
        std::string keys;
        for (const QCPGraphData& point : points) {
            keys += std::to_string(static_cast<int>(point.key)) + ' ';
        }
        return keys;
    };
    for (const int block : {0, 4000}) {
        for (int second = 0; second < 5; ++second) {
            curve->addData(block + second, 1.0);
        }
    }
    plot.yAxis->setRange(0, 2);
    plot.xAxis->setRange(-10, 5000);
    plot.replot();
    EXPECT_EQ(symbolsAt(), "0 4000 ");
    plot.xAxis->setRange(0, 20);
    plot.replot();
    EXPECT_EQ(symbolsAt(), "0 1 2 3 4 4000 4001 4002 4003 4004 ");
}

TEST_F(PlotCurveTest, EveryOneOfManyLoneNumbersIsSeen) {
    constexpr int rows = 4000;
    const auto value = [](int row) { return row * 37 % 1000; };
    draw(rows, [&](int row) { return row % 2 == 0 ? QString::number(value(row)) : gap; });
    for (int row = 2; row <= rows; row += 2) {
        EXPECT_TRUE(isSeen(row, value(row))) << row;
    }
}

TEST_F(PlotCurveTest, TheLineIsInterruptedByAGap) {
    draw(
        100, [&](int row) { return row == 50 ? gap : QString::number(row < 50 ? 0 : 1000); }, false);
    EXPECT_TRUE(isSeen(49, 0));
    EXPECT_TRUE(isSeen(51, 1000));
    EXPECT_FALSE(isSeen(50, 500));
    draw(
        100, [&](int row) { return QString::number(row * 10); }, false);
    EXPECT_TRUE(isSeen(50, 500)) << "it would be seen there";
}

} // namespace
} // namespace orv
