// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/poll.h"

#include "testing/programrig.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {

namespace {

class ProgramLogTest : public testing::Test {
protected:
    QByteArray content() const { return contentsOf(path); }

    OwnFolder folder;
    QString path = folder.path("log.ohp");
};

TEST_F(ProgramLogTest, isCreatedEmpty) {
    ProgramLog log;
    EXPECT_EQ(log.open(path), QString());
    EXPECT_EQ(content(), QByteArray());
}

TEST_F(ProgramLogTest, isEmptiedAtEveryStart) {
    {
        ProgramLog log;
        ASSERT_EQ(log.open(path), QString());
        ASSERT_EQ(log.write("from before"), QString());
    }
    ASSERT_EQ(content(), "from before\r\n");
    ProgramLog log;
    ASSERT_EQ(log.open(path), QString());
    EXPECT_EQ(content(), QByteArray());
}

TEST_F(ProgramLogTest, holdsEachBlockAtOnceFollowedByCarriageReturnAndLineFeed) {
    ProgramLog log;
    ASSERT_EQ(log.open(path), QString());
    EXPECT_EQ(log.write("V512\r"), QString());
    EXPECT_EQ(content(), "V512\r\r\n");
    EXPECT_EQ(log.write(QByteArray("a\nb\0\xfe", 5)), QString());
    EXPECT_EQ(content(), QByteArray("V512\r\r\na\nb\0\xfe\r\n", 14));
}

TEST_F(ProgramLogTest, saysWhyItCannotBeOpened) {
    ProgramLog log;
    EXPECT_NE(log.open(folder.path("missing/log.ohp")), QString());
    EXPECT_NE(log.open(folder.path()), QString());
}

TEST_F(ProgramLogTest, ignoresBlocksWhileItIsNotOpen) {
    ProgramLog log;
    EXPECT_EQ(log.write("abc"), QString());
    ASSERT_NE(log.open(folder.path("missing/log.ohp")), QString());
    EXPECT_EQ(log.write("abc"), QString());
}

class LongLogTest : public ProgramLogTest {
protected:
    LongLogTest() { EXPECT_EQ(log.open(path).toStdString(), ""); }

    /// Ten bytes of the log.
    void writeBlock(char letter) { EXPECT_EQ(log.write(QByteArray(8, letter)).toStdString(), ""); }
    QByteArray line(char letter) { return QByteArray(8, letter) + "\r\n"; }
    QByteArray older() { return contentsOf(folder.path("log-older.ohp")); }

