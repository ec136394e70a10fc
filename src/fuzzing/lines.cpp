// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/fuzzing.h"
#include "link/poll.h"
#include "sheet/datasheet.h"
#include "testing/fakes.h"

namespace orv::fuzzing {

namespace {

/// A row has just the values of its layout, no cell reaches into the next, and the sheet and the record file have it.
void readRow(const QString& line, RowLayout layout, const Conversion& conversion) {
    const auto row = readDataLine(line, layout, conversion);
    if (!row) {
        return;
    }
    require(layout == RowLayout::Unknown ? row->values.size() >= 1 && row->values.size() <= valueCount(layout)
                                         : row->values.size() == valueCount(layout),
            "a row has other values than its layout");
    require(row->counts.size() == (conversion.lines(layout).empty() ? 0 : row->values.size()),
            "a row has other counts than values");
    constexpr int number = 32767;
    const QStringList cells = sheetCells(number, *row);
    for (const QString& cell : cells) {
        require(!cell.contains(u'\t') && !cell.contains(u'\r') && !cell.contains(u'\n'), "a cell holds more than one");
    }
    DataSheet sheet;
    sheet.appendRow(cells);
    for (int column = 0; column < cells.size(); ++column) {
        require(sheet.cell(0, column) == cells[column], "the sheet has another cell");
    }
    require(sheet.cell(0, static_cast<int>(cells.size())).isEmpty(), "the sheet has one cell more");
    if (layout != RowLayout::Unknown) {
        constexpr qsizetype glowTabs = 3;
        constexpr qsizetype trxTabs = 8;
        require(recordLine(number, *row, layout).count(u'\t') == (layout == RowLayout::Glow ? glowTabs : trxTabs),
                "the record file's line has other fields");
    }
}

} // namespace

void lines(Input input) {
    TestClock clock;
    RecordedMessages messages;
    Session session(clock, messages);
    DebugState debug;
    TestPort farEnd;
    ComPorts ports(session, debug, [&farEnd](const QString&) { return std::make_unique<TestPort>(&farEnd); });
    Poll poll(session, ports, debug);
    ports.open();
    const int manner = input.byte();
    session.state.gatherstart = manner & 1;
    session.state.trouble = manner >> 1 & 1;
    debug.rawBuffer = true;
    debug.showParsing = true;
    constexpr RowLayout layouts[] = {RowLayout::Unknown, RowLayout::Glow, RowLayout::TrxOlder, RowLayout::TrxNewer};
    const RowLayout layout = layouts[manner >> 3 & 3];
    Conversion conversion;
    if ((manner & 4) != 0) {
        constexpr Conversion::Line line{.offset = 50.5, .scale = 0.001};
        conversion = {.glow = line, .trx = {{line, {.offset = 0.0, .scale = -1e300}, {}}}};
    }
    QByteArray expected; // what has come and is not yet a line
    const auto pollOnce = [&](const QByteArray& block) {
        if (!block.isEmpty()) {
            farEnd.input += block;
        }
        expected += block;
        session.state.Gatherstop = 0;
        const bool ready = expected.contains('>');
        const bool other = expected.contains('!');
        const QString line = poll.quary();
        require(session.state.Gatherstop == (session.state.gatherstart == 0 ? 0
                                             : ready                        ? 1
                                             : other                        ? 3
                                                                            : 0),
                "the poll has seen another prompt");
        const qsizetype end = expected.indexOf('\n');
        require(line == QString::fromLatin1(expected.first(std::max<qsizetype>(end - 1, 0))),
                "another line was cut off");
        expected.remove(0, end + 1);
        require(poll.rxbuffer == expected, "other characters are left");
        require(session.status.bufferCount == expected.size(), "another count is shown");
        require(poll.hasLine() == expected.contains('\n'), "whether a line waits is not known");
        if (!line.isEmpty()) {
            readRow(line, layout, conversion);
        }
    };
    while (!input.isEmpty()) {
        pollOnce(input.bytes(1 + input.byte()));
    }
    while (expected.contains('\n')) {
        pollOnce({});
    }
    require(messages.shown.empty(), "the operator was told something");
}

} // namespace orv::fuzzing
