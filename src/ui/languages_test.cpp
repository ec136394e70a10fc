// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/language.h"
#include "program/devices.h"
#include "simulator/simulatedport.h"
#include "testing/windowrig.h"
#include "ui/helpwindow.h"
#include "ui/messageboxes.h"
#include "ui/operatorwatch.h"
#include "ui/settingswindow.h"
#include "ui/widgets.h"

#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QTableView>
#include <QTranslator>

namespace orv {
namespace {

/// A language of which each letter can be told from a plain one: what passes through the translation has no letter of
/// the Latin alphabet left, but for its arguments.
class WideLetters final : public QTranslator {
public:
    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* text, const char* /*comment*/, int /*n*/) const override {
        if (qstrcmp(context, "orv") != 0) {
            return {};
        }
        QString wide = QString::fromUtf8(text);
        for (QChar& character : wide) {
            constexpr char16_t offset = 0xfee0;
            if (character.unicode() < 0x80 && character.isLetter()) {
                character = QChar(static_cast<char16_t>(character.unicode() + offset));
            }
        }
        return wide;
    }
};

/// The language is there before the window.
class InWideLetters {
protected:
    InWideLetters() { QCoreApplication::installTranslator(&letters_); }

private:
    WideLetters letters_;
};

/// What remains of a text when everything is gone that is the same in each language: names, values and units.
QString untranslated(QString text) {
    static const QRegularExpression same(QStringLiteral(
        // Devices and what the tests type, files, the instruments and their columns.
        R"(\b(COM|tty[AB]|sim:(trx|glow)|TRX|GLOW|Data0|Ref|REF|Point|Output|Counts|lake\.txt|a\.OCM|Pulled)\b|)"
        R"(\b(Orvtemp\.tmp|log\.ohp)\b|\b[VF]\d+|)"
        // Units, formulas and times.
        R"(\b(ug/IC|u&g/IC|mC|Fchl|DP|AM|PM)\b)"));
    text.remove(same);
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{2,}"));
    return text.contains(word) ? text : QString();
}

class TranslationTest : public InWideLetters, public WindowTest {
protected:
    TranslationTest() { program.load(); }

    /// Fails for each text of what is in a window, shown or not, that has not passed through the translation.
    void expectTranslated(QWidget& window) {
        QCoreApplication::processEvents();
        look(window, window.windowTitle());
        lookAt(window);
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            lookAt(*widget);
        }
        for (QAction* action : window.findChildren<QAction*>()) {
            if (!action->objectName().isEmpty() && !action->objectName().startsWith(QLatin1String("qt_"))) {
                look(*action, action->text());
                look(*action, action->toolTip());
            }
        }
    }

    void expectTranslated(const Message& message) {
        EXPECT_EQ(untranslated(message.title.shown()).toStdString(), "") << message.text.toStdString();
        EXPECT_EQ(untranslated(message.text.shown()).toStdString(), "");
    }

private:
    static void look(const QObject& of, const QString& text) {
        EXPECT_EQ(untranslated(text).toStdString(), "")
            << of.metaObject()->className() << ' ' << of.objectName().toStdString();
    }

    static void lookAt(QWidget& widget) {
        if (isOfAnEditor(widget)) {
            return;
        }
        for (const char* property :
             {"text", "title", "toolTip", "accessibleName", "accessibleDescription", "placeholderText", "plainText"}) {
            // What is typed is nobody's text; a name of a file or a device.
            if (qobject_cast<QLineEdit*>(&widget) == nullptr || qstrcmp(property, "text") != 0) {
                look(widget, widget.property(property).toString());
            }
        }
        if (const auto* tabs = qobject_cast<QTabBar*>(&widget)) {
            for (int index = 0; index < tabs->count(); ++index) {
                look(*tabs, tabs->tabText(index));
            }
        }
        if (const auto* list = qobject_cast<QComboBox*>(&widget)) {
            for (int index = 0; index < list->count(); ++index) {
                look(*list, list->itemText(index));
            }
        }
    }

