// SPDX-License-Identifier: GPL-3.0-or-later
#ifdef ORV_WINDOWS
#include <QApplication>
#include <QStyleFactory>
#else
#include <QCoreApplication>
#endif

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// For tests of what needs a running application. Those of screens need no display, also when the build asks them for
/// their names.
int main(int argc, char** argv) {
    // What the program remembers for its operator is none of the tests' business, nor of the programs that they start.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
#ifdef ORV_WINDOWS
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
#else
    const QCoreApplication application(argc, argv);
#endif
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
