// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <array>
#include <cstdint>
#include <stdexcept>

/// Each reader of what others wrote, fed with any bytes. A function here hands the bytes to the real reader and throws
/// Broken if something does not hold that must hold for every input. libFuzzer calls it (entry.cpp), and as an ordinary
/// test it gets every kept input (fuzzing_test.cpp).
namespace orv::fuzzing {

/// An input has shown a fault; the text says what does not hold.
class Broken final : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Throws Broken, with that text, unless `condition` holds.
void require(bool condition, const char* what);
/// The same, with a detail that is only made then.
template <typename Detail>
void require(bool condition, const char* what, const Detail& detail) {
    if (!condition) {
        throw Broken(std::string(what) + ": " + QString(detail()).toStdString());
    }
}

/// The bytes of an input, taken from its front.
class Input {
public:
    explicit Input(QByteArrayView bytes)
        : rest_(bytes) {}

    bool isEmpty() const { return rest_.isEmpty(); }

    /// The next byte; 0 at the end.
    std::uint8_t byte();
    /// A number from 0 up to, not including, `count`.
    int below(int count) { return byte() % count; }
    /// So many bytes, fewer at the end.
    QByteArray bytes(qsizetype count);
    /// Up to and without the next separator.
    QByteArray piece(char separator);
    QByteArray rest() { return bytes(rest_.size()); }

private:
    QByteArrayView rest_;
};

/// A file in memory that holds these bytes until the next call; returns its path.
QString memoryFile(const QByteArray& bytes);

/// Takes all of a buffer into the file of that name in a folder of this process, which goes with it; returns its path.
QString scratchFile(const char* name, const QByteArray& bytes);

// The readers.
void lines(Input input);            ///< Poll and line cutter, and the reader of rows.
void settings(Input input);         ///< Settings report and clock reply.
void sheetfile(Input input);        ///< Saved sheets.
void recordfile(Input input);       ///< Record files.
void runlock(Input input);          ///< The lock beside a record file, and its mark.
void modefile(Input input);         ///< Modes of the operator.
void devicefile(Input input);       ///< Calibration values.
void simulatoroptions(Input input); ///< Device texts of simulated instruments.
void orvoptions(Input input);       ///< Command line of orv.
void commandline(Input input);      ///< Command line of orvhost.
void tables(Input input);           ///< Files of ours on their way to other formats.
void capture(Input input);          ///< Captures.
void sessions(Input input);         ///< Whole sessions: what the operator does and what the instrument sends.

struct Reader {
    const char* name; ///< Of its seeds' folder too.
    void (*feed)(Input input);
};

inline constexpr std::array<Reader, 13> readers{{{"lines", lines},
                                                 {"settings", settings},
                                                 {"sheetfile", sheetfile},
                                                 {"recordfile", recordfile},
                                                 {"runlock", runlock},
                                                 {"modefile", modefile},
                                                 {"devicefile", devicefile},
                                                 {"simulatoroptions", simulatoroptions},
                                                 {"orvoptions", orvoptions},
                                                 {"commandline", commandline},
                                                 {"tables", tables},
                                                 {"capture", capture},
                                                 {"sessions", sessions}}};

} // namespace orv::fuzzing
