// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/words.h"
#include "settings/loggersettings.h"

#include <QAbstractButton>
#include <QColor>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

class QComboBox;

namespace orv {

/// A control with its object name and the name that assistive programs hear.
template <typename Control>
Control* makeControl(QAnyStringView name, QAnyStringView accessibleName) {
    auto* control = new Control;
    control->setObjectName(name.toString());
    control->setAccessibleName(accessibleName.toString());
    return control;
}

/// With a full stop at its end.
inline QString asSentence(const QString& text) {
    return text.endsWith(u'.') ? text : text + u'.';
}

/// A label for a text that changes. It is plain and cannot be selected.
QLabel* makeTextLabel(QAnyStringView name, QAnyStringView accessibleName);

/// A text label for a value, which can be selected.
QLabel* makeValueLabel(QAnyStringView name, QAnyStringView accessibleName);

/// A value label in a sunken frame, for a number at the right.
QLabel* makeFramedLabel(QAnyStringView name, QAnyStringView accessibleName);

/// A label for a text that changes often while all around it stays.
QLabel* makeChangingLabel(QAnyStringView name, QAnyStringView accessibleName);

/// The same for a number. Its size is fixed, as wide as `widest`, so that a new number does not lay out the page anew.
QLabel* makeNumberLabel(QAnyStringView name, QAnyStringView accessibleName, QAnyStringView widest);

/// A label that keeps its place: it has the room of so many lines, whatever it says, and takes more only for a text
/// that needs more there. Its page is not laid out anew for a new text, and is never wider for a long one; the whole
/// text is its tool tip.
class SteadyLabel final : public QWidget {
public:
    explicit SteadyLabel(QLabel* label, int lines = 1);

    void setText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int room() const;
    void fit();

    QLabel* label_;
    int lines_;
};

/// Lets a control come and go without anything else moving: it has its room while it is hidden, too.
void keepRoomOf(QWidget* control);

/// A label that belongs to `buddy`: its mnemonic moves the focus there.
QLabel* makeCaption(QAnyStringView text, QWidget* buddy);

/// Gives a label letters of so many times the usual size.
void enlarge(QLabel* label, double factor);

/// Shows a sign at the end of a box, with the reason as its tool tip; none if the reason is empty.
void markBox(QLineEdit* box, const QString& why);

/// A box for a line of text. Its caption is what assistive programs hear, unless it has a name of its own.
QLineEdit* makeBox(QAnyStringView name, QAnyStringView toolTip, QAnyStringView accessibleName = {});

/// A box in which nothing can be typed; it has the ground of the page, so that it does not look as if.
QLineEdit* makeReadOnlyBox(QAnyStringView name, QAnyStringView accessibleName, QAnyStringView toolTip);

/// A push button that calls `clicked`. The Enter key presses it only while it has the focus.
QPushButton* makeButton(QAnyStringView caption, QAnyStringView name, const std::function<void()>& clicked,
                        QAnyStringView toolTip = {});

/// An option button; of those with one parent only one is selected.
QRadioButton* makeOption(QAnyStringView caption, QAnyStringView name, QAnyStringView toolTip = {});

/// Lets a page be seen whole in a window that is smaller than it, instead of enlarging the window.
QWidget* scrollable(QWidget* page);

/// A frame with a title, which may be empty.
QGroupBox* makeFrame(QAnyStringView title, QAnyStringView name = {});

/// Lets a control or a menu entry follow the property: whether it is enabled, whether it is there, or what it says. A
/// control that is shown must have its parent, or it would be a window for a moment.
template <typename Control>
void bindEnabled(Bindings& bindings, Control* control, const QProperty<bool>& enabled) {
    bindings.bind(enabled, [control](bool on) { control->setEnabled(on); });
}
template <typename Control>
void bindVisible(Bindings& bindings, Control* control, const QProperty<bool>& visible) {
    bindings.bind(visible, [control](bool on) { control->setVisible(on); });
}
template <typename Control>
void bindText(Bindings& bindings, Control* control, const QProperty<QString>& text) {
    bindings.bind(text, [control](const QString& shown) { control->setText(shown); });
}
template <typename Control>
void bindText(Bindings& bindings, Control* control, const QProperty<Words>& text) {
    bindings.bind(text, [control](const Words& words) { control->setText(words.shown()); });
}

/// Lets a box show the property and set it whenever its text changes, also by an assistive program.
void bindTyped(Bindings& bindings, QLineEdit* box, QProperty<QString>& text);

/// Lets a check box show the property and set it whenever it is switched, also by an assistive program.
void bindChecked(Bindings& bindings, QAbstractButton* button, QProperty<bool>& checked);

/// Calls `chosen` when the operator chooses an option: by a click or a key, also if it is selected already, or by an
/// assistive program. What selects it by showChecked() is no choice.
void onChosen(QAbstractButton* option, const std::function<void()>& chosen);

/// Switches a button on or off without that being the operator's choice.
void showChecked(QAbstractButton* button, bool on);

/// Selects one of several option buttons when the property has its value, and sets the property when the operator
/// chooses it.
template <typename Value>
void bindOption(Bindings& bindings, QAbstractButton* option, QProperty<Value>& choice, Value value) {
    bindings.bind(choice, [option, value](Value chosen) {
        if (chosen == value) {
            showChecked(option, true);
        }
    });
    onChosen(option, [&choice, value] { choice = value; });
}

/// Chooses an entry that an assistive program selects in the chooser's list, which by itself only marks it there.
void takeSelections(QComboBox* chooser);

/// Whether the Tab key stops at an option button: only at the selected one of its group, the arrow keys go on from
/// there.
void setTabStop(QAbstractButton* option, bool on);

/// Lets two option buttons of one group show the property, one for each of its values, and set it.
void bindChoice(Bindings& bindings, QAbstractButton* whenTrue, QAbstractButton* whenFalse, QProperty<bool>& choice);

/// Draws what a widget shows: once for all changes within some milliseconds after the first of them and when the widget
/// comes to be seen, and not at all while it is hidden.
class Redrawing final : public QObject {
public:
    /// `draw` may be called when nothing has changed.
    Redrawing(QWidget* widget, int delay, std::function<void()> draw);

