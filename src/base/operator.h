// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/words.h"

#include <QString>

#include <functional>

namespace orv {

/// What a message box tells the operator.
struct Message {
    enum class Icon { Information, Exclamation };

    Words title;
    Words text;
    Icon icon = Icon::Information;
    QString withoutWindow = {}; ///< The text where there is no window, if `text` speaks of one.

    bool operator==(const Message&) const = default;
};

/// The title of a box that is about no one operation.
inline Words programTitle() {
    return Words::tr("ORV Host Program");
}

/// A message with the exclamation icon: something did not go as the operator wanted.
inline Message operatorWarning(const Words& text, const Words& title = programTitle()) {
    return {.title = title, .text = text, .icon = Message::Icon::Exclamation};
}

/// The same message with a text for where there is no window.
inline Message withoutWindow(Message message, const QString& text) {
    message.withoutWindow = text;
    return message;
}

/// Tells the operator something. Implementations never wait for an answer, so it may be called from a tick, and show
/// a message that is still on the screen only once.
class OperatorMessages {
public:
    virtual ~OperatorMessages() = default;

    virtual void show(const Message& message) = 0;
};

/// Passes every message on.
class ToldMessages final : public OperatorMessages {
public:
    explicit ToldMessages(OperatorMessages& messages)
        : messages_(messages) {}

    void show(const Message& message) override {
        told.tell(message);
        messages_.show(message);
    }

    Signal<Message> told; ///< Every message, before it is shown.

private:
    OperatorMessages& messages_;
};

/// What the operator is asked.
struct Question {
    enum class Kind {
        YesNo,    ///< A box with the exclamation icon.
        SaveName, ///< A save dialog that asks before an existing file is replaced.
        OpenName  ///< An open dialog for one file.
    };

    Kind kind = Kind::YesNo;
    Words title;
    Words text = {};         ///< Of a box.
    Words reason = {};       ///< Why it is asked; told where there is no window and nobody to answer. May be empty.
    QString presetName = {}; ///< Of a save dialog.
    QString suffix = {};     ///< With its dot, may be empty: added to a name typed without one.
    Words filter = {};       ///< Such as "*.txt"; may be empty.

    bool operator==(const Question&) const = default;

    static QString yes() { return QStringLiteral("Yes"); }
    static QString no() { return QStringLiteral("No"); }
};

inline Question yesNoQuestion(const Words& title, const Words& text) {
    return {.kind = Question::Kind::YesNo, .title = title, .text = text};
}

inline Question saveQuestion(const Words& title, const QString& presetName, const QString& suffix,
                             const Words& filter) {
    return {
        .kind = Question::Kind::SaveName, .title = title, .presetName = presetName, .suffix = suffix, .filter = filter};
}

inline Question openQuestion(const Words& title, const QString& suffix, const Words& filter) {
    return {.kind = Question::Kind::OpenName, .title = title, .suffix = suffix, .filter = filter};
}

/// Asks the operator something. Implementations show the question and return; the program goes on meanwhile.
class OperatorQuestions {
public:
    /// "Yes" or "No", or the name of the file, empty when the operator cancels.
    using Answered = std::function<void(const QString& answer)>;

    virtual ~OperatorQuestions() = default;

    /// Calls `answered` once, perhaps before it returns. If the last copy of what is returned goes before, the question
    /// is taken back: its dialog closes and nobody is called.
    [[nodiscard]] virtual Subscription ask(const Question& question, Answered answered) = 0;
};

} // namespace orv
