// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets.h"

#include "base/words.h"
#include "sheet/dataline.h"
#include "ui/style.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QPainter>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <memory>
#include <utility>

namespace orv {

namespace {

/// Keeps what is behind it, so that a new text does not paint the frame anew that it stands in. Not at a fractional
/// device pixel ratio: its edges lie within pixels then, which it must share with its frame.
class ChangingLabel final : public QLabel {
protected:
    bool event(QEvent* event) override {
        switch (event->type()) {
        case QEvent::Show:
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::ScreenChangeInternal:
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
        case QEvent::EnabledChange:
        case QEvent::PaletteChange:
        case QEvent::StyleChange:
            ground_ = {};
            setAttribute(Qt::WA_OpaquePaintEvent, devicePixelRatioF() == std::floor(devicePixelRatioF()));
            break;
        default:
            break;
        }
        return QLabel::event(event);
    }

    void paintEvent(QPaintEvent* event) override {
        if (testAttribute(Qt::WA_OpaquePaintEvent)) {
            drawGround();
        }
        QLabel::paintEvent(event);
    }

private:
    void drawGround() {
        const qreal ratio = devicePixelRatioF();
        if (ground_.isNull() || ground_.devicePixelRatioF() != ratio) {
            ground_ = QPixmap(size() * ratio);
            ground_.setDevicePixelRatio(ratio);
            QWidget* frame = parentWidget();
            while (qobject_cast<QGroupBox*>(frame) == nullptr && !frame->isWindow()) {
                frame = frame->parentWidget();
            }
            frame->render(&ground_, {}, QRect(mapTo(frame, QPoint()), size()), QWidget::DrawWindowBackground);
        }
        QPainter(this).drawPixmap(0, 0, ground_);
    }

    QPixmap ground_;
};

} // namespace

QLabel* makeTextLabel(QAnyStringView name, QAnyStringView accessibleName) {
    auto* label = makeControl<QLabel>(name, accessibleName);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::NoTextInteraction);
    return label;
}

QLabel* makeValueLabel(QAnyStringView name, QAnyStringView accessibleName) {
    QLabel* label = makeTextLabel(name, accessibleName);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel* makeFramedLabel(QAnyStringView name, QAnyStringView accessibleName) {
    QLabel* label = makeValueLabel(name, accessibleName);
    label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

QLabel* makeChangingLabel(QAnyStringView name, QAnyStringView accessibleName) {
    auto* label = makeControl<ChangingLabel>(name, accessibleName);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::NoTextInteraction); // selecting would cost at every text
    return label;
}

QLabel* makeNumberLabel(QAnyStringView name, QAnyStringView accessibleName, QAnyStringView widest) {
    QLabel* label = makeChangingLabel(name, accessibleName);
    label->setFixedSize(label->fontMetrics().horizontalAdvance(widest.toString()), label->fontMetrics().height());
    return label;
}

void keepRoomOf(QWidget* control) {
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
}

SteadyLabel::SteadyLabel(QLabel* label, int lines)
    : label_(label)
    , lines_(lines) {
    label->setParent(this);
    label->setWordWrap(true);
    if (lines > 1) {
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setFixedHeight(room());
}

void SteadyLabel::setText(const QString& text) {
    if (text != label_->text()) {
        label_->setText(text);
        label_->setToolTip(text);
        if (isVisible()) { // else its width is not known
            fit();
        }
    }
}

int SteadyLabel::room() const {
    return lines_ * label_->fontMetrics().lineSpacing();
}

void SteadyLabel::fit() {
    setFixedHeight(std::max(room(), label_->heightForWidth(width())));
    label_->setGeometry(rect());
}

void SteadyLabel::showEvent(QShowEvent* event) {
    fit();
    QWidget::showEvent(event);
}

void SteadyLabel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fit();
}

void SteadyLabel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fit();
    }
}

QLabel* makeCaption(QAnyStringView text, QWidget* buddy) {
    auto* label = new QLabel(text.toString());
    label->setBuddy(buddy);
    return label;
}

void enlarge(QLabel* label, double factor) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    label->setFont(font);
}

