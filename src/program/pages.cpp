// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/pages.h"

namespace orv {

namespace {

struct Tab {
    const char* caption;
    Page page;
    bool upper;
};

constexpr Tab tabs[] = {
    {QT_TRANSLATE_NOOP("orv", "Status and Controls"), Page::Status, true},
    {QT_TRANSLATE_NOOP("orv", "Output: Spread Sheet"), Page::Sheet, true},
    {QT_TRANSLATE_NOOP("orv", "Output: Graphical"), Page::Graphical, true},
    {QT_TRANSLATE_NOOP("orv", "Debug Screen"), Page::Debug, false},
    {QT_TRANSLATE_NOOP("orv", "Testing"), Page::Testing, false},
    {QT_TRANSLATE_NOOP("orv", "Calibration"), Page::Calibration, false},
};

QStringList captions(bool upper) {
    QStringList list;
    for (const Tab& tab : tabs) {
        if (tab.upper == upper) {
            list.append(QString::fromLatin1(tab.caption));
        }
    }
    return list;
}

} // namespace

Page pageOfCaption(const QString& caption) {
    for (const Tab& tab : tabs) {
        if (caption == QLatin1String(tab.caption)) {
            return tab.page;
        }
    }
    return Page::None;
}

QStringList upperCaptions() {
    return captions(true);
}

QStringList lowerCaptions() {
    return captions(false);
}

} // namespace orv
