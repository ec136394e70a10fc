// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/fuzzing.h"
#include "settings/devicefiles.h"
#include "settings/modes.h"

#include <algorithm>

namespace orv::fuzzing {

void modefile(Input input) {
    const ReadMode read = readModeFile(input.rest());
    if (!read.error.isEmpty()) {
        require(read.mode == LoggerSettings(), "a refused file has settings");
        return;
    }
    for (const Setting& setting : numberSettings) {
        const QString text = read.mode.*setting.number;
        require(text.size() <= setting.digits &&
                    std::ranges::all_of(text, [](QChar character) { return character >= u'0' && character <= u'9'; }),
                "a setting cannot stand in its box", [&text] { return text; });
    }
    const ReadMode again = readModeFile(modeFileContent(read.mode));
    require(again.error.isEmpty(), "a saved mode cannot be loaded", [&again] { return again.error; });
    require(again.mode == read.mode, "a saved mode is another");
}

void devicefile(Input input) {
    const QByteArray bytes = input.rest();
    const auto values = readDeviceFile(bytes);
    if (!values) {
        const QByteArray plain = QByteArray(bytes).replace("\r\n", "\n");
        constexpr qsizetype all = 6;
        require(plain.contains('"') || plain.count(',') + plain.count('\n') + plain.count('\r') < all,
                "six values were not read");
        return;
    }
    const auto isPlain = [](const QString& value) {
        return !value.startsWith(u' ') && !value.startsWith(u'"') && std::ranges::none_of(value, [](QChar character) {
            return character == u',' || character == u'\r' || character == u'\n';
        });
    };
    if (std::ranges::all_of(*values, isPlain)) {
        const auto again = readDeviceFile(deviceFileBytes(*values));
        require(again.has_value(), "saved values cannot be loaded");
        require(*again == *values, "saved values are others");
    }
}

} // namespace orv::fuzzing
