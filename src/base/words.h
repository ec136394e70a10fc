// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

namespace orv {

/// Texts that only a screen shows.
class Screen {
public:
#ifdef ORV_LUPDATE // By this lupdate, which heeds no condition, learns the context.
    Q_DECLARE_TR_FUNCTIONS(orv)
#endif
    /// The text in the language of the screen. `comment` tells texts apart that are alike in English only.
    static QString tr(const char* text, const char* comment = nullptr);

    /// The text of an English one that is not written where it is shown.
    static QString shown(const QString& english) {
        return tr(english.toUtf8().constData());
    }

    /// The English text of one that tr() has given, without arguments; any other text as it is.
    static QString english(const QString& shown);
};

/// A text for the operator that is not only shown: it is its English text, which files, logs, captures and comparisons
/// take, and knows the same in the language of the screen. A plain text, such as a name, is the same in both.
///
/// What makes a new text of words and of words as arguments keeps both. A QString made of them keeps the English one.
class Words final : public QString {
public:
#ifdef ORV_LUPDATE
    Q_DECLARE_TR_FUNCTIONS(orv)
#endif
    /// See Screen::tr().
    static Words tr(const char* text, const char* comment = nullptr);

    Words() = default;
    Words(const QString& text) // NOLINT(google-explicit-constructor): a name stands wherever words may
        : QString(text)
        , shown_(text) {}
    Words(QString english, QString shown)
        : QString(std::move(english))
        , shown_(std::move(shown)) {}

    /// In the language of the screen.
    const QString& shown() const {
        return shown_;
    }
    QString english() const {
        const QString& text = *this;
        return text;
    }

    /// As QString::arg().
    template <typename... Args>
    Words arg(const Args&... args) const {
        return {QString::arg(englishOf(args)...), shown_.arg(shownOf(args)...)};
    }

    Words& operator+=(const Words& more);
    friend Words operator+(Words words, const Words& more) {
        words += more;
        return words;
    }
    friend Words operator+(const Words& words, const QString& more) {
        return words + Words(more);
    }
    friend Words operator+(const QString& words, const Words& more) {
        return Words(words) + more;
    }

private:
    template <typename Arg>
    static const Arg& englishOf(const Arg& arg) {
        return arg;
    }
    static const QString& englishOf(const Words& words) {
        return words;
    }
    template <typename Arg>
    static const Arg& shownOf(const Arg& arg) {
        return arg;
    }
    static const QString& shownOf(const Words& words) {
        return words.shown_;
    }

    QString shown_;
};

/// As QStringList::join().
Words join(const QList<Words>& parts, const Words& separator);

} // namespace orv
