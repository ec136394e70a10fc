// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "formats/rowwriter.h"

namespace orv {

/// A file that is written beside its name and appears under it whole, or not at all.
class PlacedFile {
public:
    explicit PlacedFile(OutputFile file);
    ~PlacedFile();
    PlacedFile(const PlacedFile&) = delete;
    PlacedFile& operator=(const PlacedFile&) = delete;

    /// Whether the name may be written. Returns the empty text, or why not. Nothing is touched.
    Words check() const;

    /// Where to write meanwhile: a name of its own in the same folder.
    const QString& path() const { return path_; }

    /// Brings what was written to the disk and gives it its name; an older file becomes what the operator wants.
    /// Returns the empty text, or why it failed; then the older file is as it was, or has its dated name already.
    /// `keptAs` becomes the older one's new name if it has been kept.
    Words place(QString* keptAs = nullptr);

private:
    OutputFile file_;
    QString path_;
};

/// Why a file of that name may not be written, empty if it may: it is a folder or a device, or is there and must stay.
Words cannotBeWritten(const QString& name, OutputFile::Existing existing);

} // namespace orv
