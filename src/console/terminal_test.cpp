// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/terminal.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace orv {
namespace {

class OrvTerminal : public testing::Test {
protected:
    OrvTerminal() {
        output.open(QIODevice::WriteOnly);
        error.open(QIODevice::WriteOnly);
    }
    Terminal terminal(bool progress, Terminal::Speech speech) { return {output, error, progress, speech}; }
    std::string said() const { return error.data().toStdString(); }

    QBuffer output;
    QBuffer error;
};

TEST_F(OrvTerminal, ShowsProgressInPlaceAndTakesItAwayBeforeALine) {
    Terminal shown = terminal(true, Terminal::Speech::Usual);
    shown.showProgress(QStringLiteral("10 rows"));
    shown.showProgress(QStringLiteral("9 rows"));
    EXPECT_TRUE(shown.print(QStringLiteral("answer")));
    EXPECT_EQ(said(), "\r10 rows\r9 rows \r      \r");
    EXPECT_EQ(output.data().toStdString(), "answer\n");
    EXPECT_EQ(progressBar(0.255).toStdString(), "[#####               ]  25 %");
    EXPECT_EQ(progressBar(7).toStdString(), "[####################] 100 %");
}

TEST_F(OrvTerminal, SaysAsMuchAsIsWanted) {
    struct Heard {
        Terminal::Speech speech;
        const char* text;
    };
    for (const Heard& heard :
         {Heard{Terminal::Speech::Quiet, "orv: a\n"}, Heard{Terminal::Speech::Usual, "orv: a\norv: b\n"},
          Heard{Terminal::Speech::Verbose, "orv: a\norv: b\norv: c\n"}}) {
        error.buffer().clear();
        error.seek(0);
        Terminal speaking = terminal(heard.speech == Terminal::Speech::Quiet, heard.speech);
        speaking.showProgress(QString());
        speaking.tell(QStringLiteral("a"));
        speaking.remark(QStringLiteral("b"));
        speaking.detail(QStringLiteral("c"));
        EXPECT_EQ(said(), heard.text);
        EXPECT_FALSE(speaking.showsProgress()) << "when quiet, and where nobody sees it";
    }
}

TEST_F(OrvTerminal, TellsAMessageOnceAndNamesThePort) {
    Terminal plain = terminal(false, Terminal::Speech::Quiet);
    ConsoleMessages messages(plain);
    const Message lost = operatorWarning(QStringLiteral("The connection on COM 1 (ttyUSB0) was lost.\n\nPulled."));
    messages.show(lost);
    messages.show(lost);
    EXPECT_EQ(said(), "orv: The connection on ttyUSB0 was lost.\n     Pulled.\n");
    messages.show(withoutWindow(operatorWarning(QStringLiteral("On the sheet.")), QStringLiteral("In the file.")));
    EXPECT_TRUE(QString::fromStdString(said()).endsWith(QStringLiteral("orv: In the file.\n")));
    messages.forget();
    messages.show(lost);
    EXPECT_EQ(QByteArray::fromStdString(said()).count("lost"), 2);
}

TEST_F(OrvTerminal, AnswersEveryQuestionSafelyAtOnce) {
    Terminal plain = terminal(false, Terminal::Speech::Quiet);
    SafeAnswers answers(plain);
    QStringList given;
    const auto keep = [&given](const QString& answer) { given << answer; };
    const Subscription yesNo = answers.ask(yesNoQuestion({}, QStringLiteral("Load its 3 rows?")), keep);
    const Subscription name = answers.ask(saveQuestion(QStringLiteral("Save as"), {}, {}, {}), keep);
    Question found = yesNoQuestion({}, QStringLiteral("Load its 3 rows?"));
    found.reason = QStringLiteral("There are 3 rows.");
    const Subscription reason = answers.ask(found, keep);
    EXPECT_EQ(given.join(u'|').toStdString(), "No||No");
    EXPECT_EQ(said(), "orv: Load its 3 rows? No.\norv: Save as No.\norv: There are 3 rows.\n");
}

} // namespace
} // namespace orv
