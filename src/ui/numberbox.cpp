// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/numberbox.h"

#include "base/text.h"
#include "base/words.h"
#include "ui/widgets.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QToolTip>

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

namespace orv {

class NumberBox::Validator final : public QValidator {
public:
    explicit Validator(NumberBox* box)
        : QValidator(box)
        , box_(*box) {}

    State validate(QString& text, int& cursor) const override { return box_.judge(text, cursor); }

private:
    const NumberBox& box_;
};

NumberBox* NumberBox::forDigits(int maximumDigits) {
    return new NumberBox(QStringLiteral("[0-9]{0,%1}").arg(maximumDigits), maximumDigits,
                         Screen::tr("Only digits, at most %1.").arg(maximumDigits));
}

NumberBox* NumberBox::forDecimals() {
    constexpr int usualLength = 10;
    // Device files know values with a comma.
    return new NumberBox(QStringLiteral("[+-]?[0-9]*[.,]?[0-9]*"), usualLength,
                         Screen::tr("Only a number such as -0.5, with a point and no comma."));
}

NumberBox::NumberBox(const QString& form, int usualLength, QString hint)
    : form_(QRegularExpression::anchoredPattern(form))
    , hint_(std::move(hint)) {
    setValidator(new Validator(this));
    connect(this, &QLineEdit::textChanged, this, [this] { noteText(); });
    const int width = fontMetrics().horizontalAdvance(QString(usualLength + 6, u'0'));
    setMinimumWidth(width);
    setMaximumWidth(2 * width);
}

/// Takes what has the form, and the text that stands in the box, whole or with a part taken out. Leaves out the blanks
/// around what has come in.
QValidator::State NumberBox::judge(QString& text, int& cursor) const {
    if (form_.match(text).hasMatch()) {
        return QValidator::Acceptable;
    }
    const auto common = [](auto one, auto end, auto other, auto otherEnd) {
        return std::mismatch(one, end, other, otherEnd).first - one;
    };
    const auto head = common(text.cbegin(), text.cend(), standing_.cbegin(), standing_.cend());
    const auto tail = common(text.crbegin(), text.crend() - head, standing_.crbegin(), standing_.crend() - head);
    const QString added = text.sliced(head, text.size() - head - tail);
    if (added.isEmpty()) {
        return QValidator::Intermediate;
    }
    const QString mended = text.first(head) + added.trimmed() + text.last(tail);
    if (mended.size() == text.size() || !form_.match(mended).hasMatch()) {
        return QValidator::Invalid;
    }
    cursor = static_cast<int>(mended.size() - tail);
    text = mended;
    return QValidator::Acceptable;
}

void NumberBox::noteText() {
    QString now = text();
    int cursor = 0;
    // "Undo" and assistive programs do not heed the validator.
    if (judge(now, cursor) == QValidator::Invalid) {
        draw(standing_);
        return;
    }
    standing_ = text();
    followMark();
    if (!drawing_ && hasComma() && isVisible()) {
        showHint(true);
    }
    if (write_ && !drawing_) {
        write_(standing_);
    }
}

void NumberBox::follow(QProperty<QString>& text) {
    write_ = [&text](const QString& now) { text = now; };
    bindings_.bind(text, [this](const QString& shown) { draw(shown); });
}

void NumberBox::draw(const QString& shown) {
    if (text() != shown) {
        const QScopedValueRollback drawing(drawing_, true);
        standing_ = shown; // so that the box takes it
        setText(shown);
    }
}

void NumberBox::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const bool inserts = !typed.isEmpty() && typed.at(0).isPrint();
    if (inserts && typed.trimmed().isEmpty()) {
        showHint(true);
        return; // a typed blank would only delete what is selected
    }
    const auto state = [this] { return std::tuple(text(), cursorPosition(), hasSelectedText()); };
    const auto before = state();
    QLineEdit::keyPressEvent(event);
    if (inserts || event->matches(QKeySequence::Paste)) {
        showHint(state() == before || hasComma());
    }
}

void NumberBox::showHint(bool refused) {
    if (refused) {
        QToolTip::showText(mapToGlobal(QPoint(0, height())), hint_, this);
    } else if (QToolTip::text() == hint_) {
        QToolTip::hideText();
    }
}

void NumberBox::showProblem(QLabel* remark) {
    remark_ = remark;
    setMarked(!problem().isEmpty());
}

void NumberBox::markOutside(int minimum, int maximum, QLabel* remark) {
    minimum_ = minimum;
    maximum_ = maximum;
    showProblem(remark);
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    setMarked(!problem().isEmpty());
}

/// What is wrong with the text; empty if nothing is.
QString NumberBox::problem() const {
    const QString now = text();
    if (now.isEmpty()) {
        return {};
    }
    const std::optional<double> number = numberText(now);
    if (!number) {
        return hint_;
    }
    if (maximum_ == 0 || (*number >= minimum_ && *number <= maximum_)) {
        return {};
    }
    return *number < minimum_ ? Screen::tr("%1 is less than the minimum of %2.").arg(now).arg(minimum_)
                              : Screen::tr("%1 is more than the maximum of %2.").arg(now).arg(maximum_);
}

void NumberBox::followMark() {
    if (problem().isEmpty()) {
        setMarked(false);
    } else if (!hasFocus() || hasComma()) { // else it may still become one
        setMarked(true);
    }
}

void NumberBox::setMarked(bool marked) {
    if (marked || marked_) {
        const QString text = marked ? problem() : QString();
        markBox(this, text);
        setAccessibleDescription(text);
        if (remark_ != nullptr) {
            remark_->setText(marked ? Screen::tr("%1: %2").arg(accessibleName(), text) : QString());
        }
    }
    if (remark_ != nullptr) {
        remark_->setVisible(marked);
    }
    marked_ = marked;
}

} // namespace orv
