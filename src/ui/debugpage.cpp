// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/debugpage.h"

#include "base/words.h"
#include "ui/widgets.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QListView>
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
    subscriptions_ = {list.appended.subscribe([this](bool) {
                          waiting_ = std::min(waiting_ + 1, DebugList::maximumEntries);
                          later();
                      }),
                      list.lastSelected.subscribe([this] {
                          selectLast_ = true;
                          later();
                      })};
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
    if (std::exchange(selectLast_, false)) {
        lastSelected.tell();
    }
}

DebugPage::DebugPage(Program& program)
    : program_(program)
    , debug_(program.link.debug)
    , session_(program.link.session)
    , model_(debug_.list)
    , numbers_(this) {
    setObjectName(QStringLiteral("DebugScreen"));
    auto* layout = new QHBoxLayout(this);
    auto* frame = makeDebugFrame();
    layout->addWidget(frame, 1);
    bindVisible(bindings_, frame, debug_.debugFrameVisible);
    auto* frames = new QVBoxLayout;
    layout->addLayout(frames);
    addSensorFrames(frames);
    layout->addStretch(); // keeps the sensor frames narrow when the debug frame is hidden
}

QGroupBox* DebugPage::makeDebugFrame() {
    auto* frame = makeFrame(Screen::tr("Tidelane Debug Screen"), "DebugFrame");
    auto* list = makeList();
    auto* layout = new QVBoxLayout(frame);
    auto* controls = new QHBoxLayout;
    layout->addLayout(controls);
    addOutputControls(controls);
    layout->addWidget(makeCaption(Screen::tr("&Traffic, newest last:"), list));
    layout->addWidget(list, 1);
    auto* sending = new QHBoxLayout;
    layout->addLayout(sending);
    addDirectSend(sending);
    layout->addWidget(makeStatus());
    return frame;
}

void DebugPage::addOutputControls(QHBoxLayout* layout) {
    auto* output = new QCheckBox(Screen::tr("&Comm 2 Debug Output"));
    output->setObjectName(QStringLiteral("Check1"));
    output->setToolTip(Screen::tr("Copies what the program announces about its own work to COM 2."));
    connect(output, &QCheckBox::toggled, this, [this, output](bool ticked) {
        program_.setComm2Output(ticked);
        // A port that cannot be opened clears a flag that was never set, which nobody is told.
        showChecked(output, debug_.comm2Output);
    });
    bindings_.bind(debug_.comm2Output, [output](bool ticked) { showChecked(output, ticked); });

    const auto bindListing = [this](QRadioButton* option, QProperty<bool>& chosen, QProperty<bool>& other) {
        onChosen(option, [&chosen, &other] {
            chosen = true;
            other = false;
        });
        bindings_.bind(chosen, [option](bool selected) { showChecked(option, selected); });
    };
    auto* raw = makeOption(Screen::tr("&Raw Buffer"), "Option1",
                           Screen::tr("Lists every block of characters as it is read from the instrument."));
    bindListing(raw, debug_.rawBuffer, debug_.showParsing);
    onChosen(raw, [this] { program_.link.ports.debugsay(QStringLiteral("Huh?")); });
    auto* parsing = makeOption(Screen::tr("Sho&w Parsing"), "Option2",
                               Screen::tr("Lists every line that is cut out of what the instrument sends."));
    bindListing(parsing, debug_.showParsing, debug_.rawBuffer);
    for (QAbstractButton* control : std::initializer_list<QAbstractButton*>{output, raw, parsing}) {
        layout->addWidget(control);
        showInServiceMode(control);
    }
    layout->addStretch();
}

