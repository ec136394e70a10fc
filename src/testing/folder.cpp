// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"

#include "base/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <csignal>
#include <unistd.h>
#endif

namespace orv {

QByteArray contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

void fill(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QString systemWords(int error) {
    return qt_error_string(error);
}

QString wordsOfOpening(const QString& path, QIODevice::OpenMode mode) {
    QFile file(path);
    EXPECT_FALSE(file.open(mode)) << qPrintable(path);
    return errorText(file).english();
}

OwnFolder::OwnFolder()
    : before_(QDir::currentPath()) {
    EXPECT_TRUE(folder_.isValid());
    EXPECT_TRUE(QDir::setCurrent(folder_.path()));
}

OwnFolder::~OwnFolder() {
    QDir::setCurrent(before_);
}

QStringList OwnFolder::files() const {
    return QDir(path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

bool OwnFolder::isOpen(const char* name) const {
    const QString wanted = QFileInfo(path(name)).canonicalFilePath();
    const QFileInfoList handles = QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::AllEntries | QDir::System);
    return std::any_of(handles.begin(), handles.end(),
                       [&wanted](const QFileInfo& handle) { return handle.symLinkTarget() == wanted; });
}

#ifdef Q_OS_UNIX
void allowEveryone(const QString& path) {
    constexpr int readAndWriteForAll = 0x6666;
    QFile::setPermissions(path, QFile::Permissions(readAndWriteForAll));
}

UnwritableFolder::UnwritableFolder(QString path)
    : path_(std::move(path))
    , superuser_(geteuid() == 0) {
    constexpr int readAndEnterForAll = 0x5555;
    QFile::setPermissions(path_, QFile::Permissions(readAndEnterForAll));
    constexpr uid_t nobody = 65534;
    if (superuser_) {
        EXPECT_EQ(seteuid(nobody), 0);
    }
}

UnwritableFolder::~UnwritableFolder() {
    if (superuser_) {
        EXPECT_EQ(seteuid(0), 0);
    }
    QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

FileSizeLimit::FileSizeLimit(rlim_t bytes)
    : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
}
#endif

} // namespace orv
