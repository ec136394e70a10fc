// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"

#include "testing/expected.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QMouseEvent>
#include <QTabBar>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <set>

namespace orv {

void press(QWidget& widget, int key, const QString& text, Qt::KeyboardModifiers modifiers) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(&widget, &event);
    }
}

void type(QWidget& widget, const char* characters) {
    for (const char character : QByteArray(characters)) {
        press(widget, 0, QString(QLatin1Char(character)));
    }
}

void retype(QLineEdit& box, const char* text) {
    box.selectAll();
    type(box, text);
}

void enter(QLineEdit& box, const char* text) {
    retype(box, text);
    press(box, Qt::Key_Return);
}

namespace {

std::unique_ptr<QMouseEvent> leftButton(QEvent::Type type, const QWidget& widget, const QPointF& at) {
    const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    return std::make_unique<QMouseEvent>(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
}

} // namespace

void clickAt(QWidget& widget, const QPointF& at) {
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QApplication::sendEvent(&widget, leftButton(type, widget, at).get());
    }
}

void clickTab(QTabBar& tabs, int index) {
    clickAt(tabs, tabs.tabRect(index).center());
}

void postClick(QWidget& widget) {
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QCoreApplication::postEvent(&widget, leftButton(type, widget, widget.rect().center()).release());
    }
}

void tellFocus(QWidget& widget, QEvent::Type inOrOut, Qt::FocusReason reason) {
    QFocusEvent event(inOrOut, reason);
    QApplication::sendEvent(&widget, &event);
}

void expectOperableAndFits(const QWidget& page) {
    std::set<QString> keys;
    const auto takeKey = [&keys](const QString& text) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty()) {
            EXPECT_TRUE(keys.insert(key).second) << key.toStdString() << " stands for two controls";
        }
    };
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            takeKey(label->text());
        } else if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) {
            takeKey(frame->title());
        } else if (button != nullptr || qobject_cast<const QLineEdit*>(widget) != nullptr) {
            const std::string name = widget->objectName().toStdString();
            EXPECT_TRUE((widget->focusPolicy() & Qt::TabFocus) != 0) << name << " cannot be reached by Tab";
            EXPECT_FALSE(widget->toolTip().isEmpty()) << name << " has no tooltip";
            EXPECT_FALSE(widget->accessibleName().isEmpty() && name.empty() && button == nullptr) << "a nameless box";
            if (button != nullptr) {
                takeKey(button->text());
                EXPECT_FALSE(button->text().isEmpty()) << name;
            }
        }
    }
    constexpr QSize room(960, 560);
    EXPECT_LE(page.minimumSizeHint().width(), room.width());
    EXPECT_LE(page.minimumSizeHint().height(), room.height());
}

WindowRig::WindowRig() {
    eachMillisecond = [this] {
        // A whole turn of the event loop in each millisecond would take more time than the program.
        constexpr int betweenTurns = 10;
        if (++milliseconds_ % betweenTurns == 0) {
            QCoreApplication::processEvents();
        } else {
            QCoreApplication::sendPostedEvents();
        }
    };
    tickDebugOutput();
    window = std::make_unique<MainWindow>(program);
    window->show();
    window->prepareAllPages();
}

WindowRig::~WindowRig() {
    window.reset();
}

bool WindowRig::runUntil(const std::function<bool()>& reached, double longest) {
    for (qint64 left = std::llround(longest * 1000.0); left > 0 && !reached(); --left) {
        live(0.001);
    }
    return reached();
}

void WindowRig::showSheetWithEveryLine() {
    rows.addRow({.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:01"), .values = {QStringLiteral("9")}});
    rows.addRow({.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:01"), .values = {QStringLiteral("8")}});
    showPage(QStringLiteral("Output: Spread Sheet"));
    sheetState.saved = SavedRows{.count = 2, .file = QStringLiteral("/a/lake.txt")};
    item("FindText").trigger();
    item("SelectAllCells").trigger();
    EXPECT_TRUE(waitFor([this] { return find<QLabel>("SheetStatisticsHint").isHidden(); }));
}

void WindowRig::showPage(const QString& caption) {
    if (upperCaptions().contains(caption)) {
        program.selectUpperTab(caption);
    } else {
        program.selectLowerTab(caption);
    }
}

void WindowRig::expectTexts(std::initializer_list<std::pair<const char*, const char*>> labels) {
    expectEach(labels, [this](const char* name) { return text(name); });
}

void WindowRig::onEachPage(const std::function<void(const std::string& caption)>& look) {
    for (const QString& caption : upperCaptions() + lowerCaptions()) {
        showPage(caption);
        look(caption.toStdString());
    }
}

bool WindowRig::waitFor(const std::function<bool()>& reached, int patience) {
    QElapsedTimer passed;
    passed.start();
    while (!reached() && passed.elapsed() < patience) {
        QTimer wakeUp;
        wakeUp.start(1);
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return reached();
}

void WindowRig::pass(int milliseconds) {
    QElapsedTimer passed;
    passed.start();
    waitFor([&passed, milliseconds] { return passed.elapsed() >= milliseconds; });
}

SettingsWindow& WindowRig::openSettings(const char* tab) {
    program.showSettingsForm();
    SettingsWindow& screen = *window->settingsWindow();
    QCoreApplication::processEvents(); // a window that has just been shown takes the focus
    QApplication::setActiveWindow(&screen);
    QCoreApplication::processEvents();
    if (*tab != 0) {
        screen.chooseTab(QString::fromLatin1(tab));
        QCoreApplication::processEvents();
    }
    return screen;
}

} // namespace orv
