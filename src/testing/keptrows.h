// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"

#include <QByteArray>

#include <new>

#include <sys/mman.h>

namespace orv {

/// What a program has told of the rows that it took. Stands in memory that a program's child process writes and its
/// parent reads, so that it outlives a program that dies.
struct TakenRows {
    struct Row {
        char cells[126];
        qint16 size;
        qint64 at; ///< Milliseconds of the test's clock.

        /// Date, time and values, with tabs between.
        QByteArray text() const { return QByteArray(cells, size); }
    };
    int count = 0;
    Row rows[128];
    qint64 diedAt = 0;

    void add(const DataRow& row, qint64 at);
    void add(const QByteArray& cells, qint64 at);
};

/// An object in memory that a process shares with the children that it forks.
template <typename T>
class SharedWithChildren {
public:
    SharedWithChildren()
        : object_(new (::mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) T) {}
    ~SharedWithChildren() { ::munmap(object_, sizeof(T)); }
    SharedWithChildren(const SharedWithChildren&) = delete;
    SharedWithChildren& operator=(const SharedWithChildren&) = delete;

    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }

private:
    T* object_;
};

/// What is in those files of a folder that hold rows, and on a sheet. The test fails unless every file is whole.
class KeptRows {
public:
    /// What may be wrong with a file: of a program that died the last line of a record file or of a download may be cut
    /// off; after noise a row that was taken with it may not be readable there.
    enum class Flaw { None, CutOff, Noise };

    /// Without a folder only what is added counts.
    explicit KeptRows(const QString& folder, Flaw flaw = Flaw::None);

    void add(const DataSheet& sheet);

    /// Whether a row of such cells is there.
    bool has(const QByteArray& cells) const;

private:
    QByteArray records_;
    QByteArray sheets_;
    QByteArray tables_; ///< For other programs.
};

} // namespace orv
