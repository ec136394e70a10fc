// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/windowrig.h"
#include "ui/sheetpage.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTableView>
#include <QtTest/QTest>

namespace orv {

/// The sheet as an operator handles it, with the pointer and the keyboard.
class SheetSelectionTest : public WindowTest {
protected:
    SheetSelectionTest() {
        showPage(QStringLiteral("Output: Spread Sheet"));
        comeForward();
    }

    void run(std::initializer_list<const char*> angles) {
        connectAndRead();
        window->settingsWindow()->close();
        program.run();
        receive("R\r\n");
        for (const char* angle : angles) {
            receive(QByteArray("11/21/26\t2700\t") + angle + "\t20\t30\t40\r\n");
        }
        page.refreshNow();
        comeForward();
        grid.setFocus();
        QCoreApplication::processEvents();
        ASSERT_TRUE(window->isActiveWindow());
    }

    void comeForward() {
        QCoreApplication::processEvents(); // a window that has just been shown takes the focus
        QApplication::setActiveWindow(window.get());
        window->setFocus();
        QCoreApplication::processEvents();
    }

    QPoint at(int row, int column) const { return grid.visualRect(grid.model()->index(row, column)).center(); }
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, modifiers, at(row, column));
    }
    void moveTo(QPoint to) {
        QMouseEvent move(QEvent::MouseMove, to, grid.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(grid.viewport(), &move);
    }
    void drag(QPoint from, QPoint to) {
        QTest::mousePress(grid.viewport(), Qt::LeftButton, Qt::NoModifier, from);
        moveTo(to);
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    }
    void clickHeader(int column) {
        const QPoint place(grid.columnViewportPosition(column) + 5, 5);
        QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window->windowHandle(), key, modifiers);
        QCoreApplication::processEvents();
    }

    std::string copied(Qt::KeyboardModifiers more = Qt::NoModifier) {
        QGuiApplication::clipboard()->setText(QStringLiteral("nothing"));
        key(Qt::Key_C, Qt::ControlModifier | more);
        return QGuiApplication::clipboard()->text().toStdString();
    }

    /// A line of the statistics: count, mean, ....
    std::string figures(int line) {
        waitFor([this] { return find<QLabel>("SheetStatisticsHint").isHidden(); }, 1000);
        QStringList texts;
        for (const char* name : {"Count", "Mean", "Deviation", "Minimum", "Maximum"}) {
            const auto* label =
                window->findChild<QLabel*>(QStringLiteral("SheetStatistics%1%2").arg(QLatin1String(name)).arg(line));
            texts << (label != nullptr && label->isVisible() ? label->text() : QString());
        }
        return texts.join(u'|').toStdString();
    }

    SheetPage& page = dynamic_cast<SheetPage&>(find<QWidget>("SheetPage"));
    QTableView& grid = find<QTableView>("fg1");
};

/// The line of names over copied rows of a newer TRX.
inline constexpr const char* header = "Data #\tDate\tTime\t100\t125\t150\tRef\n";

} // namespace orv
