// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/words.h"

#include <QCoreApplication>
#include <QHash>

namespace orv {

namespace {

QHash<QString, QString>& englishOfShown() {
    static QHash<QString, QString> texts;
    return texts;
}

} // namespace

QString Screen::tr(const char* text, const char* comment) {
    return Words::tr(text, comment).shown();
}

QString Screen::english(const QString& shown) {
    return englishOfShown().value(shown, shown);
}

Words Words::tr(const char* text, const char* comment) {
    QString english = QString::fromUtf8(text);
    QString shown = QCoreApplication::translate("orv", text, comment);
    if (shown != english) {
        englishOfShown().insert(shown, english);
    }
    return {std::move(english), std::move(shown)};
}

Words& Words::operator+=(const Words& more) {
    append(more);
    shown_ += more.shown_;
    return *this;
}

Words join(const QList<Words>& parts, const Words& separator) {
    Words joined;
    for (const Words& part : parts) {
        joined += joined.isEmpty() ? part : separator + part;
    }
    return joined;
}

} // namespace orv