    ProgramLog log{30};
};

TEST_F(LongLogTest, goesOnInANewFileAndKeepsTheOneBefore) {
    for (const char letter : {'a', 'b', 'c'}) {
        writeBlock(letter);
    }
    EXPECT_EQ(content().size(), 30);
    EXPECT_FALSE(log.takeAnew().begun);
    writeBlock('d');
    EXPECT_EQ(content(), line('d'));
    EXPECT_EQ(older(), line('a') + line('b') + line('c'));
    EXPECT_TRUE(log.takeAnew().begun);
    EXPECT_FALSE(log.takeAnew().begun);
    for (const char letter : {'e', 'f', 'g'}) {
        writeBlock(letter);
    }
    EXPECT_EQ(content(), line('g'));
    EXPECT_EQ(older(), line('d') + line('e') + line('f'));
    EXPECT_FALSE(log.takeAnew().begun) << "told once";
    EXPECT_EQ(folder.files().join(u' ').toStdString(), "log-older.ohp log.ohp");
}

TEST_F(LongLogTest, alwaysHasTheLastBytesAndNeverTwiceAsMany) {
    QByteArray all;
    for (int size = 1; size < 60; ++size) {
        const QByteArray block(size % 37, 'x');
        log.write(block);
        all += block + "\r\n";
        const QByteArray kept = (QFile::exists(folder.path("log-older.ohp")) ? older() : QByteArray()) + content();
        EXPECT_TRUE(all.endsWith(kept));
        EXPECT_GE(kept.size(), std::min<qsizetype>(all.size(), 30));
        EXPECT_LE(content().size(), std::max<qsizetype>(30, block.size() + 2));
    }
}

TEST_F(LongLogTest, ofAnEarlierStartIsGone) {
    for (int block = 0; block < 5; ++block) {
        writeBlock('a');
    }
    ProgramLog next;
    ASSERT_EQ(next.open(path), QString());
    EXPECT_EQ(folder.files().join(u' ').toStdString(), "log.ohp");
}

TEST_F(LongLogTest, growsOnIfNoNewFileCanBeBegunAndSaysWhy) {
    ASSERT_TRUE(QDir().mkpath(folder.path("log-older.ohp/in the way")));
    for (int block = 0; block < 4; ++block) {
        writeBlock('a');
    }
    EXPECT_EQ(content().size(), 40);
    EXPECT_FALSE(log.takeAnew().reason.isEmpty());
    writeBlock('a');
    EXPECT_EQ(log.takeAnew().reason.toStdString(), "") << "not tried at every block";
    ASSERT_TRUE(QDir(folder.path("log-older.ohp")).removeRecursively());
    writeBlock('a');
    writeBlock('b');
    EXPECT_EQ(older().size(), 60);
    EXPECT_EQ(content(), line('b'));
    EXPECT_TRUE(log.takeAnew().begun);
}

TEST_F(ProgramLogTest, ofAnotherPlaceHasAnOlderFileOfItsOwn) {
    EXPECT_EQ(ProgramLog::olderPath(QStringLiteral("log-2.ohp")), QStringLiteral("log-2-older.ohp"));
}

TEST_F(ProgramLogTest, tellsAFailureToWriteOnce) {
    const QString full = QStringLiteral("/dev/full");
    if (!QFile::exists(full)) {
        GTEST_SKIP() << "no device that is always full";
    }
    ProgramLog log;
    ASSERT_EQ(log.open(full), QString());
    EXPECT_NE(log.write("abc"), QString());
    EXPECT_EQ(log.write("abc"), QString());
}

#ifdef Q_OS_UNIX
TEST_F(ProgramLogTest, tellsAFailureOnceAlsoIfShorterBlocksStillFindRoom) {
    ProgramLog log;
    ASSERT_EQ(log.open(path), QString());
    const QByteArray block(8, 'a');
    {
        const FileSizeLimit limit(9);
        EXPECT_NE(log.write(block), QString());
        EXPECT_EQ(log.write("b"), QString());
        EXPECT_EQ(log.write(block), QString());
        EXPECT_EQ(log.write("c"), QString());
        EXPECT_EQ(log.write(block), QString());
    }
    EXPECT_EQ(content(), "b\r\nc\r\n");
    EXPECT_EQ(log.write(block), QString());
    const FileSizeLimit limit(20);
    EXPECT_NE(log.write(block), QString()) << "there was room meanwhile";
    EXPECT_EQ(content(), "b\r\nc\r\naaaaaaaa\r\n");
}
#endif

using testing::ElementsAre;

class PollTest : public ProgramTest {
protected:
    PollTest() {
        ports.open();
        state.Tmr = 0;
    }

    /// One poll that finds `block` in the port; the line it took.
    QByteArray take(const QByteArray& block) {
        com1.input = block;
        program.tick();
        return state.Rtn.toLatin1();
    }

