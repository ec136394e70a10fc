// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commandline.h"

#include "base/language.h"
#include "program/devices.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace orv {

namespace {

/// Asked by making a file: permissions alone do not tell of a read-only file system, or of a list of rights on Windows.
bool canHoldFiles(const QString& folder) {
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral(".orvhost-XXXXXX")));
    return probe.open();
}

} // namespace

QString enterDocumentsFolder() {
    return enterFirstWritable({QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), QDir::homePath()});
}

QString enterFirstWritable(const QStringList& folders) {
    for (const QString& folder : folders) {
        if (!folder.isEmpty() && QDir().mkpath(folder) && canHoldFiles(folder) && QDir::setCurrent(folder)) {
            return QDir::currentPath();
        }
    }
    return {};
}

namespace {

#ifdef Q_OS_WIN
const char* const defaultDevices[] = {"COM1", "COM2"};
#else
const char* const defaultDevices[] = {"ttyS0", "ttyS1"};
#endif

CommandLine onlyPrint(CommandLine::Wish wish, const QString& text) {
    CommandLine line;
    line.wish = wish;
    line.text = text;
    return line;
}

CommandLine refusal(const QString& reason) {
    return onlyPrint(CommandLine::Wish::Refuse, QStringLiteral("orvhost: %1\nTry \"orvhost --help\".\n").arg(reason));
}

} // namespace

CommandLine readCommandLine(const QStringList& arguments, const QString& version) {
    const QString deviceName = QStringLiteral("DEVICE");
    const QCommandLineOption com1(
        QStringLiteral("com1"),
        QStringLiteral("Device behind COM 1: a serial port (ttyUSB0, /dev/ttyUSB0, COM3) or a "
                       "simulated instrument (sim:trx, sim:glow?firmware=310&rate=8)."),
        deviceName, QString::fromLatin1(defaultDevices[0]));
    const QCommandLineOption com2(QStringLiteral("com2"), QStringLiteral("Device behind COM 2."), deviceName,
                                  QString::fromLatin1(defaultDevices[1]));
    const QCommandLineOption debugOutput(QStringLiteral("debug-output"),
                                         QStringLiteral("Write the program's announcements to COM 2."));
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Do the main job unattended and leave its files and a picture of each "
                                                 "page in FOLDER."),
                                  QStringLiteral("FOLDER"));
    const QCommandLineOption capture(QStringLiteral("capture"),
                                     QStringLiteral("Capture all that happens into FILE, for whoever helps or mends."),
                                     QStringLiteral("FILE"));
    const QCommandLineOption documents(QStringLiteral("documents"),
                                       QStringLiteral("Work in the Documents folder instead of the current one. The "
                                                      "program's menu entry does so."));
    const QCommandLineOption fresh(QStringLiteral("fresh"),
                                   QStringLiteral("Take nothing over from an earlier start - ports, folders, windows - "
                                                  "and keep nothing."));
    const QCommandLineOption language(QStringLiteral("language"),
                                      QStringLiteral("Show windows and messages in that language: %1. Else it is the "
                                                     "system's, if it is one of them. Files are the same in each.")
                                          .arg(languages().join(QLatin1String(", "))),
                                      QStringLiteral("CODE"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."));
    const QCommandLineOption showVersion({QStringLiteral("v"), QStringLiteral("version")},
                                         QStringLiteral("Show the program's version."));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Host program for the ORV optical water sensors."));
    parser.addOptions({com1, com2, debugOutput, demo, capture, documents, fresh, language, help, showVersion});
    if (!parser.parse(arguments)) {
        return refusal(parser.errorText());
    }
    if (parser.isSet(help)) {
        // The arguments are read before there is an application that could tell its name.
        return onlyPrint(CommandLine::Wish::ShowHelp,
                         parser.helpText().replace(QLatin1String("<executable_name>"), QLatin1String("orvhost")));
    }
    if (parser.isSet(showVersion)) {
        return onlyPrint(CommandLine::Wish::ShowVersion, QStringLiteral("orvhost %1\n").arg(version));
    }
    if (!parser.positionalArguments().isEmpty()) {
        return refusal(QStringLiteral("unknown argument \"%1\".").arg(parser.positionalArguments().constFirst()));
    }
    if (parser.isSet(demo) && parser.value(demo).isEmpty()) {
        return refusal(QStringLiteral("--demo needs a folder."));
    }
    if (parser.isSet(capture) && parser.value(capture).isEmpty()) {
        return refusal(QStringLiteral("--capture needs a file."));
    }
    if (parser.isSet(language) && !languages().contains(parser.value(language))) {
        return refusal(QStringLiteral("there is no language \"%1\". The languages are %2.")
                           .arg(parser.value(language), languages().join(QLatin1String(", "))));
    }
    CommandLine line;
    line.capture = parser.isSet(capture) ? QFileInfo(parser.value(capture)).absoluteFilePath() : QString();
    line.com1 = parser.value(com1);
    line.com2 = parser.value(com2);
    line.choosesPort = parser.isSet(com1) || parser.isSet(com2);
    line.debugOutput = parser.isSet(debugOutput);
    line.demoFolder = parser.value(demo);
    line.documents = parser.isSet(documents);
    line.language = parser.value(language);
    line.fresh = parser.isSet(fresh);
    for (const QString& device : {line.com1, line.com2}) {
        const QString problem = deviceProblem(device).english();
        if (!problem.isEmpty()) {
            return refusal(problem);
        }
    }
    return line;
}

} // namespace orv