    /// The parts that Qt's own controls are made of.
    static bool isOfAnEditor(const QWidget& widget) {
        return widget.objectName().startsWith(QLatin1String("qt_")) ||
               qobject_cast<const QHeaderView*>(&widget) != nullptr ||
               qobject_cast<const QTabBar*>(widget.parentWidget()) != nullptr;
    }
};

TEST_F(TranslationTest, TheMainWindowAndItsDialogs) {
    expectTranslated(*window);
    program.toggleServiceMode();
    expectTranslated(*window);
    connectAndRead();
    expectTranslated(*window);
    status.clockOffset = -100;
    program.run();
    receive("R\r\n");
    receiveRow();
    receiveRow();
    live(12.0);
    EXPECT_NE(program.progress.late.value().toStdString(), "");
    expectTranslated(*window);
    program.reset();
    finish();
    expectTranslated(*window);
    item("About").trigger();
    expectTranslated(find<QDialog>("AboutDialog"));
}

TEST(Translation, TheButtonsOfTwoDialogsHaveTwoWords) {
    // What is pressed is recorded in English, found by what is shown.
    for (const char* language : {"de", "es", "fr"}) {
        QTranslator words;
        ASSERT_TRUE(words.load(QStringLiteral(":/language/orvhost_%1.qm").arg(QLatin1String(language))));
        const auto caption = [&words](const char* text, const char* comment = nullptr) {
            return words.translate("orv", text, comment).remove(u'&').toStdString();
        };
        EXPECT_NE(caption("&Quit", "of the dialog only"), caption("&Abort")) << language;
        EXPECT_NE(caption("&Quit", "of the dialog only"), "") << language;
    }
}

TEST_F(TranslationTest, TheSheetAndTheCurves) {
    connectAndRead();
    showSheetWithEveryLine();
    expectTranslated(*window);
    program.clearAll();
    expectTranslated(*window);
    showPage(QStringLiteral("Output: Graphical"));
    expectTranslated(*window);
}

TEST_F(TranslationTest, TheNameThatAPrintedFileIsOffered) {
    click("PrintPicture");
    auto* dialog = window->findChild<QPrintDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_NE(dialog->printer()->docName(), QString());
    EXPECT_EQ(untranslated(dialog->printer()->docName()).toStdString(), "");
    dialog->close();
}

TEST_F(TranslationTest, EveryTabOfTheSettings) {
    for (const InstrumentType type : {InstrumentType::Trx, InstrumentType::Glow, InstrumentType::Unknown}) {
        status.instrument = type;
        expectTranslated(openSettings("Calibration"));
    }
    settings.reported = LoggerSettings{.samplesPerPoint = QStringLiteral("7")};
    settings.record = LoggerSettings{.autoStart = true,
                                     .logEnabled = true,
                                     .samplesPerPoint = QStringLiteral("999"),
                                     .hoursBeforeBlock = QStringLiteral("3"),
                                     .pointsPerBlock = QStringLiteral("99999")};
    settings.modeRemark = Words::tr("Saved as %1.").arg(QStringLiteral("a.OCM"));
    for (const Lamp lamp : {Lamp::Reading, Lamp::Sending, Lamp::Sent, Lamp::Read, Lamp::Failed}) {
        settings.lamp = lamp;
        expectTranslated(openSettings("Sampling"));
    }
    SettingsWindow& screen = openSettings("Modes");
    for (const char* hours : {"0", "1", "3"}) {
        for (const char* points : {"0", "60"}) {
            for (const bool on : {false, true}) {
                settings.record = LoggerSettings{.autoStart = on,
                                                 .logEnabled = on,
                                                 .wakeUp = on,
                                                 .append = on,
                                                 .hoursBeforeBlock = QString::fromLatin1(hours),
                                                 .pointsPerBlock = QString::fromLatin1(points)};
                control<QPushButton>(screen, "ViewCurrentSettingsTranscribedAsText").click();
                expectTranslated(control<QWidget>(screen, "PlainEnglish"));
                expectTranslated(screen);
            }
        }
    }
}

