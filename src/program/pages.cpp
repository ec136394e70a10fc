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
    {"Status and Controls", Page::Status, true},
    {"Output: Spread Sheet", Page::Sheet, true},
    {"Output: Graphical", Page::Graphical, true},
    {"Debug Screen", Page::Debug, false},
    {"Testing", Page::Testing, false},
    {"Calibration", Page::Calibration, false},
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
