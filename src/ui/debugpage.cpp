// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/debugpage.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace orv {

namespace {

constexpr int viewInterval = 50; ///< Milliseconds.

constexpr char16_t deleteCharacter = 0x7f;

bool isControl(QChar character) {
    return character < u' ' || character == deleteCharacter;
}

QChar picture(QChar control) {
    constexpr char16_t firstPicture = 0x2400;
    constexpr char16_t deletePicture = 0x2421;
    return control == deleteCharacter ? QChar(deletePicture)
                                      : QChar(static_cast<char16_t>(firstPicture + control.unicode()));
}

QString arrow(QChar control) {
    switch (control.unicode()) {
    case u'\r':
        return QStringLiteral("\u21b5");
    case u'\n':
        return QStringLiteral("\u2193");
    case u'\t':
        return QStringLiteral("\u2192");
    default:
        return QLatin1String("\\x") + QString::number(control.unicode(), 16).rightJustified(2, u'0').toUpper();
    }
}

} // namespace

QString visibleText(const QString& text, ControlSymbols symbols) {
    QString visible;
    visible.reserve(text.size());
    for (const QChar character : text) {
        if (!isControl(character)) {
            visible += character;
        } else if (symbols == ControlSymbols::Pictures) {
            visible += picture(character);
        } else {
            visible += arrow(character);
        }
    }
    return visible;
}

DebugListModel::DebugListModel(DebugList& list)
    : list_(list)
    , shown_(list.entries()) {
    timer_.setSingleShot(true);
    timer_.setInterval(viewInterval);
    connect(&timer_, &QTimer::timeout, this, &DebugListModel::flush);
    list_.appended = [this](bool) {
        waiting_ = std::min(waiting_ + 1, DebugList::maximumEntries);
        later();
    };
    list_.lastSelected = [this] {
        selectLast_ = true;
        later();
    };
}

DebugListModel::~DebugListModel() {
    list_.appended = nullptr;
    list_.lastSelected = nullptr;
}

int DebugListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant DebugListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) {
        return {};
    }
    return visibleText(shown_.at(static_cast<std::size_t>(index.row())), symbols_);
}

void DebugListModel::later() {
    if (!timer_.isActive()) {
        timer_.start();
    }
}

void DebugListModel::flush() {
    timer_.stop();
    const std::deque<QString>& entries = list_.entries();
    if (waiting_ > 0) {
        const std::size_t kept = entries.size() - waiting_;
        if (shown_.size() > kept) {
            const std::size_t gone = shown_.size() - kept;
            beginRemoveRows({}, 0, static_cast<int>(gone) - 1);
            shown_.erase(shown_.begin(), shown_.begin() + static_cast<std::ptrdiff_t>(gone));
            endRemoveRows();
        }
        beginInsertRows({}, static_cast<int>(kept), static_cast<int>(entries.size()) - 1);
        shown_.insert(shown_.end(), entries.end() - static_cast<std::ptrdiff_t>(waiting_), entries.end());
        endInsertRows();
        waiting_ = 0;
    }
    if (std::exchange(selectLast_, false) && lastSelected) {
        lastSelected();
    }
}

namespace {

QLabel* makeDebugLabel(const QString& accessibleName) {
    auto* label = new QLabel;
    label->setAccessibleName(accessibleName);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    return label;
}

} // namespace

DebugPage::DebugPage(const Parts& parts, QWidget* parent)
    : QWidget(parent)
    , p_(parts)
    , model_(parts.debug.list) {
    setObjectName(QStringLiteral("DebugPage"));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(makeDebugFrame(), 1);
    layout->addLayout(makeSensorFrames());
    layout->addStretch(); // keeps the sensor frames narrow when the debug frame is hidden
}

QGroupBox* DebugPage::makeDebugFrame() {
    auto* frame = new QGroupBox(QStringLiteral("Tidelane Debug Screen"));
    frame->setObjectName(QStringLiteral("DebugFrame"));
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(makeOutputControls());
    auto* list = makeList();
    auto* caption = new QLabel(QStringLiteral("&Traffic, newest last:"));
    caption->setBuddy(list);
    layout->addWidget(caption);
    layout->addWidget(list, 1);
    layout->addWidget(makeDirectSend());
    layout->addWidget(makeStatusRow());
    bindings_.bind(p_.debug.debugFrameVisible, [frame](bool visible) { frame->setVisible(visible); });
    return frame;
}

