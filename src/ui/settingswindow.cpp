// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settingswindow.h"

#include "base/words.h"
#include "settings/plainenglish.h"
#include "ui/messageboxes.h"
#include "ui/settingspages.h"
#include "ui/widgets.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>

namespace orv {

namespace {

/// A tab and its page, which stands at the same place in the stack.
struct Tab {
    const char* caption;
    QWidget* (*makePage)(Program& program);
};

constexpr Tab tabs[] = {{QT_TRANSLATE_NOOP("orv", "Modes"), makeModesPage},
                        {QT_TRANSLATE_NOOP("orv", "Time and Date"), makeTimeAndDatePage},
                        {QT_TRANSLATE_NOOP("orv", "Control Bits"), makeControlBitsPage},
                        {QT_TRANSLATE_NOOP("orv", "Sampling"), makeSamplesPage},
                        {QT_TRANSLATE_NOOP("orv", "Calibration"), makeTrxCalibrationPage}};
constexpr int calibrationTab = std::size(tabs) - 1;

/// Of more settings that are not sent some are only counted; their names have room in two lines.
constexpr qsizetype mostNamed = 4;

QStringList tabCaptions() {
    QStringList captions;
    for (const Tab& tab : tabs) {
        captions << QString::fromLatin1(tab.caption);
    }
    return captions;
}

QLabel* makeHint(const char* name, const QString& text) {
    auto* hint = new QLabel(text);
    hint->setObjectName(QLatin1String(name));
    hint->setAlignment(Qt::AlignCenter);
    hint->setForegroundRole(QPalette::PlaceholderText);
    return hint;
}

} // namespace

SettingsWindow::SettingsWindow(Program& program, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , program_(program)
    , tabs_(new ChoiceTabBar(tabCaptions()))
    , frames_(new QStackedWidget)
    , glowFrame_(makeGlowCalibrationPage(program))
    , noTypeHint_(makeHint("NoTypeHint", Screen::tr("Connect an instrument to see its calibration."))) {
    noTabHint_ = makePlaceholder();
    setObjectName(QStringLiteral("LoggerSettings"));
    setWindowTitle(Screen::tr("Logger Settings"));
    tabs_->setObjectName(QStringLiteral("SettingsTabs"));
    tabs_->setAccessibleName(Screen::tr("Groups of settings"));
    for (const Tab& tab : tabs) {
        frames_->addWidget(tab.makePage(program));
    }
    for (QWidget* frame : {glowFrame_, noTabHint_, noTypeHint_}) {
        frames_->addWidget(frame);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(frames_, 1);
    layout->addWidget(makeExchange());
    layout->addLayout(makeButtons());
    makeTabShortcuts();
    clearforms();

    tabChosen_ = tabs_->tabChosen.subscribe([this](const QString& /*caption*/) { showFrame(); });
    bindings_.bind(program.link.session.status.instrument, [this](InstrumentType type) {
        // The frame stays when the type is only forgotten, so that nothing goes from under the operator's hands.
        if (tabs_->isChosen() && tabs_->currentIndex() == calibrationTab && type != InstrumentType::Unknown) {
            showFrame();
        }
    });
    bindings_.bind(program.settings.shown.visible, [this](bool on) {
        if (!on) {
            hide();
        } else if (showUnasked(*this)) {
            present();
        }
    });
}

/// Before a tab is chosen: what the instrument will do with its settings.
QWidget* SettingsWindow::makePlaceholder() {
    auto* english = makeValueLabel("SettingsInEnglish", Screen::tr("The settings in plain English"));
    english->setWordWrap(true);
    auto* placeholder = new QWidget;
    auto* layout = new QVBoxLayout(placeholder);
    auto* hint = makeHint("NoTabHint", Screen::tr("Choose a tab to see its settings."));
    hint->setAlignment(Qt::AlignLeft);
    layout->addWidget(hint);
    layout->addSpacing(16);
    layout->addWidget(english);
    layout->addStretch(1);
    const SettingsState& shown = program_.settings.shown;
    const auto describe = [english, &shown] {
        QStringList sentences;
        for (const Words& line : inPlainEnglish(shown.record).lines) {
            if (!line.isEmpty()) {
                sentences << line.shown().simplified();
            }
        }
        english->setText(shown.reported.value() ? sentences.join(u'\n') : QString());
    };
    bindings_.bind(shown.record, [describe](const LoggerSettings&) { describe(); });
    bindings_.bind(shown.reported, [describe](const std::optional<LoggerSettings>&) { describe(); });
    return placeholder;
}

/// A line below every tab: what is waited for, else what is not sent yet, else how the last sending or reading went.
QWidget* SettingsWindow::makeExchange() {
    auto* line = makeTextLabel("SettingsExchange", Screen::tr("Settings"));
    line->setWordWrap(true);
    line->setMinimumHeight(2 * line->fontMetrics().lineSpacing()); // of most texts, so that nothing moves
    const SettingsState& shown = program_.settings.shown;
    const QProperty<Activity>& activity = program_.link.session.commands.activity;
    const QProperty<bool>& portOpen = program_.link.session.commands.portOpen;
    const auto tell = [line, &shown, &activity, &portOpen](auto&&) {
        const Words sync = Words::tr("Sync Time/Date");
        QList<Words> unsent = captionsOf(shown.unsent());
        if (shown.syncUnsent()) {
            unsent << sync;
        }
        if (activity == Activity::ResettingShutter) {
            line->setText(temporarySettings());
        } else if (shown.secondsToFullMinute > 0) {
            line->setText(shown.fullMinuteWait().shown() + u' ' +
                          Screen::tr("Reset on the page Status and Controls stops it."));
        } else if (!unsent.isEmpty() && activity != Activity::Sending && activity != Activity::SettingClock) {
            const qsizetype named = unsent.size() > mostNamed ? mostNamed - 1 : unsent.size();
            const QString names = join(unsent.first(named), QStringLiteral(", ")).shown();
            line->setText(Screen::tr("Changed and not sent yet: %1")
                              .arg(named == unsent.size()
                                       ? names
                                       : Screen::tr("%1 and %2 others").arg(names).arg(unsent.size() - named)));
        } else if (shown.syncTimeDate && !shown.syncPending && activity == Activity::None) {
            const QString exchange = shown.exchange.value().shown();
            line->setText(Screen::tr("%1 %2 is still ticked: \"Apply Settings\" sets the clock again.")
                              .arg(asSentence(exchange), sync.shown()));
        } else {
            line->setText(shown.exchange.value().shown());
        }
        if (!portOpen) {
            const QString advice = Screen::tr("Connect to read and to send settings.");
            line->setText(line->text().isEmpty() ? advice : asSentence(line->text()) + u' ' + advice);
        }
    };
    bindings_.bind(portOpen, tell);
    bindings_.bind(shown.record, tell);
    bindings_.bind(shown.reported, tell);
    bindings_.bind(shown.exchange, tell);
    bindings_.bind(shown.syncTimeDate, tell);
    bindings_.bind(shown.syncPending, tell);
    bindings_.bind(shown.secondsToFullMinute, tell);
    bindings_.bind(activity, tell);
    return line;
}

QLayout* SettingsWindow::makeButtons() {
    SettingsSender& sender = program_.settings.sender;
    auto* row = new QHBoxLayout;
    const auto add = [this, row](QPushButton* button) {
        bindEnabled(bindings_, button, program_.link.session.commands.canCommand);
        row->addWidget(button);
    };
    add(makeButton(
        Screen::tr("&Retrieve Settings"), "RetrieveSettings", [&sender] { sender.retrieveSettings(); },
        Screen::tr("Retrieve settings from the logger")));
    add(makeButton(
        Screen::tr("&Apply Settings"), "ApplySettings", [&sender] { sender.applySettings(); },
        Screen::tr("Send Settings to the logger")));
    row->addStretch(1);
    row->addWidget(makeButton(
        Screen::tr("&Close"), "Close",
        [this] {
            mainWindowWanted.tell();
            program_.settings.shown.visible = false;
        },
        Screen::tr("Verify that settings are correct before closing this window")));
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
    }
}

void SettingsWindow::chooseTab(const QString& caption) {
    const auto index = static_cast<int>(tabCaptions().indexOf(caption));
    if (index >= 0) {
        tabs_->choose(index);
    }
}

void SettingsWindow::present() {
    program_.settings.shown.visible = true;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SettingsWindow::clearforms() {
    frames_->setCurrentWidget(noTabHint_);
}

void SettingsWindow::showFrame() {
    clearforms();
    const InstrumentType type = program_.link.session.status.instrument;
    QWidget* frame = frames_->widget(tabs_->currentIndex());
    if (tabs_->currentIndex() == calibrationTab && type != InstrumentType::Trx) {
        frame = type == InstrumentType::Glow ? glowFrame_ : noTypeHint_;
    }
    frames_->setCurrentWidget(frame);
}

void SettingsWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    setAttribute(Qt::WA_Resized); // else each showing takes a size of its own
}

void SettingsWindow::hideEvent(QHideEvent* event) {
    // Asks the window manager to leave it where it was, which otherwise places each showing anew.
    if (QWindow* window = windowHandle(); window != nullptr) {
        window->setPosition(window->position());
    }
    QWidget::hideEvent(event);
}

void SettingsWindow::closeEvent(QCloseEvent* event) {
    program_.settings.shown.visible = false;
    QWidget::closeEvent(event);
}

} // namespace orv
