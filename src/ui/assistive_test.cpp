// SPDX-License-Identifier: GPL-3.0-or-later
// An assistive program changes the controls through their accessibility interfaces, without clicks and keys: a voice, a
// switch, a screen reader. What it changes is what the program works with.
#include "calibration/worksheet.h"
#include "testing/windowrig.h"
#include "ui/plotcanvas.h"
#include "ui/tabstrip.h"

#include <QAccessible>
#include <QComboBox>
#include <QListWidget>
#include <QRadioButton>

#include <map>

namespace orv {
namespace {

QAccessibleInterface& interfaceOf(QWidget& widget) {
    return *QAccessible::queryAccessibleInterface(&widget);
}

void act(QAccessibleInterface& interface, const QString& action) {
    ASSERT_NE(interface.actionInterface(), nullptr) << interface.text(QAccessible::Name).toStdString();
    ASSERT_TRUE(interface.actionInterface()->actionNames().contains(action))
        << interface.text(QAccessible::Name).toStdString();
    interface.actionInterface()->doAction(action);
}

/// The entry of a list or the tab of a strip with its action.
void act(QWidget& widget, int child, const QString& action) {
    QAccessibleInterface* part = interfaceOf(widget).child(child);
    ASSERT_NE(part, nullptr) << widget.objectName().toStdString() << ' ' << child;
    act(*part, action);
}

void toggle(QWidget& widget) {
    act(interfaceOf(widget), QAccessibleActionInterface::toggleAction());
}

/// What the program holds of each control that can be changed, by the control's object name.
using Records = std::map<std::string, std::function<std::string()>>;

std::string onOrOff(bool on) {
    return on ? "on" : "off";
}

class AssistiveTest : public WindowTest {
protected:
    AssistiveTest() {
        portList.plugged.push_back({QStringLiteral("ttyUSB0"), QString(), QString()});
        connectAndRead();
        window->settingsWindow()->close();
        for (const LightColour colour : {LightColour::Red, LightColour::Green, LightColour::Blue}) {
            program.calibration.shown.colour = colour;
            program.calibration.addInstrument();
        }
        program.toggleServiceMode();
    }

    template <typename Value>
    static void addText(Records& records, const QString& name, const QProperty<Value>& value) {
        records[name.toStdString()] = [&value] { return value.value().toStdString(); };
    }
    static void addFlag(Records& records, const char* name, const std::function<bool()>& isOn) {
        records[name] = [isOn] { return onOrOff(isOn()); };
    }

    template <std::size_t Rows>
    static void addGrid(Records& records, const std::array<BoxRow, Rows>& rows, const BoxGrid<Rows>& grid) {
        for (int row = 0; row < BoxGrid<Rows>::rowCount; ++row) {
            for (int channel = 0; channel < channelCount; ++channel) {
                addText(records, boxName(rows.at(static_cast<std::size_t>(row)), channel), grid.at(row, channel));
            }
        }
    }

    Records mainRecords() {
        Records records;
        CalibrationState& bench = program.calibration.shown;
        addText(records, QStringLiteral("Text37"), program.sheet.shown.fileName);
        addText(records, QStringLiteral("Text17"), bench.instrumentName);
        addGrid(records, worksheetRows, bench.worksheet);
        addGrid(records, referenceRows, bench.reference);
        for (int row = 0; row < 6; ++row) {
            addFlag(records, qPrintable(QStringLiteral("Option%1").arg(row + 3)),
                    [&bench, row] { return bench.selectedRow == row; });
        }
        for (const Light& light : lights) {
            addFlag(records, qPrintable(QStringLiteral("Option%1").arg(static_cast<int>(light.colour))),
                    [&bench, &light] { return bench.colour == light.colour; });
        }
        addFlag(records, "Check1", [this] { return debug.comm2Output.value(); });
        addFlag(records, "Option1", [this] { return debug.rawBuffer && !debug.showParsing; });
        addFlag(records, "Option2", [this] { return debug.showParsing && !debug.rawBuffer; });
        // Read by its button alone.
        records["DirectSendText"] = [this] { return find<QLineEdit>("DirectSendText").text().toStdString(); };
        // The plot's view is not the program's.
        addFlag(records, "Follow", [this] { return button("Follow").isChecked() && !button("ShowAll").isChecked(); });
        addFlag(records, "ShowAll", [this] { return button("ShowAll").isChecked() && !button("Follow").isChecked(); });
        auto* canvas = dynamic_cast<PlotCanvas*>(&find<QWidget>("Plot"));
        addFlag(records, "ChooseRange", [canvas] { return canvas->isChoosing(); });
        for (int curve = 0; curve < 4; ++curve) {
            addFlag(records, qPrintable(QStringLiteral("Curve%1").arg(curve + 1)),
                    [canvas, curve] { return canvas->graph(curve)->visible(); });
        }
        return records;
    }

