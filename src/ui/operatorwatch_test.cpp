// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"

#include "base/captureformat.h"

#include <QAccessible>
#include <QComboBox>

namespace orv {
namespace {

class OperatorWatchTest : public WindowTest {
protected:
    /// What was done since the last call: control and value.
    std::string deeds() {
        const CaptureContents contents = readCapture(program.capture.supportFile());
        std::string text;
        for (std::size_t number = std::exchange(seen_, contents.entries.size() - 1); number < seen_; ++number) {
            if (contents.entries[number].kind == CaptureKind::Did) {
                const QJsonObject deed = contents.entries[number].value.toObject();
                const QString value = deed.value(QLatin1String("value")).toString();
                text += (deed.value(QLatin1String("control")).toString() +
                         (value.isEmpty() ? QString() : u'=' + value) + u' ')
                            .toStdString();
            }
        }
        return text;
    }

private:
    std::size_t seen_ = 0;
};

TEST_F(OperatorWatchTest, MenuItemsShortcutsButtonsAndTabsAreNoted) {
    item("About").trigger();
    EXPECT_EQ(deeds(), "About ");
    press(*window, Qt::Key_H, {}, Qt::ControlModifier | Qt::AltModifier);
    item("ServiceMode").trigger();
    EXPECT_EQ(deeds(), "ServiceMode ");
    showPage(QStringLiteral("Output: Spread Sheet"));
    EXPECT_EQ(deeds(), "");
    clickTab(find<QTabBar>("TabStrip1"), 1);
    EXPECT_EQ(deeds(), "TabStrip1=Output: Spread Sheet ");
    haveRows(1);
    clickAt(button("Command9"), button("Command9").rect().center());
    EXPECT_EQ(deeds(), "Command9 ");
    haveRows(1);
    button("Command9").setFocus();
    press(button("Command9"), Qt::Key_Space);
    EXPECT_EQ(deeds(), "Command9 ");
    haveRows(1);
    QAccessible::queryAccessibleInterface(&button("Command9"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    tellFocus(button("Command9"), QEvent::FocusOut); // releases it before the click
    waitFor([this] { return sheet.rowCount() == 0; });
    EXPECT_EQ(deeds(), "Command9 ");
}

TEST_F(OperatorWatchTest, WhatADeedBringsAboutStandsAfterIt) {
    connectAndRead();
    status.status = QStringLiteral("before");
    deeds();
    click("Command2");
    const CaptureContents contents = readCapture(program.capture.supportFile());
    std::vector<CaptureKind> kinds;
    for (const CaptureEntry& entry : contents.entries) {
        kinds.push_back(entry.kind);
    }
    const auto did = std::ranges::find(kinds, CaptureKind::Did);
    ASSERT_NE(did, kinds.end());
    EXPECT_EQ(std::count(did, kinds.end(), CaptureKind::Sent), 1);
}

TEST_F(OperatorWatchTest, TypedTextIsNotedOnceWhenTheOperatorGoesOn) {
    showPage(QStringLiteral("Output: Spread Sheet"));
    retype(find<QLineEdit>("Text37"), "lake");
    EXPECT_EQ(deeds(), "");
    haveRows(1);
    click("Command9");
    EXPECT_EQ(deeds(), "Text37=lake Command9 ");
    enter(find<QLineEdit>("Text37"), "/home/jo/sea");
    EXPECT_EQ(deeds(), "Text37=sea ");
    QAccessible::queryAccessibleInterface(&find<QLineEdit>("Text37"))
        ->setText(QAccessible::Value, QStringLiteral("pond"));
    EXPECT_TRUE(waitFor([this] { return program.capture.supportFile().contains("pond"); }));
    EXPECT_EQ(deeds(), "Text37=pond ");
}

TEST_F(OperatorWatchTest, SettingsAreNotedWithTheirValuesAndWhatTheProgramShowsIsNot) {
    connectAndRead();
    SettingsWindow& screen = openSettings("Sampling");
    deeds();
    change(settings.record, [](LoggerSettings& record) { record.samplesPerPoint = QStringLiteral("77"); });
    EXPECT_EQ(deeds(), "");
    retype(control<QLineEdit>(screen, "Text2"), "12");
    screen.chooseTab(QStringLiteral("Control Bits"));
    QAbstractButton& append = control<QAbstractButton>(screen, allSettings[5].control);
    append.click();
    append.click();
    EXPECT_EQ(deeds(), QStringLiteral("Text2=12 SettingsTabs=Control Bits %1=on %1=off ")
                           .arg(QLatin1String(allSettings[5].control))
                           .toStdString());
}

TEST_F(OperatorWatchTest, ChoosersAndDialogsAreNoted) {
    auto& chooser = find<QComboBox>("PortChooser1");
    deeds();
    chooser.setCurrentIndex(chooser.findText(QStringLiteral("sim:glow"), Qt::MatchStartsWith));
    Q_EMIT chooser.activated(chooser.currentIndex());
    EXPECT_EQ(deeds(), "PortChooser1=sim:glow ");
    item("About").trigger();
    find<QDialog>("AboutDialog").reject();
    EXPECT_EQ(deeds(), "About AboutDialog=closed ");
}

TEST_F(OperatorWatchTest, MenuSavesTheSupportFile) {
    answers.fileName = path("help.jsonl");
    item("SaveSupportFile").trigger();
    const CaptureContents contents = readCapture(contentsOf(path("help.jsonl")));
    EXPECT_EQ(contents.error, QString());
    EXPECT_EQ(contents.entries.back().kind, CaptureKind::State);
    EXPECT_EQ(messages.shown.size(), 1U);
}

} // namespace
} // namespace orv