    std::vector<QString> listed() const { return {debug.list.entries().begin(), debug.list.entries().end()}; }
};

struct CutRow {
    const char* name;
    QByteArray text;
    QByteArray line;
    QByteArray rest;
};

TEST_F(PollTest, cutsOneLineWithItsEndOffTheBuffer) {
    const CutRow rows[] = {
        {"line and rest", "abc\r\nde", "abc", "de"},
        {"line alone", "abc\r\n", "abc", ""},
        {"no line end", "abc", "", "abc"},
        {"CR only", "V1.0\r", "", "V1.0\r"},
        {"LF alone", "\n", "", ""},
        {"LF second after CR", "\r\n", "", ""},
        {"LF second after CR with rest", "\r\nab", "", "ab"},
        {"LF first", "\nabc", "", "abc"},
        {"LF first with another line behind", "\nabc\r\n", "", "abc\r\n"},
        {"two LF", "\n\n", "", "\n"},
        {"LF without CR takes the last character", "abc\nde", "ab", "de"},
        {"one character and LF", "a\n", "", ""},
        {"two lines", "one\r\ntwo\r\n", "one", "two\r\n"},
        {"CR inside a line", "a\rb\r\nc", "a\rb", "c"},
        {"two CR", "abc\r\r\n", "abc\r", ""},
        {"NUL inside a line", QByteArray("a\0b\r\n", 5), QByteArray("a\0b", 3), ""},
        {"bytes above 127", "\xff\xe4\r\n\x80", "\xff\xe4", "\x80"},
    };
    for (const CutRow& row : rows) {
        SCOPED_TRACE(row.name);
        rxbuffer.clear();
        EXPECT_EQ(take(row.text), row.line);
        EXPECT_EQ(rxbuffer, row.rest);
        EXPECT_EQ(status.bufferCount.value(), row.rest.size());
    }
}

TEST_F(PollTest, takesTwoLinesInTwoCalls) {
    EXPECT_EQ(take("one\r\ntwo\r\n"), "one");
    EXPECT_EQ(take(""), "two");
    EXPECT_EQ(status.bufferCount.value(), 0);
    EXPECT_EQ(take(""), "");
}

TEST_F(PollTest, completesALineThatCameWithoutItsLineFeed) {
    EXPECT_EQ(take("V1.0\r"), "");
    EXPECT_EQ(status.bufferCount.value(), 5);
    EXPECT_EQ(take("\nS"), "V1.0");
    EXPECT_EQ(rxbuffer, "S");
}

TEST_F(PollTest, joinsALineThatComesByTheCharacter) {
    for (const char* piece : {"S", "1", "0", "\r"}) {
        EXPECT_EQ(take(piece), "");
    }
    EXPECT_EQ(take("\n"), "S10");
}

TEST_F(PollTest, emptiesTheLineOfThePollBefore) {
    EXPECT_EQ(take("abc\r\n"), "abc");
    EXPECT_EQ(take(""), "");
}

TEST_F(PollTest, leavesTheCountAloneWhenThereIsNothingAtAll) {
    status.bufferCount = 77;
    take("");
    EXPECT_EQ(status.bufferCount.value(), 77);
    take("a");
    EXPECT_EQ(status.bufferCount.value(), 1);
}

TEST_F(PollTest, emptiesItsBufferFirstWhenAskedAndOnlyOnce) {
    take("old");
    state.Tmr = 1;
    EXPECT_EQ(take("new\r\n"), "new");
    EXPECT_EQ(state.Tmr, 0);
    take("kept");
    EXPECT_EQ(take("\r\n"), "kept");
}

TEST_F(PollTest, emptiesItsBufferWithNothingNewToo) {
    take("line\r\nmore\r\n");
    state.Tmr = 1;
    EXPECT_EQ(take(""), "");
    EXPECT_EQ(rxbuffer, "");
    EXPECT_EQ(state.Tmr, 0);
}

TEST_F(PollTest, dropsNothingHoweverMuchArrives) {
    const QByteArray much(100000, 'x');
    take(much);
    EXPECT_EQ(status.bufferCount.value(), 100000);
    EXPECT_EQ(take("\r\n"), much);
}

TEST_F(PollTest, costsNoMoreWithALongLineInTheBuffer) {
    state.gatherstart = 1;
    const auto polling = [this] {
        QElapsedTimer timer;
        timer.start();
        for (int count = 0; count < 1000; ++count) {
            take("");
            take("x");
        }
        return timer.elapsed();
    };
    const qint64 withLittle = polling();
    take(QByteArray(8'000'000, 'x'));
    EXPECT_LE(polling(), 10 * withLittle + 100) << "milliseconds";
}

struct PromptRow {
    QByteArray text;
    int gatherstop;
};

TEST_F(PollTest, notesAPromptAnywhereInTheTextDuringACollection) {
    const PromptRow rows[] = {{"abc", 0}, {">", 1},  {"!", 3},      {"12>", 1},   {"12!34", 3},
                              {"!>", 1},  {">!", 1}, {"a\r\n>", 1}, {">\r\n", 1}, {"a\r\nb\r\n!", 3}};
    state.gatherstart = 1;
    for (const PromptRow& row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        rxbuffer.clear();
        state.Gatherstop = 0;
        take(row.text);
        EXPECT_EQ(state.Gatherstop, row.gatherstop);
    }
}

TEST_F(PollTest, notesAPromptThatWasBufferedBeforeTheCollection) {
    take("12>");
    EXPECT_EQ(state.Gatherstop, 0);
    state.gatherstart = 1;
    take("");
    EXPECT_EQ(state.Gatherstop, 1);
}

TEST_F(PollTest, notesAPromptAsLongAsItStandsInTheBuffer) {
    state.gatherstart = 1;
    struct Row {
        QByteArray block;
        int gatherstop;
        const char* line;
    };
    const Row rows[] = {{"a>b\r\nc!d\r\ne", 1, "a>b"},
                        {"", 3, "c!d"},
                        {"", 0, ""},
                        {"\r", 0, ""},
                        {"\nf>", 1, "e"},
                        {"", 1, ""},
                        {"!", 1, ""},
                        {"\r\ng", 1, "f>!"},
                        {"", 0, ""},
                        {"!", 3, ""},
                        {"\n\n", 3, "g"},
                        {"", 0, ""}};
    int number = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(++number);
        state.Gatherstop = 0;
        EXPECT_EQ(take(row.block), row.line);
        EXPECT_EQ(state.Gatherstop, row.gatherstop);
    }
    take("h>i\r\n>");
    rxbuffer.clear(); // by a talk that reads the port itself
    state.Gatherstop = 0;
    EXPECT_EQ(take("j\r\n"), "j");
    EXPECT_EQ(state.Gatherstop, 0);
}