QWidget* DebugPage::makeOutputControls() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);

    auto* output = new QCheckBox(QStringLiteral("&Comm 2 Debug Output"));
    output->setObjectName(QStringLiteral("Check1"));
    output->setToolTip(QStringLiteral("Copies what the program announces about its own work to COM 2."));
    connect(output, &QCheckBox::clicked, this, [this, output](bool ticked) {
        p_.setComm2Output(ticked);
        // A port that cannot be opened clears a flag that was never set, which nobody is told.
        output->setChecked(p_.debug.comm2Output);
    });
    bindings_.bind(p_.debug.comm2Output, [output](bool ticked) { output->setChecked(ticked); });

    auto* raw = makeOption(QStringLiteral("&Raw Buffer"), QStringLiteral("Option1"),
                           QStringLiteral("Lists every block of characters as it is read from the instrument."));
    connect(raw, &QRadioButton::clicked, this, [this] {
        p_.debug.rawBuffer = true;
        p_.debug.showParsing = false;
        p_.ports.debugsay(QStringLiteral("Huh?"));
    });
    bindings_.bind(p_.debug.rawBuffer, [raw](bool selected) { raw->setChecked(selected); });

    auto* parsing = makeOption(QStringLiteral("Sho&w Parsing"), QStringLiteral("Option2"),
                               QStringLiteral("Lists every line that is cut out of what the instrument sends."));
    connect(parsing, &QRadioButton::clicked, this, [this] {
        p_.debug.rawBuffer = false;
        p_.debug.showParsing = true;
    });
    bindings_.bind(p_.debug.showParsing, [parsing](bool selected) { parsing->setChecked(selected); });

    for (QWidget* control :
         {static_cast<QWidget*>(output), static_cast<QWidget*>(raw), static_cast<QWidget*>(parsing)}) {
        layout->addWidget(control);
        showInServiceMode(control);
    }
    layout->addStretch();
    return row;
}

QRadioButton* DebugPage::makeOption(const QString& caption, const QString& name, const QString& toolTip) {
    auto* option = new QRadioButton(caption);
    option->setObjectName(name);
    option->setToolTip(toolTip);
    return option;
}

QListView* DebugPage::makeList() {
    auto* list = new QListView;
    list->setObjectName(QStringLiteral("DebugList"));
    list->setAccessibleName(QStringLiteral("Traffic from the instrument, newest last"));
    list->setToolTip(QStringLiteral("What the instrument sends, as blocks or lines; CR, LF and TAB as symbols. The "
                                    "newest 10000 entries are kept."));
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setMinimumHeight(list->fontMetrics().height() * 6);
    constexpr uint carriageReturnPicture = 0x240d;
    model_.setSymbols(list->fontMetrics().inFontUcs4(carriageReturnPicture) ? ControlSymbols::Pictures
                                                                            : ControlSymbols::Arrows);
    list->setModel(&model_);
    makeHint(list);
    model_.lastSelected = [this, list] {
        list->setCurrentIndex(model_.index(model_.rowCount() - 1));
        list->scrollToBottom();
    };
    return list;
}

void DebugPage::makeHint(QListView* list) {
    auto* hint = new QLabel;
    hint->setObjectName(QStringLiteral("DebugListHint"));
    hint->setAccessibleName(QStringLiteral("Why the list is empty"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setWordWrap(true);
    hint->setForegroundRole(QPalette::PlaceholderText);
    hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* layout = new QVBoxLayout(list->viewport());
    layout->addWidget(hint);
    const auto show = [this, hint] {
        hint->setText(p_.debug.rawBuffer || p_.debug.showParsing
                          ? QStringLiteral("Nothing has been received since.")
                          : QStringLiteral("Choose \"Raw Buffer\" or \"Show Parsing\" to list what the instrument "
                                           "sends."));
        hint->setVisible(model_.rowCount() == 0);
    };
    for (const auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(&model_, changed, this, show);
    }
    connect(&model_, &QAbstractItemModel::modelReset, this, show);
    bindings_.bind(p_.debug.rawBuffer, [show](bool) { show(); });
    bindings_.bind(p_.debug.showParsing, [show](bool) { show(); });
}

QWidget* DebugPage::makeDirectSend() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* caption = new QLabel(QStringLiteral("Te&xt to send:"));
    text_ = new QLineEdit;
    text_->setObjectName(QStringLiteral("DirectSendText"));
    text_->setToolTip(QStringLiteral("Is sent exactly as typed; nothing is added at its end."));
    caption->setBuddy(text_);
    auto* button = new QPushButton(QStringLiteral("&Direct Send"));
    button->setObjectName(QStringLiteral("DirectSend"));
    button->setToolTip(QStringLiteral("Sends the text to the instrument, if a port is open and nothing else is under "
                                      "way."));
    connect(button, &QPushButton::clicked, this, &DebugPage::send);
    connect(text_, &QLineEdit::returnPressed, button, &QPushButton::click);
    bindings_.bind(p_.session.commands.undisturbed, [button](bool undisturbed) { button->setEnabled(undisturbed); });
    layout->addWidget(caption);
    layout->addWidget(text_, 1);
    layout->addWidget(button);
    showInServiceMode(text_);
    return row;
}

QWidget* DebugPage::makeStatusRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);

    auto* statusFrame = new QGroupBox(QStringLiteral("Status"));
    auto* status = new QLabel;
    status->setObjectName(QStringLiteral("DebugStatus"));
    status->setAccessibleName(QStringLiteral("Status"));
    auto* statusLayout = new QHBoxLayout(statusFrame);
    statusLayout->addWidget(status);
    bindings_.bind(p_.session.status.status, [status](const QString& text) {
        status->setText(text);
        status->repaint(); // a procedure that does not yield may follow
    });

    auto* caption = new QLabel(QStringLiteral("Buffer"));
    auto* buffer = makeDebugLabel(QStringLiteral("Buffer"));
    buffer->setObjectName(QStringLiteral("DebugBuffer"));
    buffer->setToolTip(QStringLiteral("Characters received that do not make a whole line yet."));
    buffer->setMinimumWidth(buffer->fontMetrics().horizontalAdvance(QStringLiteral("000000")));
    buffer->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bindings_.bind(p_.session.status.bufferCount, [buffer](int count) { buffer->setText(QString::number(count)); });

    statusLayout->addStretch(1);
    statusLayout->addWidget(caption);
    statusLayout->addWidget(buffer);
    layout->addWidget(statusFrame, 1);
    showInServiceMode(caption);
    showInServiceMode(buffer);
    return row;
}