void markBox(QLineEdit* box, const QString& why) {
    const QString name = QStringLiteral("WarningSign");
    auto* sign = box->findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
    if (sign == nullptr && !why.isEmpty()) {
        sign = box->addAction(box->style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
        sign->setObjectName(name);
    }
    if (sign != nullptr) {
        sign->setVisible(!why.isEmpty());
        sign->setToolTip(why);
    }
}

QLineEdit* makeBox(QAnyStringView name, QAnyStringView toolTip, QAnyStringView accessibleName) {
    auto* box = makeControl<QLineEdit>(name, accessibleName);
    box->setToolTip(toolTip.toString());
    return box;
}

QLineEdit* makeReadOnlyBox(QAnyStringView name, QAnyStringView accessibleName, QAnyStringView toolTip) {
    QLineEdit* box = makeBox(name, toolTip, accessibleName);
    box->setReadOnly(true);
    QPalette palette;
    palette.setColor(QPalette::Base, box->palette().color(QPalette::Window));
    box->setPalette(palette);
    return box;
}

QPushButton* makeButton(QAnyStringView caption, QAnyStringView name, const std::function<void()>& clicked,
                        QAnyStringView toolTip) {
    auto* button = new QPushButton(caption.toString());
    button->setObjectName(name.toString());
    button->setToolTip(toolTip.toString());
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button, clicked);
    return button;
}

QRadioButton* makeOption(QAnyStringView caption, QAnyStringView name, QAnyStringView toolTip) {
    auto* option = new QRadioButton(caption.toString());
    option->setObjectName(name.toString());
    option->setToolTip(toolTip.toString());
    return option;
}

QWidget* scrollable(QWidget* page) {
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(page);
    return area;
}

QGroupBox* makeFrame(QAnyStringView title, QAnyStringView name) {
    auto* frame = new QGroupBox(title.toString());
    frame->setObjectName(name.toString());
    return frame;
}

void bindTyped(Bindings& bindings, QLineEdit* box, QProperty<QString>& text) {
    bindings.bind(text, [box](const QString& shown) {
        if (box->text() != shown) {
            const QSignalBlocker quiet(box);
            box->setText(shown);
        }
    });
    QObject::connect(box, &QLineEdit::textChanged, box, [&text](const QString& now) { text = now; });
}

void bindChecked(Bindings& bindings, QAbstractButton* button, QProperty<bool>& checked) {
    bindings.bind(checked, [button](bool on) { showChecked(button, on); });
    QObject::connect(button, &QAbstractButton::toggled, button, [&checked](bool on) { checked = on; });
}

void onChosen(QAbstractButton* option, const std::function<void()>& chosen) {
    const auto told = std::make_shared<bool>(false); // of the click under way
    QObject::connect(option, &QAbstractButton::pressed, option, [told] { *told = false; });
    QObject::connect(option, &QAbstractButton::toggled, option, [told, chosen](bool on) {
        if (on) {
            *told = true;
            chosen();
        }
    });
    QObject::connect(option, &QAbstractButton::clicked, option, [told, chosen] {
        if (!*told) {
            chosen();
        }
    });
}

void showChecked(QAbstractButton* button, bool on) {
    const QSignalBlocker quiet(button);
    button->setChecked(on);
}

void takeSelections(QComboBox* chooser) {
    const auto take = [chooser](int row) {
        QAbstractItemView* list = chooser->view();
        if (row != list->currentIndex().row() && list->selectionModel()->isSelected(chooser->model()->index(row, 0))) {
            chooser->setCurrentIndex(row);
        }
    };
    QObject::connect(chooser->view()->selectionModel(), &QItemSelectionModel::selectionChanged, chooser,
                     [chooser, take](const QItemSelection& selected) {
                         if (!selected.isEmpty()) {
                             // A key and the pointer move the current entry along, but only afterwards.
                             QMetaObject::invokeMethod(
                                 chooser, [take, row = selected.first().top()] { take(row); }, Qt::QueuedConnection);
                         }
                     });
}

void setTabStop(QAbstractButton* option, bool on) {
    option->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
}

void bindChoice(Bindings& bindings, QAbstractButton* whenTrue, QAbstractButton* whenFalse, QProperty<bool>& choice) {
    bindings.bind(choice, [whenTrue, whenFalse](bool on) {
        showChecked(on ? whenTrue : whenFalse, true);
        setTabStop(whenTrue, on);
        setTabStop(whenFalse, !on);
    });
    onChosen(whenTrue, [&choice] { choice = true; });
    onChosen(whenFalse, [&choice] { choice = false; });
}

Redrawing::Redrawing(QWidget* widget, int delay, std::function<void()> draw)
    : widget_(widget)
    , draw_(std::move(draw)) {
    timer_.setSingleShot(true);
    timer_.setInterval(delay);
    connect(&timer_, &QTimer::timeout, this, [this] { draw_(); });
    widget->installEventFilter(this);
}

