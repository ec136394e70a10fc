// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktopnotice.h"

#include "base/text.h"

#include <utility>

#if defined(Q_OS_LINUX)
#include "app/messagebus.h"
#include "base/words.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <optional>
#endif

namespace orv {

NoticeWhenDone::NoticeWhenDone(const Program& program, DesktopNotice& notice, std::function<bool()> windowIsActive)
    : program_(program)
    , notice_(notice)
    , windowIsActive_(std::move(windowIsActive)) {
    bindings_.bind(program.link.session.commands.activity, [this](Activity activity) { follow(activity); });
}

void NoticeWhenDone::follow(Activity activity) {
    const bool goes = activity == Activity::Collecting || activity == Activity::Downloading;
    const Clock& clock = program_.link.session.clock;
    if (goes && going_ == Activity::None) {
        going_ = activity;
        start_ = clock.monotonicMilliseconds();
    } else if (!goes && going_ != Activity::None) {
        const Activity ended = std::exchange(going_, Activity::None);
        constexpr qint64 shortest = 30'000;
        if (clock.monotonicMilliseconds() - start_ > shortest) {
            // Not before everything that the end brings has been put in order.
            soon_ = program_.link.session.clock.callAfter(0, [this, ended] { tell(ended); });
        }
    }
}

void NoticeWhenDone::tell(Activity ended) {
    if (!windowIsActive_()) {
        notice_.show(ended == Activity::Collecting ? Screen::tr("The run has ended")
                                                   : Screen::tr("The download has ended"),
                     program_.nextStep.text.value().shown());
    }
}

namespace {

#if defined(Q_OS_LINUX)
/// A bus that is missing, silent or without a notification service costs nothing and is not told of.
class BusNotice final : public DesktopNotice {
public:
    explicit BusNotice(QString busAddress)
        : address_(std::move(busAddress)) {}
    ~BusNotice() override {
        if (connected_) {
            QDBusConnection::disconnectFromBus(connectionName());
        }
    }

    void show(const QString& title, const QString& text) override {
        knock_.emplace(address_, [this, title, text] {
            connected_ = true;
            const QString service = QStringLiteral("org.freedesktop.Notifications");
            QDBusMessage message = QDBusMessage::createMethodCall(
                service, QStringLiteral("/org/freedesktop/Notifications"), service, QStringLiteral("Notify"));
            constexpr uint replacesNone = 0;
            constexpr int asLongAsUsual = -1;
            message << QStringLiteral("ORV Host") << replacesNone << QStringLiteral("orvhost") << title
                    << text.toHtmlEscaped() << QStringList() << QVariantMap() << asLongAsUsual;
            QDBusConnection::connectToBus(address_, connectionName()).send(message);
        });
    }

private:
    static QString connectionName() { return QStringLiteral("orvhost-notice"); }

    QString address_;
    std::optional<BusKnock> knock_;
    bool connected_ = false;
};

QString sessionBus() {
    return qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS",
                                QStringLiteral("unix:path=%1/bus").arg(qEnvironmentVariable("XDG_RUNTIME_DIR")));
}
#endif

} // namespace

std::unique_ptr<DesktopNotice> makeDesktopNotice([[maybe_unused]] const QString& busAddress) {
#if defined(Q_OS_LINUX)
    return std::make_unique<BusNotice>(busAddress.isEmpty() ? sessionBus() : busAddress);
#else
    return std::make_unique<DesktopNotice>();
#endif
}

} // namespace orv
