// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/language.h"
#include "testing/windowrig.h"
#include "ui/messageboxes.h"
#include "ui/settingswindow.h"
#include "ui/widgets.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace orv {
namespace {

/// The controls that have no access key of their own. Each entry is one more thing the keyboard reaches only by Tab.
QString exemption(const QWidget& control) {
    const auto isIn = [&control](const char* name) {
        for (const QWidget* parent = control.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
            if (parent->objectName() == QLatin1String(name)) {
                return true;
            }
        }
        return false;
    };
    const QString name = control.objectName();
    const bool box = qobject_cast<const QLineEdit*>(&control) != nullptr;
    if (box && isIn("Frame16")) {
        return QStringLiteral("18 boxes of the worksheet: the option button of their row has the key");
    }
    if (box && isIn("ReferenceFrame")) {
        return QStringLiteral("15 reference boxes: their frame has the key");
    }
    if (box && isIn("TrxCalibrationFrame") &&
        (name == QLatin1String("Text11") || name == QLatin1String("Text12") || name == QLatin1String("Text13"))) {
        return QStringLiteral("the second box of a row: the row's key leads to the first");
    }
    if (name == QLatin1String("fg1")) {
        return QStringLiteral("the sheet has no caption; the page is made of it");
    }
    return {};
}

/// The language is there before the window.
class InLanguage : public testing::WithParamInterface<const char*> {
    Language language_{QString::fromLatin1(GetParam())};
};

class AccessibilityTest : public InLanguage, public WindowTest {
protected:
    AccessibilityTest() {
        program.load();
        program.link.timer.setInterval(0);
    }

