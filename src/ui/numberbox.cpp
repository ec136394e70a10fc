// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/numberbox.h"

#include "base/text.h"

#include <QAction>
#include <QFocusEvent>
#include <QStyle>
#include <QValidator>

#include <algorithm>
#include <limits>
#include <utility>

namespace orv {

namespace {

/// Lets texts of the allowed characters and length pass, and the text that stands in the box, whole or shortened.
class NumberValidator final : public QValidator {
public:
    NumberValidator(QObject* box, const QString& standing, QString allowed, int maximumLength)
        : QValidator(box)
        , standing_(standing)
        , allowed_(std::move(allowed))
        , maximumLength_(maximumLength) {}

    State validate(QString& text, int& /*position*/) const override {
        const bool fits = text.size() <= maximumLength_ &&
                          std::all_of(text.cbegin(), text.cend(), [this](QChar c) { return allowed_.contains(c); });
        if (fits) {
            return Acceptable;
        }
        return text == standing_ || text.size() < standing_.size() ? Intermediate : Invalid;
    }

private:
    const QString& standing_;
    QString allowed_;
    int maximumLength_;
};

QString digits() {
    return QStringLiteral("0123456789");
}

} // namespace

NumberBox* NumberBox::forDigits(int maximumDigits) {
    return new NumberBox(digits(), maximumDigits);
}

NumberBox* NumberBox::forDecimals() {
    // Device files know values with a comma.
    return new NumberBox(digits() + QStringLiteral("+-.,"), std::numeric_limits<int>::max());
}

NumberBox::NumberBox(const QString& allowed, int maximumLength) {
    setValidator(new NumberValidator(this, standing_, allowed, maximumLength));
    connect(this, &QLineEdit::textChanged, this, [this](const QString& now) { standing_ = now; });
    constexpr int widestShown = 10;
    const int width = fontMetrics().horizontalAdvance(QString(std::min(maximumLength, widestShown) + 6, u'0'));
    setMinimumWidth(width);
    setMaximumWidth(2 * width);
}

void NumberBox::follow(QProperty<QString>& text) {
    connect(this, &QLineEdit::textEdited, this, [&text](const QString& typed) { text = typed; });
    bindings_.bind(text, [this](const QString& shown) { draw(shown); });
}

void NumberBox::draw(const QString& shown) {
    if (text() != shown) {
        standing_ = shown; // so that the box takes it
        setText(shown);
    }
}

void NumberBox::markOver(int maximum, QLabel* remark) {
    maximum_ = maximum;
    remark_ = remark;
    warning_ = addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
    warning_->setVisible(false);
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!isOver()) {
            setMarked(false);
        } else if (!hasFocus()) {
            setMarked(true);
        }
    });
    setMarked(isOver());
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    setMarked(isOver());
}

bool NumberBox::isOver() const {
    return maximum_ > 0 && leadingNumber(text()) > maximum_;
}

void NumberBox::setMarked(bool marked) {
    if (maximum_ == 0) {
        return;
    }
    if (marked || marked_) {
        const QString text =
            marked ? QStringLiteral("%1 is more than the maximum of %2.").arg(this->text()).arg(maximum_) : QString();
        warning_->setToolTip(text);
        setAccessibleDescription(text);
        remark_->setText(marked ? accessibleName() + QStringLiteral(": ") + text : QString());
    }
    remark_->setVisible(marked);
    warning_->setVisible(marked);
    marked_ = marked;
}

} // namespace orv
