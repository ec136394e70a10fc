// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that the operator does is crossed with everything that goes wrong: at the first byte or call, at one in
// the middle, at the last, and at random ones if the environment says how many (ORV_MATRIX_RANDOM, ORV_MATRIX_SEED).
#include "matrix/point.h"
#include "matrix/tellings.h"

#include <set>

#include <malloc.h>

namespace orv {
namespace {

constexpr qint64 clickLimit = 100; ///< Milliseconds that a click may have to wait.

QByteArray documentation() {
    return contentsOf(QStringLiteral(ORV_SOURCE "/docs/RELIABILITY.md"));
}

/// The documentation has what the program makes; or it is made anew from what is printed.
void expectInTable(const QString& line) {
    if (qEnvironmentVariableIsSet("ORV_TABLES")) {
        std::printf("%s\n", qPrintable(line));
    } else {
        EXPECT_TRUE(documentation().contains('\n' + line.toUtf8() + '\n'))
            << "docs/RELIABILITY.md has another line than\n"
            << line.toStdString();
    }
}

class Matrix : public testing::TestWithParam<Undertaking> {
protected:
    /// Whether a fault can happen during the undertaking; if not, the table's mark for why.
    static const char* whyNot(const Fault& fault) {
        const Undertaking& undertaking = GetParam();
        if (!undertaking.usesLine && (fault.at == Fault::At::Byte || fault.at == Fault::At::Greeting)) {
            return "(1)";
        }
        return fault.at == Fault::At::Greeting && !undertaking.greets ? "(2)" : nullptr;
    }

    static std::vector<qint64> placesOf(const Fault& fault, const Course& course) {
        std::vector<qint64> places;
        if (fault.at == Fault::At::Greeting) {
            return {course.greetingAt};
        }
        if (fault.at == Fault::At::Byte || (fault.at == Fault::At::ByteOrCall && GetParam().usesLine)) {
            for (qint64 byte = 1; byte <= course.bytes; ++byte) {
                places.push_back(byte);
            }
            return places;
        }
        for (std::size_t call = 0; call < course.calls.size(); ++call) {
            const std::string& made = course.calls[call];
            const bool isFile = !made.ends_with(" new file") && !made.ends_with(" folder");
            const bool needsRoom = made.starts_with("open ") || made.starts_with("write ");
            if (fault.call == failingcalls::Plan::Then::FailOn   ? needsRoom
                : fault.call == failingcalls::Plan::Then::Locked ? isFile
                                                                 : true) {
                places.push_back(static_cast<qint64>(call) + 1);
            }
        }
        return places;
    }

    /// Plays a point and returns its tellings.
    static QStringList play(const Fault* fault, qint64 at, const Course& usual, unsigned seed) {
        SCOPED_TRACE(std::string(fault != nullptr ? fault->name : "nothing wrong") + " at " + std::to_string(at));
        Point point(GetParam(), fault, at, seed);
        point.play(usual);
        EXPECT_LT(point.outcome().longestStep, clickLimit) << "a click has to wait";
        return point.outcome().tellings();
    }
};

TEST_P(Matrix, NothingIsLostAndTheOperatorIsToldOnce) {
    const Undertaking& undertaking = GetParam();
    Course usual;
    {
        Point undisturbed(undertaking, nullptr, 0, 0);
        undisturbed.play(usual);
        EXPECT_TRUE(undisturbed.outcome().done);
        EXPECT_EQ(undisturbed.outcome().tellings(), QStringList());
        usual = undisturbed.course();
    }
    ASSERT_FALSE(HasFailure());
    const int randomPlaces = qEnvironmentVariableIntValue("ORV_MATRIX_RANDOM");
    const unsigned seed = qEnvironmentVariableIsSet("ORV_MATRIX_SEED")
                              ? qEnvironmentVariable("ORV_MATRIX_SEED").toUInt()
                              : std::random_device()();
    if (randomPlaces > 0) {
        std::printf("ORV_MATRIX_SEED=%u\n", seed);
    }
    std::minstd_rand random(seed);
    QString line = QStringLiteral("| %1 |").arg(QLatin1String(undertaking.name));
    const std::size_t heap = ::mallinfo2().uordblks;
    for (const Fault& fault : allFaults()) {
        if (const char* reason = whyNot(fault)) {
            line += QStringLiteral(" %1 |").arg(QLatin1String(reason));
            continue;
        }
        const std::vector<qint64> places = placesOf(fault, usual);
        if (places.empty()) {
            line += QStringLiteral(" (3) |");
            continue;
        }
        QStringList keys;
        for (const qint64 at : std::set<qint64>{places.front(), places[places.size() / 2], places.back()}) {
            keys += play(&fault, at, usual, 1);
        }
        for (int i = 0; i < randomPlaces; ++i) {
            const auto place = std::uniform_int_distribution<std::size_t>(0, places.size() - 1)(random);
            play(&fault, places[place], usual, static_cast<unsigned>(random()));
        }
        keys.removeDuplicates();
        keys.sort();
        line += QStringLiteral(" %1 |").arg(keys.isEmpty() ? QStringLiteral("-") : keys.join(QLatin1String(", ")));
    }
    constexpr std::size_t slack = std::size_t{256} * 1024;
    EXPECT_LE(::mallinfo2().uordblks, heap + slack);
    expectInTable(line);
}

TEST(MatrixTable, HasAColumnForEachFault) {
    QString line = QStringLiteral("| |");
    for (const Fault& fault : allFaults()) {
        line += QStringLiteral(" %1 |").arg(QLatin1String(fault.name));
    }
    EXPECT_TRUE(documentation().contains('\n' + line.toUtf8() + '\n')) << line.toStdString();
}

TEST(MatrixTable, SaysWhatTheOperatorIsTold) {
    for (const Telling& telling : allTellings()) {
        expectInTable(QStringLiteral("| %1 | %2 | %3 |")
                          .arg(QLatin1String(telling.key), QLatin1String(telling.words).trimmed(),
                               QLatin1String(*telling.advice == '\0' ? "-" : telling.advice)));
    }
}

INSTANTIATE_TEST_SUITE_P(Undertakings, Matrix, testing::ValuesIn(allUndertakings().begin(), allUndertakings().end()),
                         [](const auto& info) {
                             return QString::fromLatin1(info.param.name).remove(u' ').toStdString();
                         });

} // namespace
} // namespace orv
