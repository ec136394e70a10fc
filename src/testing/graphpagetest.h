// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/windowrig.h"
#include "ui/graphpage.h"
#include "ui/plotcanvas.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QWheelEvent>

namespace orv {

/// The page in its window, over a sheet that the test fills.
class GraphPageTest : public WindowTest {
protected:
    GraphPageTest() {
        showPage(QStringLiteral("Output: Graphical"));
        settle();
    }

    void layOut(const char* letter, double firmware) {
        const DataSheet::Type type{.letter = QString::fromLatin1(letter), .firmware = firmware};
        sheet.setHeader(type, headerRow(HeaderPlace::GridOnOpening, type.layout()));
    }

    /// Rows of a newer TRX, two in a second.
    void append(int rows) {
        for (int i = 0; i < rows; ++i) {
            const int row = sheet.rowCount() + 1;
            sheet.appendRow({QString::number(row), QStringLiteral("11/21/26"), timeText(row / 2),
                             QString::number(1000 + row), QString::number(2000 + row),
                             row == 5 ? QStringLiteral("?") : QString::number(3000), QString::number(4000)});
        }
    }

    static QString timeText(int second) {
        return QStringLiteral("%1:%2:%3")
            .arg(second / 3600)
            .arg(second / 60 % 60, 2, 10, QChar(u'0'))
            .arg(second % 60, 2, 10, QChar(u'0'));
    }

    /// Lets widgets take their room, which draws them.
    static void settle() {
        for (int round = 0; round < 5; ++round) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }

    void appendAndDraw(int rows) {
        append(rows);
        page.refreshNow();
    }

    /// So many rows of a newer TRX, drawn.
    void begin(int rows) {
        layOut("V", 512);
        appendAndDraw(rows);
    }
    /// The same in a run.
    void beginRun(int rows) {
        layOut("V", 512);
        commands.activity = Activity::Collecting;
        appendAndDraw(rows);
    }
    void chooseAxis(int index) { find<QComboBox>("PlotAxis").setCurrentIndex(index); }
    void chooseArrangement(int index) { find<QComboBox>("PlotArrangement").setCurrentIndex(index); }
    void setColours(const QColor& base, const QColor& text) {
        QPalette palette = page.palette();
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, text);
        page.setPalette(palette);
    }

    PlotCanvas& canvas() { return dynamic_cast<PlotCanvas&>(find<QWidget>("Plot")); }
    QCPRange places() { return canvas().xAxis->range(); }
    QPushButton& follow() { return button("Follow"); }
    QPushButton& showAll() { return button("ShowAll"); }
    QCheckBox& curve(int number) { return find<QCheckBox>(qPrintable(QStringLiteral("Curve%1").arg(number))); }
    std::string note() { return text("PlotNote"); }
    std::string hint() {
        for (int index = 0; index < canvas().itemCount(); ++index) {
            if (auto* item = qobject_cast<QCPItemText*>(canvas().item(index)); item != nullptr && item->visible()) {
                return item->text().toStdString();
            }
        }
        return {};
    }
    /// What the page shows of a row: title, record, date, time and the values.
    std::string readout() {
        std::string all;
        for (const char* name : {"ReadoutTitle", "ReadoutRecord", "ReadoutDate", "ReadoutTime"}) {
            all += text(name) + '|';
        }
        for (int value = 1; value <= canvas().graphCount(); ++value) {
            all += text(qPrintable(QStringLiteral("ReadoutValue%1").arg(value))) + '|';
        }
        return all;
    }

    void mouse(QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons buttons,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QMouseEvent event(type, at, canvas().mapToGlobal(at), button, buttons, modifiers);
        QApplication::sendEvent(&canvas(), &event);
    }
    void moveTo(const QPointF& at) { mouse(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton); }
    void drag(const QPointF& from, const QPointF& to, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        mouse(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton, modifiers);
        mouse(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, modifiers);
        mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton, modifiers);
    }
    void doubleClick(const QPointF& at) {
        clickAt(canvas(), at);
        mouse(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    }
    void wheel(const QPointF& at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWheelEvent event(at, canvas().mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&canvas(), &event);
    }
    QPointF middle() { return canvas().axisRect()->rect().center(); }
    QPointF pixel(double place, double value) {
        return {canvas().xAxis->coordToPixel(place), canvas().yAxis->coordToPixel(value)};
    }

    GraphPage& page = dynamic_cast<GraphPage&>(find<QWidget>("GraphicalPage"));
};

} // namespace orv