TEST_F(TranslationTest, WhatIsToldAndAsked) {
    item("ManualConnect1").trigger();
    expectTranslated(find<QDialog>("ManualConnection"));
    click("ManualProceed");
    expectTranslated(find<QDialog>("ManualConnection"));
    click("ManualQuit");
    com1.openReason = QString();
    autoConnect(); // nobody answers
    expectTranslated(*window);
    expectTranslated(find<QDialog>("ManualConnection"));
    click("ManualQuit");
    connectAndRead();
    program.settings.progress.show();
    expectTranslated(find<QDialog>("Processing"));
    program.run();
    receive("R\r\n");
    receiveRow();
    com1.unplugged = true;
    live(1.0);
    program.saveAs();
    finish();
    ASSERT_FALSE(messages.shown.empty());
    MessageBoxes boxes;
    boxes.setParent(window.get());
    boxes.show(messages.shown.front());
    expectTranslated(*window->findChild<QMessageBox*>());
    delete window->findChild<QMessageBox*>();
    QuestionDialogs questions;
    questions.setParent(window.get());
    const Subscription question =
        questions.ask(yesNoQuestion(Words::tr("Save Data"), Words::tr("Data not Saved. Do you wish to save it now ?")),
                      [](const QString&) {});
    expectTranslated(*window->findChild<QMessageBox*>());
}

/// What is kept, compared or written stays English.
TEST_F(TranslationTest, WhatIsNotShownStaysEnglish) {
    connectAndRead();
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_NE(text("Label20"), "Ready");
    OperatorWatch watch(program.capture);
    button("Command2").click();
    const QByteArray capture = program.capture.supportFile();
    for (const QString& line : QString::fromUtf8(capture).split(u'\n')) {
        EXPECT_FALSE(line.contains(QRegularExpression(QStringLiteral("[\\x{ff21}-\\x{ff5a}]")))) << line.toStdString();
    }
    EXPECT_TRUE(capture.contains("\"Ready\"")) << capture.toStdString();
    EXPECT_TRUE(capture.contains("\"caption\":\"Run\"")) << capture.toStdString();
}

TEST(LanguageTest, EnglishNeedsNoTranslation) {
    EXPECT_EQ(languages().front().toStdString(), "en");
    const Language english(QStringLiteral("en"));
    EXPECT_EQ(Screen::tr("Ready").toStdString(), "Ready");
    EXPECT_TRUE(languages().contains(systemLanguage()));
}

TEST(LanguageTest, ALanguageLastsAsLongAsItsObject) {
    const QLocale before;
    {
        const Language german(QStringLiteral("de"));
        const Words words = Words::tr("%1 rows").arg(12);
        EXPECT_EQ(words.toStdString(), "12 rows");
        EXPECT_EQ(words.shown().toStdString(), "12 Zeilen");
        EXPECT_EQ(Screen::english(QStringLiteral("%1 Zeilen")).toStdString(), "%1 rows");
        EXPECT_EQ(QLocale().language(), QLocale::German);
    }
    EXPECT_EQ(QLocale(), before);
    EXPECT_EQ(Screen::tr("%1 rows").toStdString(), "%1 rows");
}

