// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"

#include <QLabel>
#include <QLineEdit>

namespace orv {

/// A text box for a number. It refuses what cannot be part of one as it is typed, and may be empty. A text that is set
/// by the program is shown whole, whatever it is, and can be shortened by the operator.
class NumberBox final : public QLineEdit {
public:
    /// A box for a whole number without sign, of at most so many digits.
    static NumberBox* forDigits(int maximumDigits);

    /// A box for a decimal number: digits, sign, point and comma.
    static NumberBox* forDecimals();

    /// Shows the property and writes into it what is typed.
    void follow(QProperty<QString>& text);

    /// The same for one text of a value.
    template <typename Value>
    void follow(QProperty<Value>& value, QString Value::*text) {
        connect(this, &QLineEdit::textEdited, this, [&value, text](const QString& typed) {
            change(value, [text, &typed](Value& changed) { changed.*text = typed; });
        });
        bindings_.bind(value, [this, text](const Value& now) { draw(now.*text); });
    }

    /// A number over `maximum` is marked when the box is left, or at once when the program sets it; the mark goes as
    /// soon as the number is in range. `remark` is shown meanwhile and says so under the box's accessible name.
    void markOver(int maximum, QLabel* remark);

    bool isMarked() const { return marked_; }

protected:
    void focusOutEvent(QFocusEvent* event) override;

private:
    NumberBox(const QString& allowed, int maximumLength);
    void draw(const QString& shown);
    bool isOver() const;
    void setMarked(bool marked);

    Bindings bindings_;
    QString standing_; ///< The text of the box; while the program sets one, that text already.
    int maximum_ = 0;  ///< 0: none.
    QLabel* remark_ = nullptr;
    QAction* warning_ = nullptr;
    bool marked_ = false;
};

} // namespace orv
