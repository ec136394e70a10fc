// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIODevice>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

namespace orv {

/// The bytes of a file; "(no such file)" if it cannot be read.
QByteArray contentsOf(const QString& path);

/// Makes a file of these bytes; the test fails if that cannot be done.
void fill(const QString& path, const QByteArray& bytes);

/// What the system says of an error, by its number.
QString systemWords(int error);
/// What it says when a file of that name is opened; the test fails if that succeeds.
QString wordsOfOpening(const QString& path, QIODevice::OpenMode mode);

/// A folder of the test's own that is the working directory while this lives.
class OwnFolder {
public:
    OwnFolder();
    ~OwnFolder();
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    QString path() const { return folder_.path(); }
    QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    /// The names of its files, in order.
    QStringList files() const;

    /// Whether this program has the file open now.
    bool isOpen(const char* name) const;

private:
    QString before_;
    QTemporaryDir folder_;
};

#ifdef Q_OS_UNIX
void allowEveryone(const QString& path);

/// While it lives the folder takes no new files, whoever runs the test: a superuser acts as nobody meanwhile.
class UnwritableFolder {
public:
    explicit UnwritableFolder(QString path);
    ~UnwritableFolder();
    UnwritableFolder(const UnwritableFolder&) = delete;
    UnwritableFolder& operator=(const UnwritableFolder&) = delete;

private:
    QString path_;
    bool superuser_ = false;
};

/// While it lives no file may grow beyond `bytes`: a write takes what fits and then fails, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};
#endif

} // namespace orv