QListView* DebugPage::makeList() {
    auto* list = makeControl<QListView>("DebugList", Screen::tr("Traffic from the instrument, newest last"));
    list->setToolTip(Screen::tr("What the instrument sends, as blocks or lines; CR, LF and TAB as symbols. The "
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
    lastSelected_ = model_.lastSelected.subscribe([this, list] {
        list->setCurrentIndex(model_.index(model_.rowCount() - 1));
        list->scrollToBottom();
    });
    return list;
}

void DebugPage::makeHint(QListView* list) {
    auto* hint = makeControl<QLabel>("DebugListHint", Screen::tr("Why the list is empty"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setWordWrap(true);
    hint->setForegroundRole(QPalette::PlaceholderText);
    hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* layout = new QVBoxLayout(list->viewport());
    layout->addWidget(hint);
    const auto show = [this, hint] {
        hint->setText(debug_.rawBuffer || debug_.showParsing
                          ? Screen::tr("Nothing has been received since.")
                          : Screen::tr("Choose \"Raw Buffer\" or \"Show Parsing\" to list what the instrument "
                                       "sends."));
        hint->setVisible(model_.rowCount() == 0);
    };
    for (const auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(&model_, changed, this, show);
    }
    connect(&model_, &QAbstractItemModel::modelReset, this, show);
    bindings_.bind(debug_.rawBuffer, [show](bool) { show(); });
    bindings_.bind(debug_.showParsing, [show](bool) { show(); });
}

void DebugPage::addDirectSend(QHBoxLayout* layout) {
    auto* text = makeBox("DirectSendText", Screen::tr("Is sent exactly as typed; nothing is added at its end."));
    auto* button = makeButton(
        Screen::tr("&Direct Send"), "DirectSend", [this, text] { program_.link.directSend.send(text->text()); },
        Screen::tr("Sends the text to the instrument, if a port is open and nothing else is under way."));
    connect(text, &QLineEdit::returnPressed, button, &QPushButton::click);
    bindEnabled(bindings_, button, session_.commands.undisturbed);
    layout->addWidget(makeCaption(Screen::tr("Te&xt to send:"), text));
    layout->addWidget(text, 1);
    layout->addWidget(button);
    showInServiceMode(text);
}

QGroupBox* DebugPage::makeStatus() {
    auto* status = makeTextLabel("DebugStatus", Screen::tr("Status"));
    bindText(bindings_, status, session_.status.status);
    auto* caption = new QLabel(Screen::tr("Buffer"));
    auto* buffer = makeFramedLabel("DebugBuffer", Screen::tr("Buffer"));
    buffer->setToolTip(Screen::tr("Characters received that do not make a whole line yet."));
    buffer->setMinimumWidth(buffer->fontMetrics().horizontalAdvance(QStringLiteral("000000")));
    numbers_.bind(buffer, session_.status.bufferCount);
    auto* frame = makeFrame(Screen::tr("Status"));
    auto* layout = new QHBoxLayout(frame);
    layout->addWidget(status);
    layout->addStretch(1);
    layout->addWidget(caption);
    layout->addWidget(buffer);
    showInServiceMode(caption);
    showInServiceMode(buffer);
    return frame;
}

void DebugPage::addSensorFrames(QVBoxLayout* frames) {
    const QString output = Screen::tr("Output");
    auto* fluorometer =
        addSensorFrame(frames, Screen::tr("Fluorometer"), "FluorometerFrame", debug_.fluorometerFrameVisible);
    numbers_.bind(addOutput(fluorometer, output, Words::tr("Fluorometer output")), debug_.fluorometerOutput);
    auto* scattering = addSensorFrame(frames, Screen::tr("Scattering Meter"), "OutputFrame", debug_.outputFrameVisible);
    std::size_t channel = 0;
    for (const char* angle : channelAngles) {
        const QString degrees = QString::fromLatin1(angle);
        numbers_.bind(
            addOutput(scattering, output + u' ' + degrees, Words::tr("Scattering output at %1 degrees").arg(degrees)),
            debug_.scatteringOutputs.at(channel++));
    }
    numbers_.bind(addOutput(scattering, Screen::tr("Ref Det"), Words::tr("Reference detector")),
                  debug_.scatteringReference);
    // No instrument of the series fills these two.
    addOutput(addSensorFrame(frames, Screen::tr("Transmissometer"), "TransmissometerFrame",
                             debug_.transmissometerFrameVisible),
              output, Words::tr("Transmissometer output"));
    addOutput(addSensorFrame(frames, Screen::tr("Turbidty Sensor"), "TurbidityFrame", debug_.turbidityFrameVisible),
              output, Words::tr("Turbidity sensor output"));
    frames->addStretch();
}

QFormLayout* DebugPage::addSensorFrame(QVBoxLayout* frames, QAnyStringView title, QAnyStringView name,
                                       const QProperty<bool>& visible) {
    auto* frame = makeFrame(title, name);
    frame->setToolTip(Screen::tr("The newest values that the instrument has sent in a run."));
    frames->addWidget(frame);
    bindVisible(bindings_, frame, visible);
    return new QFormLayout(frame);
}

QLabel* DebugPage::addOutput(QFormLayout* form, const QString& caption, const Words& accessibleName) {
    auto* label = makeFramedLabel(accessibleName.english(), accessibleName.shown());
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")));
    form->addRow(caption, label);
    return label;
}

void DebugPage::showInServiceMode(QWidget* control) {
    bindVisible(bindings_, control, program_.pages.serviceMode);
    bindEnabled(bindings_, control, program_.pages.serviceMode);
}

} // namespace orv
