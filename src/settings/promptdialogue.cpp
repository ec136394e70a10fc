// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/promptdialogue.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace orv {

namespace {

/// How often the windows are kept alive during a wait, in milliseconds of monotonic time.
constexpr qint64 responsiveInterval = 10;

constexpr int progressStep = 10;
constexpr int progressMaximum = 100;

} // namespace

PromptDialogue::PromptDialogue(const SendingParts& parts)
    : p_(parts) {}

PromptOutcome PromptDialogue::waitprompt() {
    const QScopedValueRollback polling(polling_, true);
    const Clock& clock = p_.session.clock;
    const quint64 connection = p_.ports.connectionNumber();
    qint64 lastResponsive = clock.monotonicMilliseconds();
    // A prompt left over from before stands in the poll's buffer without a line end; it would be taken for the
    // beginning of the next line.
    p_.poll.rxbuffer.clear();
    p_.session.status.bufferCount = 0;
    p_.session.state.Rtn.clear();

    QByteArray text;
    for (int pass = 0; pass < maximumPasses; ++pass) {
        p_.ports.waitForInput(1);
        const QByteArray block = p_.ports.readAll();
        if (!block.isEmpty()) {
            if (transcriptWanted()) {
                p_.debug.list.append(QString::fromLatin1(block));
            }
            text += block;
            if (takePrompt(text, block.size())) {
                return keepResponsive(connection) ? PromptOutcome::Came : PromptOutcome::ConnectionLost;
            }
        } else if (p_.ports.checkFailure()) {
            return PromptOutcome::ConnectionLost;
        }
        const qint64 now = clock.monotonicMilliseconds();
        if (now - lastResponsive >= responsiveInterval) {
            lastResponsive = now;
            if (!keepResponsive(connection)) {
                return PromptOutcome::ConnectionLost;
            }
        }
    }
    if (p_.debug.rawBuffer) {
        p_.debug.list.append(QStringLiteral("Timeout"));
    }
    return PromptOutcome::TimedOut;
}

bool PromptDialogue::takePrompt(const QByteArray& text, qsizetype newCharacters) {
    // A prompt that nothing stands before is left over from an earlier command.
    const auto first = text.cbegin() + std::max<qsizetype>(text.size() - newCharacters, 1);
    const auto prompt = std::find_if(first, text.cend(), [](char c) { return c == '>' || c == '.'; });
    if (prompt == text.cend()) {
        return false;
    }
    p_.session.state.Rtn = QString::fromLatin1(text.constData(), prompt - text.cbegin());
    p_.debug.list.selectLast();
    p_.settings.lamp = Lamp::Sending;
    p_.progress.value = std::min(p_.progress.value + progressStep, progressMaximum);
    p_.progress.valueLabel = QString::number(p_.progress.value);
    return true;
}

bool PromptDialogue::keepResponsive(quint64 connection) {
    p_.events.keepResponsive(false);
    return !p_.events.programEnding() && p_.ports.connectionNumber() == connection;
}

void PromptDialogue::send(const QString& item, const QByteArray& terminator) {
    p_.ports.write(item.toLatin1() + terminator);
    // The transcript of this talk follows the settings screen's option alone, not the service mode: only the words
    // "Timeout" follow the debug screen's own option.
    if (transcriptWanted()) {
        p_.debug.list.append(item);
    }
}

void PromptDialogue::finish() {
    p_.progress.value = 0;
    p_.progress.valueLabel = QStringLiteral("0");
    p_.settings.lamp = Lamp::Sent;
    p_.timer.setInterval(StatusTimer::slowInterval);
    p_.ports.discardInput();
    p_.session.state.Ctrlscrn = opstate::ready;
    p_.ports.write("P");
}

bool PromptDialogue::transcriptWanted() const {
    const bool glow = p_.session.status.instrument.value() == QLatin1String("GLOW");
    return glow ? p_.settings.glowProvideRawCounts : p_.settings.trxProvideRawCounts;
}

} // namespace orv