TEST(LanguageTest, WhatIsWrongWithADeviceIsToldInOneLanguage) {
    const Language german(QStringLiteral("de"));
    const std::pair<const char*, const char*> table[] = {
        {"sim:trx?rate=abc",
         "„sim:trx?rate=abc“ bezeichnet kein simuliertes Instrument. Die Option rate muss eine Zahl "
         "von 0.001 bis 1000 sein, nicht „abc“."},
        {"sim:glow?fault=x", "„sim:glow?fault=x“ bezeichnet kein simuliertes Instrument. Die Option fault muss einer "
                             "der Werte none, silent, late, garbage, cut, unplug, nocr, noise sein, nicht „x“."},
        {"sim:replay?file=nix.jsonl", "Die Mitschrift nix.jsonl kann nicht gelesen werden. Das System meldet: "},
        {"sim:replay?rate=1",
         "„sim:replay?rate=1“ bezeichnet keine Wiedergabe. Eine Option „rate“ gibt es nicht. Die Optionen sind "
         "file, speed."}};
    for (const auto& [device, problem] : table) {
        const std::string shown = deviceProblem(QString::fromLatin1(device)).shown().toStdString();
        EXPECT_TRUE(shown.starts_with(problem)) << shown; // what the system says follows
    }
    SystemClock clock;
    SimulatedPort port(parseSimulatorOptions(QStringLiteral("sim:trx?fault=unplug&after=0ms&baud=0")).options, clock);
    port.open();
    port.setDataTerminalReady(true);
    port.setDataTerminalReady(false);
    EXPECT_TRUE(WindowRig::waitFor([&port] { return !port.failure().isEmpty(); }));
    EXPECT_EQ(port.failure().shown().toStdString(),
              "Das Kabel des simulierten Instruments wurde gezogen. Erneutes Verbinden steckt es wieder ein.");
}

TEST_F(TranslationTest, TheColumnsOfTheProgram) {
    connectAndRead();
    program.run();
    receive("R\r\n");
    receiveRow();
    showPage(QStringLiteral("Output: Spread Sheet"));
    const QAbstractItemModel& model = *find<QTableView>("fg1").model();
    for (int column = 0; column < 3; ++column) {
        const QString shown = model.headerData(column, Qt::Horizontal).toString();
        EXPECT_FALSE(shown.isEmpty());
        EXPECT_EQ(untranslated(shown).toStdString(), "");
        EXPECT_EQ(shownColumn(sheet.header().value(column)).toStdString(), shown.toStdString());
    }
    EXPECT_EQ(sheet.header().first(3).join(u'|').toStdString(), "Data #|Date|Time");
    EXPECT_EQ(shownColumn(QStringLiteral("Ref")).toStdString(), "Ref");
}

TEST(LanguageTest, TheGuideTellsThatItIsInEnglish) {
    for (const QString& code : languages()) {
        const Language language(code);
        const HelpWindow guide;
        EXPECT_EQ(guide.findChild<QLabel*>(QStringLiteral("GuideLanguage")) == nullptr, code == QLatin1String("en"))
            << code.toStdString();
    }
}

TEST(LanguageTest, TheSheetAndTheCurvesFitASmallScreen) {
    constexpr int small = 800;
    for (const QString& code : languages()) {
        const Language language(code);
        WindowRig rig;
        for (const char* page : {"Output: Spread Sheet", "Output: Graphical"}) {
            rig.showPage(QString::fromLatin1(page));
            QCoreApplication::processEvents();
            EXPECT_LE(rig.window->minimumSizeHint().width(), small) << code.toStdString() << ' ' << page;
        }
    }
}

/// A port says "connect again", which the debug output replaces.
TEST(LanguageTest, EveryPortsReasonSpeaksOfConnectingAgainInTheSameWords) {
    for (const QString& code : languages()) {
        const Language language(code);
        for (const char* reason :
             {"There is no such device. Plug the adapter in, check the device's name, and connect again.",
              "It is not a serial port. Choose the device of the serial adapter and connect again.",
              "It is used by another program%1. Close that program, then connect again.",
              "The system says: %1. Unplug the adapter and plug it in again, then connect again."}) {
            EXPECT_TRUE(Screen::tr(reason).contains(Screen::tr("connect again")))
                << code.toStdString() << ": " << Screen::tr(reason).toStdString();
        }
    }
}

} // namespace
} // namespace orv
