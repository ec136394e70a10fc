// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/terminal.h"

#include "base/files.h"
#include "console/standardoutput.h"

#include <QJsonDocument>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace orv {

Terminal::Terminal(QIODevice& output, QIODevice& error, bool progress, Speech speech)
    : output_(output)
    , error_(error)
    , progress_(progress)
    , speech_(speech) {}

bool Terminal::print(const QString& line) {
    showProgress(QString());
    const QByteArray bytes = line.toLocal8Bit() + '\n';
    const bool taken = output_.write(bytes) == bytes.size();
    if (!taken && problem_.isEmpty()) {
        problem_ = errorText(output_).english();
    }
    return taken;
}

Words Terminal::syncOutput() const {
    const auto* standard = dynamic_cast<const StandardOutput*>(&output_);
    return standard != nullptr ? standard->sync() : Words();
}

bool Terminal::print(const QJsonObject& object) {
    return print(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

void Terminal::say(const QString& text) {
    said.tell(text);
    showProgress(QString());
    error_.write("orv: " + text.toLocal8Bit() + '\n');
}

void Terminal::tell(const QString& text) {
    say(text);
}

void Terminal::remark(const QString& text) {
    if (speech_ != Speech::Quiet) {
        say(text);
    }
}

void Terminal::detail(const QString& text) {
    if (speech_ == Speech::Verbose) {
        say(text);
    }
}

void Terminal::showProgress(const QString& text) {
    if (showsProgress() && text != shown_) {
        const auto width = std::max(text.size(), shown_.size());
        error_.write('\r' + text.leftJustified(width).toLocal8Bit() + (text.isEmpty() ? "\r" : ""));
        shown_ = text;
    }
}

QString progressBar(double share) {
    constexpr int width = 20;
    const double part = std::clamp(share, 0.0, 1.0);
    const auto full = static_cast<int>(std::floor(part * width));
    return QStringLiteral("[%1%2] %3 %")
        .arg(QString(full, u'#'), QString(width - full, u' '))
        .arg(static_cast<int>(std::floor(part * 100.0)), 3);
}

void ConsoleMessages::show(const Message& message) {
    if (told_.contains(message.text)) {
        return;
    }
    told_.insert(message.text);
    // Here the port is what the command line names.
    static const QRegularExpression port(QStringLiteral("COM 1 \\(([^)]*)\\)"));
    QString text = message.withoutWindow.isEmpty() ? message.text : message.withoutWindow;
    text.replace(port, QStringLiteral("\\1")).replace(QLatin1String("\n\n"), QLatin1String("\n     "));
    terminal_.tell(text);
}

Subscription SafeAnswers::ask(const Question& question, Answered answered) {
    const QString asked = question.text.isEmpty() ? question.title.english() : question.text.english();
    terminal_.tell(question.reason.isEmpty() ? asked + QStringLiteral(" No.") : question.reason.english());
    answered(question.kind == Question::Kind::YesNo ? Question::no() : QString());
    return {};
}

} // namespace orv