TEST_F(PollTest, leavesThePromptFlagAloneOutsideACollection) {
    for (const int kept : {0, 1, 3}) {
        state.Gatherstop = static_cast<quint8>(kept);
        take(">!");
        EXPECT_EQ(state.Gatherstop, kept);
    }
}

TEST_F(PollTest, keepsAPromptFlagWhenTheTextHoldsNone) {
    state.gatherstart = 1;
    state.Gatherstop = 3;
    take("abc\r\n");
    EXPECT_EQ(state.Gatherstop, 3);
}

TEST_F(PollTest, writesEveryBlockToTheLogByteForByte) {
    program.load();
    ports.open();
    take("abc\r\nde");
    take("");
    take(QByteArray("\0\xff>", 3));
    take("\n");
    EXPECT_EQ(contentsOf(folder.path("log.ohp")), QByteArray("abc\r\nde\r\n\0\xff>\r\n\n\r\n", 17));
}

TEST_F(PollTest, listsBlocksWithRawBufferAndLinesWithShowParsing) {
    state.trouble = 1;
    debug.rawBuffer = true;
    take("one\r\ntwo\r\n");
    take("");
    EXPECT_THAT(listed(), ElementsAre(QStringLiteral("one\r\ntwo\r\n")));

    debug.rawBuffer = false;
    debug.showParsing = true;
    take("three\r\nfour\r\nfi");
    take("");
    take("");
    EXPECT_THAT(listed(),
                ElementsAre(QStringLiteral("one\r\ntwo\r\n"), QStringLiteral("three"), QStringLiteral("four")));
}

TEST_F(PollTest, listsNothingOutsideTheServiceMode) {
    debug.rawBuffer = true;
    debug.showParsing = true;
    int selections = 0;
    const auto counting = debug.list.lastSelected.subscribe([&selections] { ++selections; });
    take("one\r\n");
    EXPECT_THAT(listed(), ElementsAre());
    EXPECT_EQ(selections, 0);
}

TEST_F(PollTest, selectsTheLastEntryAfterEachLineInTheServiceMode) {
    state.trouble = 1;
    int selections = 0;
    const auto counting = debug.list.lastSelected.subscribe([&selections] { ++selections; });
    take("on");
    EXPECT_EQ(selections, 0);
    take("e\r\n");
    EXPECT_EQ(selections, 1);
    take("\r\n");
    EXPECT_EQ(selections, 1) << "an empty line is no line";
    EXPECT_THAT(listed(), ElementsAre());
}

TEST_F(PollTest, tellsOnceThatTheLogGoesOnInANewFile) {
    program.load();
    ports.open();
    program.link.poll.log.setLargest(20);
    for (int block = 0; block < 10; ++block) {
        EXPECT_EQ(take("abcdefgh\r\n"), "abcdefgh");
    }
    EXPECT_EQ(contentsOf(folder.path("log.ohp")), "abcdefgh\r\n\r\n");
    EXPECT_EQ(theMessage().text.toStdString(),
              "The log file log.ohp has become long and goes on in a new file. What was received before is in "
              "log-older.ohp.\n\nFrom now on this is done without a word, and only the newest of the older files is "
              "kept. Copy them if you need more.");
}