    /// Something has changed.
    void noteChange() { noteChange(timer_.interval()); }
    void noteChange(int delay);

    /// Draws at once what has changed, as something beside it is drawn anyway.
    void drawNow();

    /// All changes have been drawn already.
    void cancel() { timer_.stop(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* widget_;
    std::function<void()> draw_;
    QTimer timer_;
};

/// The labels of a page whose values may change a thousand times a second: drawn about twice a second, as fast as
/// figures can be read, and not at all while the page is hidden.
class LateTexts {
public:
    static constexpr int delay = 500; ///< Milliseconds after the first of some changes.

    explicit LateTexts(QWidget* page);

    /// Lets the label follow the property.
    void bind(QLabel* label, const QProperty<QString>& text);
    void bind(QLabel* label, const QProperty<int>& number);
    /// Draws something else with the labels whenever the property changes, so that all tell of one moment.
    void bind(const QProperty<QString>& text, std::function<void()> draw);

    /// Draws at once what has changed, as something beside it is drawn anyway.
    void drawNow() { redrawing_.drawNow(); }

private:
    std::vector<std::function<void()>> drawings_;
    Redrawing redrawing_;
    Bindings bindings_;
};

/// The lamp's colour: red while a report is read, yellow while settings are sent and when that has failed, green when
/// they were sent, blue when a report has been read; an invalid colour while it is off.
QColor lampColour(Lamp lamp);

/// What the lamp says, in words, for those who cannot tell it by its colour.
QString lampText(Lamp lamp);

/// The status lamp: a filled circle.
class StatusLamp final : public QWidget {
public:
    explicit StatusLamp(QWidget* parent = nullptr);

    void show(Lamp lamp);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Lamp lamp_ = Lamp::Off;
};

/// The name of a column of the sheet as the screen shows it; files, copies and exports have the name itself. A name
/// that is not the program's own, such as "Ref", is the same in each language.
QString shownColumn(const QString& name);

/// From now on assistive programs hear a label that shows a value as "Status: Ready". By itself a label with an
/// accessible name is heard as "Status" and its value never. Further calls change nothing.
void speakLabelValues();

} // namespace orv