void Redrawing::noteChange(int delay) {
    if (widget_->isVisible() && !timer_.isActive()) {
        timer_.start(delay);
    }
}

void Redrawing::drawNow() {
    if (timer_.isActive()) {
        timer_.stop();
        draw_();
    }
}

bool Redrawing::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        draw_();
    } else if (event->type() == QEvent::Hide) {
        timer_.stop();
    }
    return QObject::eventFilter(watched, event);
}

LateTexts::LateTexts(QWidget* page)
    : redrawing_(page, delay, [this] {
        for (const auto& draw : drawings_) {
            draw();
        }
    }) {}

void LateTexts::bind(QLabel* label, const QProperty<QString>& text) {
    bind(text, [label, &text] { label->setText(text); });
}

void LateTexts::bind(QLabel* label, const QProperty<int>& number) {
    drawings_.emplace_back([label, &number] { label->setText(QString::number(number.value())); });
    bindings_.bind(number, [this](int) { redrawing_.noteChange(); });
}

void LateTexts::bind(const QProperty<QString>& text, std::function<void()> draw) {
    drawings_.push_back(std::move(draw));
    bindings_.bind(text, [this](const QString&) { redrawing_.noteChange(); });
}

namespace {

struct LampLook {
    Lamp lamp;
    QColor colour;
    const char* text;
};

const LampLook& lookOf(Lamp lamp) {
    static const LampLook looks[] = {{Lamp::Reading, {255, 0, 0}, QT_TRANSLATE_NOOP("orv", "Reading the settings")},
                                     {Lamp::Sending, {255, 255, 0}, QT_TRANSLATE_NOOP("orv", "Sending the settings")},
                                     {Lamp::Sent, {0, 255, 0}, QT_TRANSLATE_NOOP("orv", "Settings sent")},
                                     {Lamp::Read, {0, 0, 255}, QT_TRANSLATE_NOOP("orv", "Settings read")},
                                     {Lamp::Failed, {255, 255, 0}, QT_TRANSLATE_NOOP("orv", "Sending failed")},
                                     {Lamp::Off, {}, QT_TRANSLATE_NOOP("orv", "Nothing read or sent yet")}};
    return *std::find_if(std::begin(looks), std::end(looks) - 1,
                         [lamp](const LampLook& look) { return look.lamp == lamp; });
}

} // namespace

QColor lampColour(Lamp lamp) {
    return lookOf(lamp).colour;
}

QString lampText(Lamp lamp) {
    return Screen::tr(lookOf(lamp).text);
}

StatusLamp::StatusLamp(QWidget* parent)
    : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(Screen::tr("Status lamp"));
}

void StatusLamp::show(Lamp lamp) {
    lamp_ = lamp;
    setAccessibleDescription(lampText(lamp));
    update();
}

QSize StatusLamp::sizeHint() const {
    const int side = fontMetrics().height() + 4;
    return {side, side};
}

void StatusLamp::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // A lamp may be as dark as the window: its ring then tells where it is.
    painter.setPen(QPen(palette().color(isDark(palette()) ? QPalette::WindowText : QPalette::Mid), 1.5));
    const QColor colour = lampColour(lamp_);
    painter.setBrush(colour.isValid() ? QBrush(colour) : palette().brush(QPalette::Base));
    painter.drawEllipse(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5));
}

namespace {

class SpokenLabel final : public QAccessibleWidget {
public:
    explicit SpokenLabel(QLabel* label)
        : QAccessibleWidget(label, QAccessible::StaticText) {}

    QString text(QAccessible::Text kind) const override {
        const auto* label = qobject_cast<const QLabel*>(widget());
        if (kind != QAccessible::Name || label == nullptr) {
            return QAccessibleWidget::text(kind);
        }
        const QString name = label->accessibleName();
        if (name.isEmpty() || label->text().isEmpty()) {
            return name + label->text();
        }
        return name + QStringLiteral(": ") + label->text();
    }
};

QAccessibleInterface* makeSpokenLabel(const QString& /*className*/, QObject* object) {
    auto* label = qobject_cast<QLabel*>(object);
    // A caption, and a label with a picture, are spoken well by themselves.
    return label == nullptr || label->buddy() != nullptr || !label->pixmap(Qt::ReturnByValue).isNull()
               ? nullptr
               : new SpokenLabel(label);
}

} // namespace

QString shownColumn(const QString& name) {
    return columnName(name).shown();
}

void speakLabelValues() {
    QAccessible::installFactory(makeSpokenLabel);
}

} // namespace orv
