// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/clock.h"
#include "base/files.h"
#include "simulator/ptyserver.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <cstdio>

namespace {

constexpr int exitFailed = 1;
constexpr int exitBadArguments = 2;

// A signal handler may touch nothing else.
volatile std::sig_atomic_t stopRequested = 0;

void requestStop(int /*signal*/) {
    stopRequested = 1;
}

void stopOnSignals() {
    struct sigaction action {};
    action.sa_handler = requestStop;
    // Without SA_RESTART, so that a signal ends the server's wait.
    ::sigaction(SIGTERM, &action, nullptr);
    ::sigaction(SIGINT, &action, nullptr);
}

int fail(const QString& message, int status) {
    std::fprintf(stderr, "orvsim: %s\n", message.toLocal8Bit().constData());
    return status;
}

/// A symbolic link that is removed at the end.
class Link {
public:
    Link() = default;
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;
    ~Link() {
        if (!path_.isEmpty()) {
            QFile::remove(path_);
        }
    }

    /// Makes it, in the place of a link of that name but of nothing else. Returns the empty text, or why there is none.
    QString make(const QString& target, const QString& path) {
        if (QFileInfo(path).isSymbolicLink()) {
            QFile::remove(path);
        }
        QFile file(target);
        if (!file.link(path)) {
            return QStringLiteral("The link %1 could not be made: %2.").arg(path, orv::errorText(file));
        }
        path_ = path;
        return {};
    }

private:
    QString path_;
};

int serve(const orv::SimulatorOptions& options, const QString& linkPath) {
    constexpr int longestWait = 1000;
    const orv::SystemClock clock;
    orv::PtyServer server(options, clock);
    if (const QString error = server.open(); !error.isEmpty()) {
        return fail(error, exitFailed);
    }
    Link link;
    if (!linkPath.isEmpty()) {
        if (const QString error = link.make(server.path(), linkPath); !error.isEmpty()) {
            return fail(error, exitFailed);
        }
    }
    stopOnSignals();
    std::printf("%s\n", QFile::encodeName(server.path()).constData());
    std::fflush(stdout);
    while (stopRequested == 0) {
        if (!server.serve(longestWait)) {
            std::fprintf(stderr, "orvsim: the instrument was unplugged\n");
            break;
        }
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orvsim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORV_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Serves a simulated ORV instrument on a pseudo-terminal and prints its path. Runs until it is killed."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."));
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption link(QStringLiteral("link"),
                                  QStringLiteral("Make a symbolic link to the pseudo-terminal at <path>."),
                                  QStringLiteral("path"));
    parser.addOption(link);
    parser.addPositionalArgument(QStringLiteral("device"),
                                 QStringLiteral("The instrument: sim:trx (default) or sim:glow, with options as in "
                                                "\"sim:trx?firmware=412&rate=8\"."),
                                 QStringLiteral("[device]"));
    if (!parser.parse(QCoreApplication::arguments())) {
        return fail(parser.errorText(), exitBadArguments);
    }
    if (parser.isSet(help)) {
        parser.showHelp();
    }
    if (parser.isSet(version)) {
        parser.showVersion();
    }
    const QStringList devices = parser.positionalArguments();
    if (devices.size() > 1) {
        return fail(QStringLiteral("Only one instrument can be named."), exitBadArguments);
    }
    if (parser.isSet(link) && parser.value(link).isEmpty()) {
        return fail(QStringLiteral("The option --link needs a path."), exitBadArguments);
    }
    const orv::ParsedSimulatorOptions parsed =
        orv::parseSimulatorOptions(devices.isEmpty() ? QStringLiteral("sim:trx") : devices.front());
    if (!parsed.error.isEmpty()) {
        return fail(parsed.error, exitBadArguments);
    }
    return serve(parsed.options, parser.value(link));
}
