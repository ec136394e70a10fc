// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/instrumentlines.h"
#include "testing/programrig.h"

#include <QElapsedTimer>

namespace orv {

/// The whole program below its windows with one instrument on COM 1.
class DownloadRig : public ProgramTest {
protected:
    explicit DownloadRig(LineMaker makeLine)
        : ProgramTest(std::move(makeLine)) {
        lineMade = [this] {
            line->written = [this](const QByteArray& bytes) {
                if (bytes == "O") {
                    line->blocks.clear();
                }
            };
        };
    }
    ~DownloadRig() override { program.end(); }

    void load() {
        if (!loaded_) {
            loaded_ = true;
            program.load();
        }
    }

    /// Connects and reads the settings.
    void connectTo(const QString& device) {
        ports.setDevice(1, device);
        load();
        autoConnect();
        tickUntil([this] { return state.Ctrlscrn == Operation::SettingsOpen; });
        ASSERT_TRUE(commands.canCommand);
        ASSERT_TRUE(messages.shown.empty());
    }

    /// One interval of the status timer and its tick.
    virtual void step() {
        clock.advance(timer.interval());
        program.tick();
    }

    void tickUntil(const std::function<bool()>& reached) {
        constexpr int enough = 2'000'000;
        QElapsedTimer patience;
        patience.start();
        for (int ticks = 0; !reached(); ++ticks) {
            ASSERT_LT(ticks, enough);
            ASSERT_LT(patience.elapsed(), 60'000);
            step();
        }
    }

    bool isTaking() const { return commands.activity.value() == Activity::Downloading; }

    void startText() {
        answers.fileName = path("dump.txt");
        program.downloadText();
    }

    void downloadToFile() {
        startText();
        tickUntil([this] { return !isTaking(); });
    }

    void downloadToSheet() {
        program.vwhp();
        tickUntil([this] { return !isTaking(); });
    }

    std::string fileRows() const {
        const QByteArray bytes = contentsOf(path("dump.txt"));
        return bytes.mid(bytes.indexOf('\n', bytes.indexOf("Data Point")) + 1).toStdString();
    }

    std::string savedSheetRows() {
        answers.fileName = path("sheet.txt");
        program.saveAs();
        const QByteArray bytes = contentsOf(path("sheet.txt"));
        return bytes.mid(bytes.indexOf('\n', bytes.indexOf("Data Point")) + 1).toStdString();
    }

    std::string statusText() const { return status.status.value().toStdString(); }

    void expectWholeEnd(const ExpectedDump& expected) {
        EXPECT_TRUE(expected.ended);
        EXPECT_EQ(statusText(), "Ready");
        EXPECT_FALSE(progress.visible);
        EXPECT_EQ(status.downloadedBytes.value(), QString::number(expected.bytes));
        EXPECT_TRUE(commands.canCommand);
        EXPECT_TRUE(contentsOf(path("log.ohp")).endsWith(line->blocks.join("\r\n") + "\r\n"));
        EXPECT_TRUE(messages.shown.empty());
    }

    std::vector<std::string> told() const {
        std::vector<std::string> texts;
        for (const Message& message : messages.shown) {
            texts.push_back(message.text.toStdString());
        }
        return texts;
    }

    std::string incompleteText(int records, const std::string& where) const {
        return "The download is incomplete: it was ended before the instrument had sent everything. " +
               std::to_string(records) + " records arrived and can be found " + where +
               ".\n\nThe instrument still holds its data; download it again.";
    }

private:
    bool loaded_ = false;
};

} // namespace orv
