// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// As long as it lives all texts that are made speak that language, Qt's own too as far as they are installed. What is
/// made before stays as it is: it comes before the first window and the program.
class Language {
public:
    explicit Language(const QString& code);
    ~Language();
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;

private:
    std::vector<std::unique_ptr<QTranslator>> translators_;
};

} // namespace orv
