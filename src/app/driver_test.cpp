// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/driver.h"

#include "testing/windowrig.h"

namespace orv {
namespace {

class DriverTest : public WindowTest {
protected:
    /// The operator ends the program, which waits for what never comes.
    Task<> waitForever() {
        QTimer::singleShot(0, window.get(), [this] { item("Quit").trigger(); });
        const QString what = QStringLiteral("Waiting");
        const std::function<bool()> never = [] { return false; };
        co_await driver.waitFor(what, Driver::connectLimit, never);
    }

    Task<> waitInVain() {
        const QString what = QStringLiteral("Waiting");
        const std::function<bool()> never = [] { return false; };
        co_await driver.waitFor(what, Driver::connectLimit, never);
    }

    MessageBoxes boxes;
    Driver driver{program, *window, boxes};
};

TEST_F(DriverTest, QuitEndsTheJobAtOnce) {
    bool late = false;
    constexpr int patience = 5000;
    QTimer::singleShot(patience, window.get(), [&late] {
        late = true;
        QCoreApplication::exit();
    });
    testing::internal::CaptureStderr();
    EXPECT_EQ(driver.run([this] { return waitForever(); }), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed: the program was ended\n");
    EXPECT_FALSE(late);
}

TEST_F(DriverTest, AWaitHasItsLimitAlsoWhenTheComputersClockIsSetBack) {
    QTimer time;
    QObject::connect(&time, &QTimer::timeout, &time, [this] {
        clock.set(clock.now().addSecs(-3600));
        clock.advance(1000);
    });
    time.start(0);
    testing::internal::CaptureStderr();
    EXPECT_EQ(driver.run([this] { return waitInVain(); }), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed: Waiting: nothing for 20 s; the status is \"Offline\"\n");
    EXPECT_LE(clock.monotonicMilliseconds(), 25'000);
}

} // namespace
} // namespace orv
