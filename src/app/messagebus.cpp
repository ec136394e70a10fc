// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/messagebus.h"

#include <QFile>
#include <QRegularExpression>
#include <QSocketNotifier>

#include <algorithm>
#include <string_view>
#include <utility>

#include <sys/socket.h>
#include <sys/un.h>

namespace orv {

QString busSocketPath(const QString& address) {
    static const QRegularExpression form(QStringLiteral("(?:^|;)unix:(?:[^;,]*,)*path=([^;,]*)"));
    return QString::fromUtf8(QByteArray::fromPercentEncoding(form.match(address).captured(1).toUtf8()));
}

BusKnock::BusKnock(const QString& address, std::function<void()> answered) {
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(busSocketPath(address));
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof(place.sun_path)) {
        return;
    }
    std::copy(path.begin(), path.end(), std::begin(place.sun_path));
    door_.reset(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    // A bus answers a request to authenticate by nothing with the ways that it knows.
    constexpr std::string_view request("\0AUTH\r\n", 7);
    if (::connect(door_.get(), reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0 ||
        ::send(door_.get(), request.data(), request.size(), MSG_NOSIGNAL) < 0) {
        return;
    }
    auto* answer = new QSocketNotifier(door_.get(), QSocketNotifier::Read, &listener_);
    QObject::connect(answer, &QSocketNotifier::activated, &listener_, [this, answer, call = std::move(answered)] {
        answer->setEnabled(false); // before the descriptor that it watches is closed
        char first = 0;
        const bool isThere = ::recv(door_.get(), &first, 1, 0) == 1;
        door_.reset();
        if (isThere) {
            const auto last = call; // who is called may end this knock
            last();
        }
    });
}

} // namespace orv
