// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/captureformat.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <string>
#include <vector>

namespace orv {

/// The captures in src/testing/captures that this program made ("orvhost", "orv"), by their names.
std::vector<std::string> capturesOf(const char* program);

/// Such a capture; the test fails unless it can be read whole.
CaptureContents capture(const std::string& name);

/// What a capture tells apart from when: one line for each thing that was shown, told or asked and that happened to the
/// line, in their order; then all that was received, and all that was sent.
QStringList outcomeOf(const CaptureContents& contents);

/// The name of a test that takes a capture's name.
inline std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param.substr(0, info.param.find('.'));
    for (char& character : name) {
        character = std::isalnum(static_cast<unsigned char>(character)) != 0 ? character : '_';
    }
    return name;
}

} // namespace orv
