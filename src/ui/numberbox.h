// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"

#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QValidator>

#include <functional>

namespace orv {

/// A text box for a number, which may be empty. In whatever way text comes in (typed, pasted, dropped, undone, from an
/// input method or an assistive program), it is refused whole unless it leaves a number that is being typed; only
/// blanks around it are left out. A key that is refused has a hint beside the box say what is taken. A text that is set
/// by the program is shown whole, whatever it is, and can be shortened by the operator.
///
/// What stands in the box and is no number, or none in its range, is marked: when the box is left, or at once when the
/// program sets it or when it has a comma, which device files know and no reader of numbers does.
class NumberBox final : public QLineEdit {
public:
    /// A box for a whole number without sign, of at most so many digits.
    static NumberBox* forDigits(int maximumDigits);

    /// A box for a decimal number: a sign, digits, a point. A comma is taken and marked, with the hint.
    static NumberBox* forDecimals();

    /// Shows the property and writes into it what the operator puts into the box.
    void follow(QProperty<QString>& text);

    /// The same for one text of a value.
    template <typename Value>
    void follow(QProperty<Value>& value, QString Value::*text) {
        write_ = [&value, text](const QString& now) {
            change(value, [text, &now](Value& changed) { changed.*text = now; });
        };
        bindings_.bind(value, [this, text](const Value& now) { draw(now.*text); });
    }

    /// `remark` is shown while the box is marked and says why under the box's accessible name.
    void showProblem(QLabel* remark);

    /// The same; a number below `minimum` or over `maximum` is marked too, until it is in range.
    void markOutside(int minimum, int maximum, QLabel* remark);

    bool isMarked() const { return marked_; }

    /// The program is setting its text.
    bool isDrawing() const { return drawing_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    class Validator;

    NumberBox(const QString& form, int usualLength, QString hint);
    QValidator::State judge(QString& text, int& cursor) const;
    void noteText();
    void draw(const QString& shown);
    bool hasComma() const { return text().contains(u','); }
    QString problem() const;
    void followMark();
    void setMarked(bool marked);
    void showHint(bool refused);

    Bindings bindings_;
    QRegularExpression form_; ///< Of a number that is being typed.
    QString standing_;        ///< The text of the box; while the program sets one, that text already.
    std::function<void(const QString& now)> write_;
    bool drawing_ = false;
    QString hint_; ///< What the box takes.
    int minimum_ = 0;
    int maximum_ = 0; ///< 0: every number is in range.
    QLabel* remark_ = nullptr;
    bool marked_ = false;
};

} // namespace orv
