// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <utility>

namespace orv {

QStringList languages() {
    return {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("es"), QStringLiteral("fr")};
}

QString systemLanguage() {
    const QStringList ours = languages();
    for (const QString& name : QLocale::system().uiLanguages()) { // "de-AT"
        QString code = name.section(u'-', 0, 0);
        if (ours.contains(code)) {
            return code;
        }
    }
    return ours.constFirst();
}

Language::Language(const QString& code) {
    const QLocale locale(code);
    if (QLocale::system().language() != locale.language()) {
        QLocale::setDefault(locale);
    }
    if (code == languages().constFirst()) {
        return;
    }
    const std::pair<QString, QString> files[] = {
        {QStringLiteral("qtbase_") + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath)},
        {QStringLiteral("orvhost_") + code, QStringLiteral(":/language")}};
    for (const auto& [name, folder] : files) {
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(name, folder)) {
            QCoreApplication::installTranslator(translator.get());
            translators_.push_back(std::move(translator));
        }
    }
}

Language::~Language() { // a translator that goes is no longer asked
    QLocale::setDefault(before_);
}

} // namespace orv
