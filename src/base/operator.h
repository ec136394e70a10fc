// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orv {

/// What a message box tells the operator.
struct Message {
    enum class Icon { Information, Exclamation };

    QString title;
    QString text;
    Icon icon = Icon::Information;

    bool operator==(const Message&) const = default;
};

/// The title of a box that is about no one operation.
inline QString programTitle() {
    return QStringLiteral("ORV Host Program");
}

/// A message with the exclamation icon: something did not go as the operator wanted.
inline Message operatorWarning(const QString& text, const QString& title = programTitle()) {
    return {.title = title, .text = text, .icon = Message::Icon::Exclamation};
}

/// Tells the operator something. Implementations never wait for an answer, so it may be called from a tick, and show
/// a message that is still on the screen only once.
class OperatorMessages {
public:
    virtual ~OperatorMessages() = default;

    virtual void show(const Message& message) = 0;
};

/// Asks the operator something and waits for the answer. Ticks go on meanwhile, so the caller looks afresh at what it
/// relies on when the answer has come. Every name is empty when the operator cancels.
class OperatorQuestions {
public:
    virtual ~OperatorQuestions() = default;

    /// A Yes/No box with the exclamation icon; true for Yes.
    virtual bool askYesNo(const QString& title, const QString& text) = 0;

    /// A save dialog that asks before an existing file is replaced. `filter` such as "*.txt"; `suffix` (with its dot,
    /// may be empty) is added to a name typed without one.
    virtual QString saveFileName(const QString& title, const QString& presetName, const QString& suffix,
                                 const QString& filter) = 0;

    /// An open dialog for one file.
    virtual QString openFileName(const QString& title, const QString& suffix, const QString& filter) = 0;
};

} // namespace orv