    void fillCalibration() {
        program.calibration.shown.instrumentName = QStringLiteral("TRX 1042");
        program.calibration.shown.colour = LightColour::Red;
        program.calibration.addInstrument();
        program.calibration.select(0);
    }
};

TEST_P(AccessibilityTest, EveryPageOfTheMainWindow) {
    const auto walkPages = [this](const char* when) {
        onEachPage([&](const std::string& caption) {
            QCoreApplication::processEvents();
            EXPECT_EQ(findingsIn(*window, exemption), "") << "on the page " << caption << ' ' << when;
        });
    };
    walkPages("offline");
    program.toggleServiceMode();
    walkPages("offline in service mode");
    connectAndRead();
    window->settingsWindow()->close();
    fillCalibration();
    walkPages("connected");
    program.run();
    receive("R\r\n");
    receiveRow();
    receiveRow();
    status.notice = QStringLiteral("A remark.");
    status.shutterProgress = Words::tr("Moving Shutter");
    status.shutterCountdown = QStringLiteral("12 s");
    walkPages("in a run");
}

TEST_P(AccessibilityTest, TheSheetWithEveryLineBelowIt) {
    connectAndRead();
    window->settingsWindow()->close();
    showSheetWithEveryLine();
    EXPECT_EQ(findingsIn(*window, exemption), "");
    program.clearAll();
    QCoreApplication::processEvents();
    ASSERT_TRUE(button("BringBack").isVisible());
    EXPECT_EQ(findingsIn(*window, exemption), "");
}

TEST_P(AccessibilityTest, EveryPageIsOperableByKeyboardAndFits) {
    for (const char* page : {"StatusPage", "GraphicalPage", "DebugScreen", "TestingPage", "CalibrationPage"}) {
        SCOPED_TRACE(page);
        expectOperableAndFits(find<QWidget>(page));
    }
}

TEST_P(AccessibilityTest, TheSmallestWindowIsTheSameOnEveryPage) {
    program.toggleServiceMode();
    program.link.portChoices.choose(1, QStringLiteral("sim:trx"));
    program.link.portChoices.choose(2, QStringLiteral("sim:glow"));
    QCoreApplication::processEvents();
    window->resize(1, 1);
    QCoreApplication::processEvents();
    const QSize least = window->size();
    EXPECT_GE(least.height(), 440);
    EXPECT_LE(least.height(), 490);
    EXPECT_GE(least.width(), 780);
    EXPECT_LE(least.width(), 800);
    const auto& tabs = find<QTabBar>("TabStrip1");
    onEachPage([&](const std::string& caption) {
        QCoreApplication::processEvents();
        EXPECT_EQ(window->size(), least) << caption;
        EXPECT_GE(tabs.width(), tabs.sizeHint().width()) << "the marker of a simulation takes the tabs' room";
    });
    showSheetWithEveryLine();
    QCoreApplication::processEvents();
    EXPECT_EQ(window->size(), least);
    EXPECT_EQ(findingsIn(*window, exemption), "");
}

TEST_P(AccessibilityTest, TheCalibrationPageFitsASmallScreen) {
    program.toggleServiceMode();
    fillCalibration();
    window->resize(800, 600);
    showPage(QStringLiteral("Calibration"));
    QCoreApplication::processEvents();
    const auto& page = find<QWidget>("CalibrationPage");
    ASSERT_TRUE(page.isVisible());
    EXPECT_EQ(window->size(), QSize(800, 600));
    constexpr int spare = 8; // the program's own style makes buttons a little higher
    EXPECT_LE(page.minimumSizeHint().height() + spare, page.parentWidget()->height());
    EXPECT_LE(page.minimumSizeHint().width(), page.parentWidget()->width());
}

TEST_P(AccessibilityTest, EveryTabOfTheSettings) {
    for (const InstrumentType type : {InstrumentType::Unknown, InstrumentType::Trx, InstrumentType::Glow}) {
        status.instrument = type;
        EXPECT_EQ(findingsIn(openSettings(), exemption), "") << "before a tab is chosen";
        for (const char* tab : {"Modes", "Time and Date", "Control Bits", "Sampling", "Calibration"}) {
            EXPECT_EQ(findingsIn(openSettings(tab), exemption), "")
                << "on the tab " << tab << " for " << instrumentName(type).toStdString();
        }
    }
    change(program.settings.shown.record,
           [](LoggerSettings& record) { record.pointsPerBlock = QStringLiteral("99999"); });
    program.settings.shown.modeRemark = Words::tr("Saved as %1.").arg(QStringLiteral("a.OCM"));
    for (const char* tab : {"Sampling", "Modes"}) {
        EXPECT_EQ(findingsIn(openSettings(tab), exemption), "") << "with a remark on " << tab;
    }
}

TEST_P(AccessibilityTest, ThePlainEnglishWindow) {
    SettingsWindow& settings = openSettings();
    control<QPushButton>(settings, "ViewCurrentSettingsTranscribedAsText").click();
    QCoreApplication::processEvents();
    auto& english = control<QWidget>(settings, "PlainEnglish");
    ASSERT_TRUE(english.isVisible());
    EXPECT_EQ(findingsIn(english, exemption), "");
}

TEST_P(AccessibilityTest, TheManualConnectionDialog) {
    item("ManualConnect1").trigger();
    auto& dialog = find<QDialog>("ManualConnection");
    ASSERT_TRUE(dialog.isVisible());
    EXPECT_EQ(findingsIn(dialog, exemption), "");
    ManualConnectionState& shown = program.link.manual.shown;
    shown.startVisible = true;
    shown.proceedVisible = true;
    shown.retryEnabled = true;
    EXPECT_EQ(findingsIn(dialog, exemption), "") << "with every button";
}

TEST_P(AccessibilityTest, TheProcessingDialog) {
    program.settings.progress.show();
    program.settings.progress.valueLabel = QStringLiteral("4711");
    auto& dialog = find<QDialog>("Processing");
    ASSERT_TRUE(dialog.isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(findingsIn(dialog, exemption), "");
}

TEST_P(AccessibilityTest, TheAboutDialog) {
    item("About").trigger();
    EXPECT_EQ(findingsIn(find<QDialog>("AboutDialog"), exemption), "");
}

TEST_P(AccessibilityTest, TheUserGuide) {
    item("Contents").trigger();
    QCoreApplication::processEvents();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == QLatin1String("UserGuide") && widget->isVisible()) {
            EXPECT_EQ(findingsIn(*widget, exemption), "");
            return;
        }
    }
    FAIL() << "no guide";
}

TEST_P(AccessibilityTest, MessagesAndQuestions) {
    MessageBoxes boxes;
    boxes.setParent(window.get());
    boxes.show({.title = QStringLiteral("Connection"),
                .text = QStringLiteral("The port cannot be opened."),
                .icon = Message::Icon::Exclamation});
    EXPECT_EQ(findingsIn(*window->findChild<QMessageBox*>(), exemption), "");
    delete window->findChild<QMessageBox*>();

    QuestionDialogs questions;
    questions.setParent(window.get());
    const Subscription question =
        questions.ask(yesNoQuestion(QStringLiteral("Save data?"), QStringLiteral("Do you want to save the data?")),
                      [](const QString&) {});
    auto* box = window->findChild<QMessageBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(findingsIn(*box, exemption), "");
}

