// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QTranslator;

namespace orv {

/// The languages that the screens speak, by their codes ("en", "de"). English comes first: it needs no translation.
QStringList languages();

/// The one of them that the operator has asked his system for, else English.
QString systemLanguage();

/// As long as it lives all texts that are made speak that language, Qt's own too as far as they are installed, and Qt's
/// dialogs have its dates and sizes of files; a system of that language keeps those of its country. What is made before
/// stays as it is: it comes before the first window and the program.
class Language {
public:
    explicit Language(const QString& code);
    ~Language();
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;

private:
    QLocale before_;
    std::vector<std::unique_ptr<QTranslator>> translators_;
};

} // namespace orv