TEST_F(PollTest, tellsAFailedLogOnceAndGoesOn) {
    const QString full = QStringLiteral("/dev/full");
    if (!QFile::exists(full)) {
        GTEST_SKIP() << "no device that is always full";
    }
    ASSERT_TRUE(QFile::link(full, folder.path("log.ohp")));
    program.load();
    ports.open();
    EXPECT_EQ(take("abc\r\n"), "abc");
    EXPECT_EQ(take("def\r\n"), "def");
    EXPECT_TRUE(theMessage().text.startsWith(QStringLiteral("The log file log.ohp can no longer be written: ")));
    EXPECT_EQ(theMessage().title, QStringLiteral("ORV Host Program"));
}

#ifdef Q_OS_UNIX
TEST_F(PollTest, tellsInTheSystemsWordsThatTheLogTookABlockInPartAndLeavesThatOut) {
    program.load();
    ports.open();
    take("one\r\n");
    {
        const FileSizeLimit limit(10); // "one", CR LF, CR LF and a part of the next
        take("two\r\n");
        take("three\r\n");
    }
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("log.ohp can no longer be written: %1.\n\nThe program goes "
                                                          "on; make room on the disk")
                                               .arg(systemWords(EFBIG))))
        << theMessage().text.toStdString();
    EXPECT_EQ(contentsOf(folder.path("log.ohp")), "one\r\n\r\n");
    take("four\r\n");
    EXPECT_EQ(contentsOf(folder.path("log.ohp")), "one\r\n\r\nfour\r\n\r\n");
}
#endif

/// A line that is always open and notes what the poll expects.
class ExpectingPort final : public Port {
public:
    Words open() override { return {}; }
    void close() override {}
    bool isOpen() const override { return true; }
    void setDataTerminalReady(bool /*on*/) override {}
    QByteArray readAll() override { return std::exchange(input, {}); }
    void write(const QByteArray& /*bytes*/) override {}
    QByteArray discardInput() override { return std::exchange(input, {}); }
    qsizetype inputCount() override { return input.size(); }
    Words failure() const override { return {}; }
    void expectRestOfLine(qsizetype characters) override { expected = characters; }

    QByteArray input;
    qsizetype expected = 0;
};

TEST_F(PollTest, expectsTheRestOfALineThatACollectionTakesWhole) {
    auto given = std::make_unique<ExpectingPort>();
    ExpectingPort& port = *given;
    ComPorts lines(session, debug, [&given](const QString& /*device*/) { return std::move(given); });
    ASSERT_TRUE(lines.open());
    Poll poll(session, lines, debug);
    const auto expectedAfter = [&port, &poll](const QByteArray& block) {
        port.input = block;
        port.expected = 0;
        poll.quary();
        return port.expected;
    };
    EXPECT_EQ(expectedAfter("0123456\r\nab"), 0) << "the characters are watched as they come";
    poll.linesTogether = 1;
    EXPECT_EQ(expectedAfter("c"), 0) << "this is no collection";
    state.gatherstart = 1;
    EXPECT_EQ(expectedAfter("d"), 5) << "as many as the line before had";
    EXPECT_EQ(expectedAfter("efg"), 2);
    EXPECT_EQ(expectedAfter("hi"), 0) << "it is longer";
    EXPECT_EQ(expectedAfter("\r\n"), 0) << "nothing of the next has come";
    EXPECT_EQ(expectedAfter("a"), 10);
    EXPECT_EQ(expectedAfter("b\r\none\r\ntwo"), 0) << "another whole line is there";
    EXPECT_EQ(expectedAfter(""), 2);
    poll.linesTogether = 3;
    EXPECT_EQ(expectedAfter("0"), 3 * 5 - 4);
    EXPECT_EQ(expectedAfter(">"), 0) << "a prompt is no line";
}

TEST_F(PollTest, meetsAFailureOnlyAfterEveryLineThatArrivedBefore) {
    timer.enable();
    com1.failureReason = QStringLiteral("Gone.");
    EXPECT_EQ(take("one\r\ntwo\r\nthr"), "one");
    EXPECT_EQ(take(""), "two");
    EXPECT_TRUE(ports.isOpen());
    EXPECT_TRUE(messages.shown.empty());
    take("");
    EXPECT_FALSE(ports.isOpen());
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(resets, 1);
    expectOffline();
}

} // namespace

} // namespace orv
