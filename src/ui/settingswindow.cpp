// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settingswindow.h"

#include "ui/settingspages.h"
#include "ui/widgets.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>

namespace orv {

namespace {

QString calibrationTab() {
    return QStringLiteral("Calibration");
}

QStringList tabCaptions() {
    return {QStringLiteral("Modes"), QStringLiteral("Time and Date"), QStringLiteral("Control Bits"),
            QStringLiteral("Sampling"), calibrationTab()};
}

} // namespace

SettingsWindow::SettingsWindow(Program& program, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , program_(program)
    , tabs_(new ChoiceTabBar(tabCaptions()))
    , frames_(new QStackedWidget)
    , noTabHint_(makeHint(QStringLiteral("NoTabHint"), QStringLiteral("Choose a tab to see its settings.")))
    , noTypeHint_(
          makeHint(QStringLiteral("NoTypeHint"), QStringLiteral("Connect an instrument to see its calibration.")))
    , frameOfTab_{{QStringLiteral("Modes"), addFrame(makeModesPage(program))},
                  {QStringLiteral("Time and Date"), addFrame(makeTimeAndDatePage(program))},
                  {QStringLiteral("Control Bits"), addFrame(makeControlBitsPage(program))},
                  {QStringLiteral("Sampling"), addFrame(makeSamplesPage(program))}}
    , trxFrame_(addFrame(makeTrxCalibrationPage(program)))
    , glowFrame_(addFrame(makeGlowCalibrationPage(program))) {
    setObjectName(QStringLiteral("LoggerSettings"));
    setWindowTitle(QStringLiteral("Logger Settings"));
    tabs_->setObjectName(QStringLiteral("SettingsTabs"));
    tabs_->setAccessibleName(QStringLiteral("Groups of settings"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(frames_, 1);
    layout->addLayout(makeButtons());
    makeTabShortcuts();
    clearforms();

    tabChosen_ = tabs_->tabChosen.subscribe([this](const QString& caption) { showFrame(caption); });
    bindings_.bind(program.session.status.instrument, [this](InstrumentType type) {
        // The frame stays when the type is only forgotten, so that nothing goes from under the operator's hands.
        if (chosen_ == calibrationTab() && type != InstrumentType::Unknown) {
            showFrame(chosen_);
        }
    });
    bindings_.bind(program.settings.visible, [this](bool on) {
        if (on) {
            present();
        } else {
            hide();
        }
    });
}

QWidget* SettingsWindow::addFrame(QWidget* frame) {
    frames_->addWidget(frame);
    return frame;
}

QWidget* SettingsWindow::makeHint(const QString& name, const QString& text) {
    auto* hint = new QLabel(text);
    hint->setObjectName(name);
    hint->setAlignment(Qt::AlignCenter);
    hint->setForegroundRole(QPalette::PlaceholderText);
    return addFrame(hint);
}

QLayout* SettingsWindow::makeButtons() {
    QPushButton* retrieve = makeButton(
        QStringLiteral("&Retrieve Settings"), QStringLiteral("RetrieveSettings"),
        [this] { program_.settingsCommands.retrieveSettings(); }, QStringLiteral("Retrieve settings from the logger"));
    QPushButton* apply = makeButton(
        QStringLiteral("&Apply Settings"), QStringLiteral("ApplySettings"),
        [this] { program_.settingsCommands.applySettings(); }, QStringLiteral("Send Settings to the logger"));
    QPushButton* closeButton = makeButton(
        QStringLiteral("&Close"), QStringLiteral("Close"),
        [this] {
            mainWindowWanted.tell();
            program_.settings.visible = false;
        },
        QStringLiteral("Verify that settings are correct before closing this window"));
    auto* row = new QHBoxLayout;
    row->addWidget(retrieve);
    row->addWidget(apply);
    row->addStretch(1);
    row->addWidget(closeButton);
    bindings_.bind(program_.session.commands.canCommand, [retrieve, apply](bool on) {
        retrieve->setEnabled(on);
        apply->setEnabled(on);
    });
    return row;
}

void SettingsWindow::makeTabShortcuts() {
    const auto step = [this](int by) {
        tabs_->choose(tabs_->isChosen() ? (tabs_->currentIndex() + by + tabs_->count()) % tabs_->count() : 0);
    };
    for (const auto& [key, by] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), this);
        connect(shortcut, &QShortcut::activated, this, [step, by = by] { step(by); });
    }
    for (int index = 0; index < tabs_->count(); ++index) {
        const QKeySequence keys(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + index));
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, index] { tabs_->choose(index); });
        tabs_->setTabToolTip(index, QStringLiteral("%1 (%2)").arg(tabs_->tabText(index), keys.toString()));
    }
}

void SettingsWindow::chooseTab(const QString& caption) {
    const auto index = static_cast<int>(tabCaptions().indexOf(caption));
    if (index >= 0) {
        tabs_->choose(index);
    }
}

void SettingsWindow::present() {
    program_.settings.visible = true;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SettingsWindow::clearforms() {
    frames_->setCurrentWidget(noTabHint_);
}

void SettingsWindow::showFrame(const QString& caption) {
    chosen_ = caption;
    frames_->setCurrentWidget(caption == calibrationTab() ? calibrationFrame()
                                                          : frameOfTab_.value(caption, noTabHint_));
}

QWidget* SettingsWindow::calibrationFrame() {
    switch (program_.session.status.instrument.value()) {
    case InstrumentType::Glow:
        return glowFrame_;
    case InstrumentType::Trx:
        return trxFrame_;
    case InstrumentType::Unknown:
        break;
    }
    return noTypeHint_;
}

void SettingsWindow::closeEvent(QCloseEvent* event) {
    program_.settings.visible = false;
    QWidget::closeEvent(event);
}

} // namespace orv