    Records settingsRecords() {
        Records records;
        for (const Setting& setting : flagSettings) {
            addFlag(records, setting.control, [this, &setting] { return settings.record.value().*setting.flag; });
        }
        for (const Setting& setting : numberSettings) {
            records[setting.control] = [this, &setting] {
                return (settings.record.value().*setting.number).toStdString();
            };
        }
        for (int option = 1; option <= 4; ++option) {
            addFlag(records, qPrintable(QStringLiteral("SamplingOption%1").arg(option)), [this, option] {
                const bool glow = status.instrument == InstrumentType::Glow;
                return settings.samplingOption == option &&
                       settings.record.value().samplesPerPoint ==
                           samplingPresets(glow).at(static_cast<std::size_t>(option - 1)).samplesPerPoint;
            });
        }
        addFlag(records, "SyncTimeDate", [this] { return settings.syncTimeDate.value(); });
        addFlag(records, "AtFullMinute", [this] { return settings.atFullMinute.value(); });
        const std::pair<const char*, const char*> angles[] = {
            {"Text10", "Text13"}, {"Text8", "Text11"}, {"Text9", "Text12"}};
        for (std::size_t angle = 0; angle < std::size(angles); ++angle) {
            addText(records, QLatin1String(angles[angle].first), settings.trxCalibration.at(angle).offset);
            addText(records, QLatin1String(angles[angle].second), settings.trxCalibration.at(angle).scale);
        }
        addText(records, QStringLiteral("GlowOffset"), settings.glowCalibration.offset);
        addText(records, QStringLiteral("GlowScale"), settings.glowCalibration.scale);
        addFlag(records, "TrxProvideRawCounts", [this] { return settings.trxProvideRawCounts.value(); });
        addFlag(records, "CalcBValues", [this] { return !settings.trxProvideRawCounts; });
        addFlag(records, "GlowProvideRawCounts", [this] { return settings.glowProvideRawCounts.value(); });
        addFlag(records, "CalcConsentrationInUgL", [this] { return !settings.glowProvideRawCounts; });
        return records;
    }

    /// Changes every control of a window that is visible and enabled, and looks for it in the record. Notes what it has
    /// changed.
    void walk(QWidget& top, const Records& records) {
        QCoreApplication::processEvents();
        for (QWidget* widget : top.findChildren<QWidget*>()) {
            if (widget->window() != &top || !widget->isVisible() || !widget->isEnabled()) {
                continue;
            }
            const std::string name = widget->objectName().toStdString();
            if (auto* button = qobject_cast<QAbstractButton*>(widget); button != nullptr && button->isCheckable()) {
                ASSERT_TRUE(records.contains(name)) << name;
                const bool option = button->autoExclusive() || button->isChecked() == (records.at(name)() != "on");
                toggle(*button);
                EXPECT_EQ(records.at(name)(), onOrOff(button->isChecked())) << name;
                EXPECT_TRUE(button->isChecked() || !option) << name;
                changed.insert(name);
            } else if (auto* box = qobject_cast<QLineEdit*>(widget);
                       box != nullptr && !box->isReadOnly() &&
                       qobject_cast<QComboBox*>(box->parentWidget()) == nullptr) {
                ASSERT_TRUE(records.contains(name)) << name;
                for (const char* text : {"70", "8"}) {
                    interfaceOf(*box).setText(QAccessible::Value, QLatin1String(text));
                    EXPECT_EQ(records.at(name)(), text) << name;
                }
                interfaceOf(*box).editableTextInterface()->insertText(1, QStringLiteral("1"));
                EXPECT_EQ(records.at(name)(), "81") << name;
                interfaceOf(*box).editableTextInterface()->deleteText(0, 1);
                EXPECT_EQ(records.at(name)(), "1") << name;
                changed.insert(name);
            }
        }
    }