INSTANTIATE_TEST_SUITE_P(Languages, AccessibilityTest, testing::Values("en", "de", "es", "fr"),
                         [](const auto& run) { return std::string(run.param); });

/// Windows with one thing amiss each, and what is to be said of them.
class WindowWalkTest : public testing::Test {
protected:
    WindowWalkTest() { speakLabelValues(); }

    template <typename Widget>
    Widget* add(const char* name, const char* text = "") {
        auto* widget = new Widget;
        widget->setObjectName(QString::fromLatin1(name));
        if (*text != 0) {
            widget->setProperty("text", QString::fromLatin1(text));
        }
        layout->addWidget(widget);
        return widget;
    }

    QLineEdit* addField(const char* name, const char* caption) {
        auto* label = add<QLabel>("", caption);
        auto* field = add<QLineEdit>(name);
        label->setBuddy(field);
        return field;
    }

    std::string findings() {
        window.show();
        QCoreApplication::processEvents();
        return findingsIn(window);
    }

    QWidget window;
    QVBoxLayout* layout = new QVBoxLayout(&window);
};

TEST_F(WindowWalkTest, AWindowInOrder) {
    addField("One", "&One");
    add<QPushButton>("Two", "&Two");
    add<QLabel>("Value", "12")->setAccessibleName(QStringLiteral("Rows"));
    EXPECT_EQ(findings(), "");
}

TEST_F(WindowWalkTest, ANamelessField) {
    add<QLineEdit>("One");
    EXPECT_EQ(findings(), "QLineEdit \"One\" has no accessible name\n"
                          "QLineEdit \"One\" has no caption with an access key");
}

TEST_F(WindowWalkTest, ANamelessButton) {
    add<QPushButton>("One");
    EXPECT_EQ(findings(), "QPushButton \"One\" has no accessible name\nQPushButton \"One\" has no access key");
}

TEST_F(WindowWalkTest, AValueThatTellsNothingOfItself) {
    add<QLabel>("Value", "12");
    EXPECT_EQ(findings(), "QLabel \"Value\" (12) shows a value and has no accessible name");
}

TEST_F(WindowWalkTest, AFieldWithoutAKey) {
    addField("One", "One");
    EXPECT_EQ(findings(), "QLineEdit \"One\" has no caption with an access key");
}

TEST_F(WindowWalkTest, AKeyTwice) {
    addField("One", "&One");
    add<QPushButton>("Other", "&Other");
    EXPECT_EQ(findings(), "QPushButton \"Other\" (&Other) has the access key Alt+O of QLabel without object name "
                          "(&One)");
}

TEST_F(WindowWalkTest, AHiddenButtonTakesNoKey) {
    addField("One", "&One");
    add<QPushButton>("Other", "&Other")->hide();
    EXPECT_EQ(findings(), "");
}

TEST_F(WindowWalkTest, AWayBack) {
    auto* lower = add<QPushButton>("Lower", "&Lower");
    auto* upper = add<QPushButton>("Upper", "&Upper");
    layout->removeWidget(lower);
    layout->addWidget(lower);
    ASSERT_EQ(lower->nextInFocusChain(), upper);
    EXPECT_EQ(findings(), "QPushButton \"Upper\" (&Upper) is reached by the Tab key only after QPushButton \"Lower\" "
                          "(&Lower), which stands behind it");
}

TEST_F(WindowWalkTest, AButtonThatTabPasses) {
    add<QPushButton>("One", "&One")->setFocusPolicy(Qt::ClickFocus);
    EXPECT_EQ(findings(), "QPushButton \"One\" (&One) is not reached by the Tab key");
}

TEST_F(WindowWalkTest, OneOptionOfAGroupIsEnough) {
    add<QRadioButton>("One", "&One")->setChecked(true);
    add<QRadioButton>("Two", "&Two")->setFocusPolicy(Qt::ClickFocus);
    EXPECT_EQ(findings(), "");
}

TEST_F(WindowTest, AValueIsSpokenWithItsName) {
    auto& status = find<QLabel>("Label20");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&status)->text(QAccessible::Name).toStdString(), "Status: Offline");
    program.link.session.status.status = QStringLiteral("Ready");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&status)->text(QAccessible::Name).toStdString(), "Status: Ready");
}

} // namespace
} // namespace orv
