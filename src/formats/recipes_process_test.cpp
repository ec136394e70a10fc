// SPDX-License-Identifier: GPL-3.0-or-later
// The guide tells how the program's files are read with Python: its lines are run on files that the program has
// written.
#include "settings/devicefiles.h"
#include "settings/modes.h"
#include "testing/processes.h"
#include "testing/sheettest.h"

#include <QRegularExpression>

namespace orv {
namespace {

/// Tells what a recipe has read, and forgets it.
constexpr const char* tell = R"PY(
def tell(what):
    print("--", what)
    for name in ["rows", "data", "settings", "values", "units"]:
        read = globals().pop(name, None)
        if name == "data" and read is not None:
            read = read.to_dataframe().reset_index()[["record", "time"]]
        if hasattr(read, "columns"):
            print(read.to_csv(index=False), end="")
        elif read is not None:
            print(name, list(read.items()) if name == "units" else list(read))
)PY";

/// What is read of the files that are the same for every instrument.
const std::string modeAndDevice = R"(-- 5
settings [30, 0, 60000, 3600, 1, 1, 0, 0, 1, 1]
values [1.0, 2.0, nan, 0.5, 0.25, 0.001]
)";

class RecipesTest : public DownloadTest {
protected:
    /// A file of each kind. The second line has no readable date.
    void makeFiles(const char* letter, const char* firmware, const char* values) {
        identify(letter, firmware);
        const QByteArrayList lines{QByteArray("01/05/99\t24526\t") + values, QByteArray("never\t100\t") + values};
        collection.run1();
        for (const QByteArray& line : lines) {
            receive(line + "\r\n");
        }
        receive(">");
        answers.fileName = path("lake.txt");
        program.saveAs();
        for (const char* name : {"lake.csv", "lake.nc"}) {
            answers.fileName = path(name);
            program.exportSheet();
        }
        messages.shown.clear(); // that a time could not be read
        state.Ctrlscrn = Operation::SettingsOpen;
        saveAsText("Stored Data.txt");
        reply(">O");
        for (const QByteArray& line : lines) {
            reply(line);
        }
        reply("EOF");
        fill(path("lake.OCM"), modeFileContent(mooredMode(InstrumentType::Trx, {})));
        fill(path("lake.ODV"),
             deviceFileBytes({QStringLiteral("1"), QStringLiteral("2"), QString(), QStringLiteral("0.5"),
                              QStringLiteral("0.25"), QStringLiteral("1e-3")}));
    }

    /// What Python's recipes read of them, one after the other.
    std::string readThem() {
        const QString guide = QString::fromUtf8(contentsOf(QStringLiteral(ORV_GUIDE)));
        const QRegularExpression recipe(QStringLiteral("```python\n(.*?)```\n"),
                                        QRegularExpression::DotMatchesEverythingOption);
        QByteArray script = tell;
        int recipes = 0;
        for (auto match = recipe.globalMatch(guide); match.hasNext();) {
            const QByteArray lines = match.next().captured(1).toUtf8();
            script += lines + "tell(" + QByteArray::number(++recipes) + ")\n";
            if (lines.contains("Orvtemp.tmp")) {
                script += QByteArray(lines).replace("\"Orvtemp.tmp\"", "\"Stored Data.txt\"") + "tell(\"download\")\n";
            }
        }
        EXPECT_EQ(recipes, 5);
        fill(path("recipes.py"), script);
        const Ended ended = runToEnd(QStringLiteral("/usr/bin/python3"), QStringLiteral("recipes.py"), {}, path(""));
        EXPECT_EQ(ended.status, 0) << ended.error;
        EXPECT_FALSE(ended.error.find("pandas") != std::string::npos) << ended.error;
        return ended.output;
    }
};

TEST_F(RecipesTest, OfTheNewerTrx) {
    makeFiles("V", "512", "10\t20\t30\t40");
    EXPECT_EQ(readThem(), R"(-- 1
record,time,scattering_100,scattering_125,scattering_150,reference
1,1999-01-05 09:05:01,10,20,30,40
2,,10,20,30,40
units [('record', '1'), ('time', None), ('scattering_100', 'count'), ('scattering_125', 'count'), ('scattering_150', 'count'), ('reference', 'count')]
-- 2
record,time
1.0,1999-01-05 09:05:01
2.0,
-- 3
Data Point,Date,Time,100,125,150,REF 150,time
1,1/5/99,9:05:01,10,20,30,40,1999-01-05 09:05:01
2,never,0:02:13,10,20,30,40,
-- 4
record,date,clock,100,125,150,ref 150,time
1,1/5/99,9:05:01,10,20,30,40,1999-01-05 09:05:01
2,never,0:02:13,10,20,30,40,
-- download
record,date,clock,100,125,150,ref 150,time
1,1/5/99,9:05:01,10,20,30,40,1999-01-05 09:05:01
2,never,0:02:13,10,20,30,40,
)" + modeAndDevice);
}

TEST_F(RecipesTest, OfTheOlderTrx) {
    makeFiles("V", "412", "10\t11\t20\t21\t30\t31");
    EXPECT_EQ(readThem(), R"(-- 1
record,time,scattering_100,reference_100,scattering_125,reference_125,scattering_150,reference_150
1,1999-01-05 09:05:01,10,11,20,21,30,31
2,,10,11,20,21,30,31
units [('record', '1'), ('time', None), ('scattering_100', 'count'), ('reference_100', 'count'), ('scattering_125', 'count'), ('reference_125', 'count'), ('scattering_150', 'count'), ('reference_150', 'count')]
-- 2
record,time
1.0,1999-01-05 09:05:01
2.0,
-- 3
Data Point,Date,Time,100,REF 100,125,REF 125,150,REF 150,time
1,1/5/99,9:05:01,10,11,20,21,30,,1999-01-05 09:05:01
2,never,0:02:13,10,11,20,21,30,,
-- 4
record,date,clock,100,ref 100,125,ref 125,150,ref 150,time
1,1/5/99,9:05:01,10,11,20,21,30,31,1999-01-05 09:05:01
2,never,0:02:13,10,11,20,21,30,31,
-- download
record,date,clock,100,ref 100,125,ref 125,150,ref 150,time
1,1/5/99,9:05:01,10,11,20,21,30,31,1999-01-05 09:05:01
2,never,0:02:13,10,11,20,21,30,31,
)" + modeAndDevice);
}

TEST_F(RecipesTest, OfTheGlow) {
    makeFiles("F", "310", "700");
    EXPECT_EQ(readThem(), R"(-- 1
record,time,fluorescence
1,1999-01-05 09:05:01,700
2,,700
units [('record', '1'), ('time', None), ('fluorescence', 'count')]
-- 2
record,time
1.0,1999-01-05 09:05:01
2.0,
-- 3
Data Point,Date,Time,Counts,time
1,1/5/99,9:05:01,700,1999-01-05 09:05:01
2,never,0:02:13,700,
-- 4
record,date,clock,100,time
1,1/5/99,9:05:01,700,1999-01-05 09:05:01
2,never,0:02:13,700,
-- download
record,date,clock,100,time
1,1/5/99,9:05:01,700,1999-01-05 09:05:01
2,never,0:02:13,700,
)" + modeAndDevice);
}

} // namespace
} // namespace orv
