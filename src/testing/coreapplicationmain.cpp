// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>

#include <gtest/gtest.h>

/// For tests of what needs a running application but no window.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