    void expectAllChanged(const Records& records) {
        for (const auto& [name, value] : records) {
            EXPECT_TRUE(changed.contains(name)) << name << " was not visited";
        }
    }

    std::set<std::string> changed;
};

TEST_F(AssistiveTest, EveryControlOfTheMainWindowReachesTheRecord) {
    program.run();
    receive("R\r\n");
    receiveRow();
    window->refreshNow();
    const Records records = mainRecords();
    for (int round = 0; round < 2; ++round) { // so that each option of a group is once not the chosen one
        onEachPage([&](const std::string& caption) {
            SCOPED_TRACE(caption);
            walk(*window, records);
        });
    }
    expectAllChanged(records);
}

TEST_F(AssistiveTest, EveryControlOfTheSettingsReachesTheRecord) {
    const Records records = settingsRecords();
    for (int round = 0; round < 2; ++round) {
        for (const InstrumentType type : {InstrumentType::Trx, InstrumentType::Glow}) {
            status.instrument = type;
            for (const char* tab : {"Modes", "Time and Date", "Control Bits", "Sampling", "Calibration"}) {
                SCOPED_TRACE(tab);
                walk(openSettings(tab), records);
            }
        }
    }
    expectAllChanged(records);
}

TEST_F(AssistiveTest, APressedTabOpensItsPage) {
    auto& upper = find<QTabBar>("TabStrip1");
    auto& lower = find<QTabBar>("TabStrip2");
    const std::pair<QTabBar*, int> presses[] = {{&upper, 1}, {&lower, 0}, {&upper, 1}, {&lower, 2}, {&upper, 0},
                                                {&lower, 2}, {&lower, 1}, {&upper, 2}, {&lower, 1}};
    for (const auto& [strip, tab] : presses) {
        act(*strip, tab, QAccessibleActionInterface::pressAction());
        EXPECT_EQ(program.pages.shown.value(), pageOfCaption(strip->tabText(tab))) << tab;
        EXPECT_TRUE(interfaceOf(*strip).child(tab)->state().selected) << tab;
        QTabBar& other = strip == &upper ? lower : upper;
        EXPECT_FALSE(interfaceOf(other).child(other.currentIndex())->state().selected);
    }
}

TEST_F(AssistiveTest, TheFirstTabOfTheSettingsIsOpenedByItsPress) {
    SettingsWindow& screen = openSettings();
    auto& tabs = control<QTabBar>(screen, "SettingsTabs");
    ASSERT_FALSE(control<QWidget>(screen, "ModesFrame").isVisible());
    act(tabs, 0, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(control<QWidget>(screen, "ModesFrame").isVisible());
    act(tabs, 3, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(control<QWidget>(screen, "SamplesFrame").isVisible());
}

TEST_F(AssistiveTest, ATabThatIsAddedLaterIsThere) {
    ChoiceTabBar strip({QStringLiteral("One")});
    ASSERT_EQ(interfaceOf(strip).childCount(), 1);
    strip.addTab(QStringLiteral("Two"));
    ASSERT_EQ(interfaceOf(strip).childCount(), 2) << "as when it is asked for while the strip is being made";
    EXPECT_EQ(interfaceOf(strip).child(1)->text(QAccessible::Name).toStdString(), "Two");
}

TEST_F(AssistiveTest, ATabTellsItsNamePlaceAndStrip) {
    auto& upper = find<QTabBar>("TabStrip1");
    QAccessibleInterface& strip = interfaceOf(upper);
    EXPECT_EQ(strip.role(), QAccessible::PageTabList);
    EXPECT_EQ(strip.text(QAccessible::Name).toStdString(), "Pages");
    for (int tab = 0; tab < upper.count(); ++tab) {
        QAccessibleInterface* part = strip.child(tab);
        ASSERT_NE(part, nullptr);
        EXPECT_EQ(part, strip.child(tab)) << "the same one each time";
        EXPECT_TRUE(part->isValid());
        EXPECT_EQ(part->role(), QAccessible::PageTab);
        EXPECT_EQ(part->text(QAccessible::Name), upper.tabText(tab));
        EXPECT_EQ(strip.indexOfChild(part), tab);
        EXPECT_EQ(part->parent(), &strip);
        const QPoint middle = part->rect().center();
        EXPECT_EQ(upper.tabAt(upper.mapFromGlobal(middle)), tab);
        EXPECT_EQ(strip.childAt(middle.x(), middle.y()), part);
    }
}

TEST_F(AssistiveTest, AnEntryOfTheInstrumentsIsShown) {
    showPage(QStringLiteral("Calibration"));
    auto& list = find<QListWidget>("List2");
    for (const int row : {2, 0, 1}) {
        act(list, row, QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(program.calibration.shown.current.value(), row);
        EXPECT_EQ(list.currentRow(), row);
        EXPECT_EQ(list.selectedItems().size(), 1);
    }
    act(list, 1, QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(list.item(1)->isSelected()) << "the instrument shown stays marked";
}

TEST_F(AssistiveTest, APortIsChosenByItsName) {
    program.closePort();
    program.setComm2Output(false); // its port is COM 2
    finish();
    for (const int number : {1, 2}) {
        auto& chooser = find<QComboBox>(qPrintable(QStringLiteral("PortChooser%1").arg(number)));
        ASSERT_TRUE(chooser.isEnabled());
        interfaceOf(*chooser.lineEdit()).setText(QAccessible::Value, QStringLiteral("sim:glow"));
        EXPECT_EQ(program.link.ports.device(number).toStdString(), "sim:glow");
        interfaceOf(*chooser.lineEdit()).setText(QAccessible::Value, QStringLiteral("no device"));
        EXPECT_EQ(program.link.ports.device(number).toStdString(), "sim:glow");
        EXPECT_TRUE(find<QLabel>(qPrintable(QStringLiteral("PortProblem%1").arg(number))).isVisible());
    }
}

TEST_F(AssistiveTest, AnEntryOfAChoosersListIsChosen) {
    program.closePort();
    finish();
    program.link.portChoices.refresh();
    auto& chooser = find<QComboBox>("PortChooser1");
    act(*chooser.view(), 2, QAccessibleActionInterface::toggleAction());
    QCoreApplication::processEvents();
    EXPECT_EQ(program.link.ports.device(1), chooser.itemData(2, Qt::EditRole).toString());

    showPage(QStringLiteral("Output: Graphical"));
    auto* canvas = dynamic_cast<PlotCanvas*>(&find<QWidget>("Plot"));
    for (const auto& [row, label] : {std::pair(1, "Time"), std::pair(0, "Record")}) {
        act(*find<QComboBox>("PlotAxis").view(), row, QAccessibleActionInterface::toggleAction());
        QCoreApplication::processEvents();
        window->refreshNow();
        EXPECT_EQ(canvas->xAxis->label().toStdString(), label);
    }
}

TEST_F(AssistiveTest, WhatTheProgramChangesIsNotTheOperatorsChoice) {
    openSettings("Sampling");
    change(settings.record, [](LoggerSettings& record) { record.samplesPerPoint = QStringLiteral("77"); });
    settings.samplingOption = 2;
    EXPECT_EQ(settings.record.value().samplesPerPoint.toStdString(), "77") << "only a choice writes the preset";
    said();
    debug.rawBuffer = true;
    EXPECT_EQ(said(), "");
    debug.rawBuffer = false;
    debug.showParsing = true;
    program.selectLowerTab(QStringLiteral("Debug Screen"));
    toggle(find<QRadioButton>("Option1"));
    EXPECT_EQ(said(), "Huh?\r");
    click("Option1");
    EXPECT_EQ(said(), "Huh?\r") << "once a click, also when it is chosen already";
}

} // namespace
} // namespace orv