QVBoxLayout* DebugPage::makeSensorFrames() {
    auto* layout = new QVBoxLayout;
    DebugState& debug = p_.debug;
    const QString output = QStringLiteral("Output");

    auto* fluorometer = makeSensorFrame(QStringLiteral("Fluorometer"), QStringLiteral("FluorometerFrame"),
                                        debug.fluorometerFrameVisible);
    addOutput(fluorometer, output, QStringLiteral("Fluorometer output"), debug.fluorometerOutput);

    auto* scattering =
        makeSensorFrame(QStringLiteral("Scattering Meter"), QStringLiteral("OutputFrame"), debug.outputFrameVisible);
    constexpr std::array<const char*, 3> angles{"100", "125", "150"};
    for (std::size_t angle = 0; angle < debug.scatteringOutputs.size(); ++angle) {
        const QString degrees = QString::fromLatin1(angles.at(angle));
        addOutput(scattering, output + u' ' + degrees, QStringLiteral("Scattering output at %1 degrees").arg(degrees),
                  debug.scatteringOutputs.at(angle));
    }
    addOutput(scattering, QStringLiteral("Ref Det"), QStringLiteral("Reference detector"), debug.scatteringReference);

    auto* transmissometer = makeSensorFrame(QStringLiteral("Transmissometer"), QStringLiteral("TransmissometerFrame"),
                                            debug.transmissometerFrameVisible);
    addOutput(transmissometer, output, QStringLiteral("Transmissometer output"), debug.transmissometerOutput);

    auto* turbidity = makeSensorFrame(QStringLiteral("Turbidty Sensor"), QStringLiteral("TurbidityFrame"),
                                      debug.turbidityFrameVisible);
    addOutput(turbidity, output, QStringLiteral("Turbidity sensor output"), debug.turbidityOutput);

    for (QGroupBox* frame : {fluorometer, scattering, transmissometer, turbidity}) {
        layout->addWidget(frame);
    }
    layout->addStretch();
    return layout;
}

QGroupBox* DebugPage::makeSensorFrame(const QString& title, const QString& name, const QProperty<bool>& visible) {
    auto* frame = new QGroupBox(title);
    frame->setObjectName(name);
    frame->setToolTip(QStringLiteral("The newest values that the instrument has sent in a run."));
    new QFormLayout(frame);
    bindings_.bind(visible, [frame](bool shown) { frame->setVisible(shown); });
    return frame;
}

void DebugPage::addOutput(QGroupBox* frame, const QString& caption, const QString& accessibleName,
                          const QProperty<QString>& value) {
    auto* label = makeDebugLabel(accessibleName);
    label->setObjectName(accessibleName);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")));
    bindings_.bind(value, [label](const QString& text) { label->setText(text); });
    qobject_cast<QFormLayout*>(frame->layout())->addRow(caption, label);
}

void DebugPage::showInServiceMode(QWidget* control) {
    bindings_.bind(p_.pages.serviceMode, [control](bool on) {
        control->setVisible(on);
        control->setEnabled(on);
    });
}

void DebugPage::send() {
    p_.directSend.send(text_->text());
}

} // namespace orv
