// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/statuspage.h"

#include "app/newestrowscreen.h"
#include "app/portsbox.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orv {

namespace {

QLabel* makeValue(const QString& name, const QString& accessibleName) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// The box with the shutter reset's step: nothing can be typed there, so it does not look as if.
QLineEdit* makeProgressBox() {
    auto* box = new QLineEdit;
    box->setObjectName(QStringLiteral("Text38"));
    box->setAccessibleName(QStringLiteral("Shutter reset progress"));
    box->setToolTip(QStringLiteral("The step of the shutter reset under way."));
    box->setReadOnly(true);
    box->setFrame(false);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    box->setPalette(palette);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("Restoring Orignal Settings 00000000")));
    return box;
}

void enlarge(QLabel* label, double factor) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    label->setFont(font);
}

constexpr int countsPaintDelay = 200; ///< Milliseconds after the first of some changes.

/// A label for a number. Its size is fixed, so that a new number does not lay out the page anew.
QLabel* makeCount(const QString& name, const QString& accessibleName, double size) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    enlarge(label, size);
    label->setFixedSize(label->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")),
                        label->fontMetrics().height());
    return label;
}

} // namespace

StatusPage::StatusPage(Program& program, const Actions& actions, QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("StatusPage"));
    countsTimer_.setSingleShot(true);
    countsTimer_.setInterval(countsPaintDelay);
    connect(&countsTimer_, &QTimer::timeout, this, [this] {
        for (QLabel* count : counts_) {
            count->update();
        }
    });
    auto* left = new QVBoxLayout;
    left->addWidget(makeStatusBox(program));
    left->addWidget(new PortsBox(program.portChoices));
    left->addWidget(makeInstrumentBox(program));
    left->addWidget(new NewestRowScreen(program.sheet, program.sheetPanel));
    left->addStretch(1);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addWidget(makeControlsBox(program, actions), 0, Qt::AlignTop);
}

QWidget* StatusPage::makeStatusBox(Program& program) {
    auto* box = new QGroupBox(QStringLiteral("Status"));
    auto* status = makeValue(QStringLiteral("Label20"), QStringLiteral("Status"));
    enlarge(status, 2.2);
    auto* shutter = makeProgressBox();
    auto* countdown = makeValue(QStringLiteral("ShutterCountdown"), QStringLiteral("Time the shutter still moves"));
    auto* notice = makeValue(QStringLiteral("Notice"), QStringLiteral("Remark"));
    notice->setWordWrap(true);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(status);
    auto* shutterRow = new QHBoxLayout;
    shutterRow->addWidget(shutter);
    shutterRow->addWidget(countdown);
    shutterRow->addStretch(1);
    layout->addLayout(shutterRow);
    layout->addWidget(notice);

    bindings_.bind(program.session.status.status, [status](const QString& text) {
        status->setText(text);
        status->repaint(); // a procedure that does not yield may follow
    });
    bindings_.bind(program.session.status.shutterProgress, [shutter](const QString& text) {
        shutter->setText(text);
        shutter->setVisible(!text.isEmpty());
        shutter->repaint();
    });
    bindings_.bind(program.session.status.shutterCountdown, [countdown](const QString& text) {
        countdown->setText(text);
        countdown->setVisible(!text.isEmpty());
    });
    bindings_.bind(program.session.status.notice, [notice](const QString& text) {
        notice->setText(text);
        notice->setVisible(!text.isEmpty());
    });
    return box;
}

QWidget* StatusPage::makeInstrumentBox(Program& program) {
    auto* box = new QGroupBox(QStringLiteral("Instrument"));
    auto* form = new QFormLayout(box);
    form->setHorizontalSpacing(24);
    form->setVerticalSpacing(8);
    const auto addRow = [this, form](const QString& caption, const QString& name, const QProperty<QString>& value) {
        auto* label = makeValue(name, caption);
        enlarge(label, 1.2);
        form->addRow(caption, label);
        bindings_.bind(value, [label](const QString& text) { label->setText(text); });
    };
    const StatusPanel& status = program.session.status;
    addRow(QStringLiteral("Instrument:"), QStringLiteral("InstrumentLabel"), status.instrument);
    addRow(QStringLiteral("Firmware Ver."), QStringLiteral("FirmwareLabel"), status.firmware);
    addRow(QStringLiteral("Date"), QStringLiteral("Label23"), status.date);
    addRow(QStringLiteral("Time"), QStringLiteral("Label22"), status.time);
    auto* rows = makeCount(QStringLiteral("StatusRows"), QStringLiteral("Rows on the sheet"), 1.2);
    form->addRow(QStringLiteral("Rows on the sheet"), rows);
    addRow(QStringLiteral("Bytes downloaded"), QStringLiteral("DownloadedBytes"), status.downloadedBytes);
    auto* buffer = makeCount(QStringLiteral("BufferLabel"), QStringLiteral("Characters in the receive buffer"), 1.0);
    form->addRow(QStringLiteral("Buffer"), buffer);
    counts_ = {rows, buffer};
    bindings_.bind(program.sheetPanel.counter, [this, rows](const QString& text) { setCount(rows, text); });
    bindings_.bind(status.bufferCount, [this, buffer](int count) { setCount(buffer, QString::number(count)); });
    return box;
}

void StatusPage::setCount(QLabel* label, const QString& text) {
    label->setAttribute(Qt::WA_UpdatesDisabled, true);
    label->setText(text);
    label->setAttribute(Qt::WA_UpdatesDisabled, false);
    if (isVisible() && !countsTimer_.isActive()) {
        countsTimer_.start();
    }
}

QWidget* StatusPage::makeControlsBox(Program& program, const Actions& actions) {
    auto* box = new QGroupBox(QStringLiteral("Controls"));
    auto* layout = new QVBoxLayout(box);
    const auto addButton = [this, layout](const QString& caption, const QString& name, const QString& toolTip,
                                          const std::function<void()>& action) {
        auto* button = new QPushButton(caption);
        button->setObjectName(name);
        button->setToolTip(toolTip);
        button->setMinimumSize(150, 38);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [action] { action(); });
        return button;
    };
    auto* run =
        addButton(QStringLiteral("&Run"), QStringLiteral("Command2"),
                  QStringLiteral("Starts a real-time collection. Rows go to the Spread Sheet and to Orvtemp.tmp. (F5)"),
                  actions.run);
    auto* reset =
        addButton(QStringLiteral("R&eset"), QStringLiteral("ResetButton"),
                  QStringLiteral("Stops current collection and requires the instrument to be reset."), actions.reset);
    auto* shutter =
        addButton(QStringLiteral("Reset Sh&utter"), QStringLiteral("ResetShutterButton"),
                  QStringLiteral("Moves the instrument's shutter back to its rest position."), actions.resetShutter);
    const CommandPanel& commands = program.session.commands;
    bindings_.bind(commands.canRun, [run](bool can) { run->setEnabled(can); });
    bindings_.bind(commands.runVisible, [run](bool visible) { run->setVisible(visible); });
    bindings_.bind(commands.resetEnabled, [reset](bool can) { reset->setEnabled(can); });
    bindings_.bind(commands.canResetShutter, [shutter](bool can) { shutter->setEnabled(can); });
    bindings_.bind(commands.resetShutterVisible, [shutter](bool visible) { shutter->setVisible(visible); });
    return box;
}

} // namespace orv
