// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"
#include "testing/windowrig.h"
#include "ui/messageboxes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>
#include <QtTest/QTest>

#include <algorithm>
#include <memory>

namespace orv {
namespace {

void deleteWhatWaits() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

class MessageBoxesTest : public testing::Test {
protected:
    MessageBoxesTest() { boxes.setParent(&parent); }

    QList<QMessageBox*> open() {
        deleteWhatWaits();
        return parent.findChildren<QMessageBox*>();
    }

    const Message lost{.title = QStringLiteral("ORV Host Program"),
                       .text = QStringLiteral("The connection was lost."),
                       .icon = Message::Icon::Exclamation};
    QWidget parent;
    MessageBoxes boxes;
};

TEST_F(MessageBoxesTest, AMessageIsShownWithoutWaitingForAnAnswer) {
    boxes.show(lost);
    ASSERT_EQ(open().size(), 1);
    const QMessageBox& box = *open().front();
    EXPECT_TRUE(box.isVisible());
    EXPECT_FALSE(box.isModal());
    EXPECT_EQ(box.windowTitle().toStdString(), "ORV Host Program");
    EXPECT_EQ(box.text().toStdString(), "The connection was lost.");
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
}

TEST_F(MessageBoxesTest, TheSameMessageIsNotShownTwiceAtATime) {
    int told = 0;
    const auto counting = boxes.told.subscribe([&told](const Message&) { ++told; });
    boxes.show(lost);
    boxes.show(lost);
    EXPECT_EQ(told, 2);
    ASSERT_EQ(open().size(), 1);
    Message other = lost;
    other.text += QStringLiteral(" Again.");
    boxes.show(other);
    EXPECT_EQ(open().size(), 2);
    for (QMessageBox* box : open()) {
        box->close();
    }
    ASSERT_EQ(open().size(), 0);
    boxes.show(lost);
    EXPECT_EQ(open().size(), 1);
}

TEST_F(MessageBoxesTest, WhatComesLastWaitsUntilTheLastOfThemIsRead) {
    int read = 0;
    boxes.whenRead([&read] { ++read; });
    EXPECT_EQ(read, 1) << "there is nothing to read";
    boxes.show(lost);
    boxes.show(operatorWarning(QStringLiteral("The download is incomplete.")));
    boxes.whenRead([&read] { ++read; });
    EXPECT_EQ(read, 1);
    open().front()->button(QMessageBox::Ok)->click();
    EXPECT_EQ(read, 1);
    open().front()->close();
    deleteWhatWaits();
    EXPECT_EQ(read, 2);
}

/// How a box goes.
enum class Going { Button, Frame, Key, Destroyed, DestroyedLater };

void leave(QMessageBox* box, Going going) {
    switch (going) {
    case Going::Button:
        box->button(QMessageBox::Ok)->click();
        break;
    case Going::Frame:
        box->close();
        break;
    case Going::Key:
        press(*box, Qt::Key_Escape);
        break;
    case Going::Destroyed:
        delete box;
        break;
    case Going::DestroyedLater:
        box->deleteLater();
        break;
    }
    deleteWhatWaits();
}

TEST(LastMessages, AreReadOnceTheLastIsGoneInWhateverOrderAndWay) {
    constexpr Going ways[] = {Going::Button, Going::Frame, Going::Key, Going::Destroyed, Going::DestroyedLater};
    std::vector<std::size_t> order{0, 1, 2};
    do {
        for (const Going first : ways) {
            for (const Going last : ways) {
                MessageBoxes boxes;
                auto parent = std::make_unique<QWidget>();
                boxes.setParent(parent.get());
                for (const char* text : {"one", "two", "three"}) {
                    boxes.show(operatorWarning(QString::fromLatin1(text)));
                }
                const auto open = parent->findChildren<QMessageBox*>();
                ASSERT_EQ(open.size(), 3);
                int read = 0;
                boxes.whenRead([&] {
                    ++read;
                    parent.reset(); // as a program does that ends
                });
                const Going going[] = {first, last, last};
                for (std::size_t step = 0; step < order.size(); ++step) {
                    EXPECT_EQ(read, 0) << "before step " << step;
                    leave(open.at(static_cast<qsizetype>(order[step])), going[step]);
                }
                EXPECT_EQ(read, 1);
                EXPECT_EQ(parent, nullptr);
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(LastMessages, MayOutliveWhatShowedThem) {
    QWidget parent;
    int read = 0;
    {
        MessageBoxes boxes;
        boxes.setParent(&parent);
        boxes.show(operatorWarning(QStringLiteral("one")));
        boxes.whenRead([&read] { ++read; });
    }
    parent.findChild<QMessageBox*>()->close();
    EXPECT_EQ(read, 0);
}

/// Questions that a window asks.
class QuestionDialogsTest : public testing::Test {
protected:
    QuestionDialogsTest() {
        questions.setParent(&parent);
        parent.show();
    }

    void ask(const Question& question) {
        given.clear();
        standing = questions.ask(question, [this](const QString& answer) { given << answer; });
        EXPECT_TRUE(given.isEmpty()) << "the call has returned without an answer";
    }

    /// The dialog that stands.
    template <typename Dialog>
    Dialog& dialog() {
        deleteWhatWaits();
        const auto dialogs = parent.findChildren<Dialog*>(Qt::FindDirectChildrenOnly);
        if (dialogs.size() != 1 || !dialogs.front()->isVisible()) {
            throw std::logic_error("there is not one dialog");
        }
        EXPECT_FALSE(dialogs.front()->isModal());
        return *dialogs.front();
    }
    QLineEdit& nameBox() { return control<QLineEdit>(dialog<QFileDialog>(), "fileNameEdit"); }
    void accept() { QMetaObject::invokeMethod(&dialog<QFileDialog>(), "accept"); }
    /// The dialog's own box above it.
    QMessageBox& ownBox() { return *dialog<QFileDialog>().findChild<QMessageBox*>(); }

    void expectNoDialog() {
        deleteWhatWaits();
        EXPECT_TRUE(parent.findChildren<QDialog*>().isEmpty());
    }

    std::string answer() {
        EXPECT_EQ(given.size(), 1) << "answered once";
        return given.join(u'|').toStdString();
    }

    static Question save() {
        return saveQuestion(QStringLiteral("Save as"), QStringLiteral("Untitled.txt"), QStringLiteral(".txt"),
                            QStringLiteral("*.txt"));
    }
    static Question open() {
        return openQuestion(QStringLiteral("Open"), QStringLiteral(".OCM"), QStringLiteral("*.OCM"));
    }
    static Question yesNo() { return yesNoQuestion(QStringLiteral("Save Data"), QStringLiteral("Save it ?")); }

    const OwnFolder folder;
    QuestionDialogs questions;
    QWidget parent;
    QStringList given;
    Subscription standing;
};

TEST_F(QuestionDialogsTest, YesAndNoHaveTheExclamationIconAndOnlyTheButtonsAnswer) {
    for (const auto& [pressed, expected] : {std::pair(QMessageBox::Yes, "Yes"), std::pair(QMessageBox::No, "No")}) {
        ask(yesNo());
        auto& box = dialog<QMessageBox>();
        EXPECT_EQ(box.windowTitle().toStdString(), "Save Data");
        EXPECT_EQ(box.text().toStdString(), "Save it ?");
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        press(box, Qt::Key_Escape);
        box.close();
        EXPECT_TRUE(box.isVisible());
        EXPECT_TRUE(given.isEmpty());
        box.button(pressed)->click();
        EXPECT_EQ(answer(), expected);
        standing.reset();
        expectNoDialog();
    }
}

TEST_F(QuestionDialogsTest, TheSaveDialogHasTitleAndNameAndAddsTheSuffix) {
    ask(save());
    auto& files = dialog<QFileDialog>();
    EXPECT_EQ(files.windowTitle().toStdString(), "Save as");
    EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_FALSE(files.testOption(QFileDialog::DontConfirmOverwrite));
    EXPECT_EQ(files.nameFilters().join(u'|').toStdString(), "*.txt|All files (*)");
    EXPECT_EQ(nameBox().text().toStdString(), "Untitled.txt");
    nameBox().setText(QStringLiteral("mine"));
    accept();
    EXPECT_EQ(QFileInfo(QString::fromStdString(answer())).fileName().toStdString(), "mine.txt");
    for (const bool byFrame : {false, true}) {
        ask(save());
        byFrame ? static_cast<void>(dialog<QFileDialog>().close()) : dialog<QFileDialog>().reject();
        EXPECT_EQ(answer(), "") << "cancelled";
    }
}

TEST_F(QuestionDialogsTest, TheFileDialogIsWideEnoughForTheCaptionsOfItsColumns) {
    ask(save());
    auto& files = dialog<QFileDialog>();
    EXPECT_GE(files.width(), 760);
    EXPECT_LE(files.height(), 500);
    const QHeaderView& columns = *control<QTreeView>(files, "treeView").header();
    ASSERT_EQ(columns.count(), 4);
    for (const int column : {1, 2, 3}) {
        EXPECT_GE(columns.sectionSize(column), columns.sectionSizeHint(column)) << column;
    }
}

TEST_F(QuestionDialogsTest, ReplacingAFileIsAskedAboveTheDialogWithoutHoldingTheWindow) {
    fill(folder.path("mine.txt"), "1");
    ask(save());
    nameBox().setText(folder.path("mine"));
    accept();
    EXPECT_TRUE(given.isEmpty());
    EXPECT_FALSE(ownBox().isModal());
    EXPECT_FALSE(dialog<QFileDialog>().isEnabled());
    EXPECT_TRUE(ownBox().text().startsWith(QStringLiteral("mine.txt already exists."))) << qPrintable(ownBox().text());
    QCoreApplication::processEvents(); // the button that has the focus when the box comes up is what Enter presses
    QTest::keyClick(ownBox().focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(given.isEmpty()) << "Enter must not replace a measurement";
    EXPECT_TRUE(dialog<QFileDialog>().isEnabled());
    accept();
    ownBox().close();
    EXPECT_TRUE(given.isEmpty());
    accept();
    ownBox().button(QMessageBox::Yes)->click();
    EXPECT_EQ(answer(), folder.path("mine.txt").toStdString());
}

TEST_F(QuestionDialogsTest, WhatHadTheFocusMayGoWhileTheDialogAsks) {
    fill(folder.path("mine.txt"), "1");
    ask(save());
    auto* passing = new QLineEdit(&dialog<QFileDialog>());
    passing->show();
    passing->setFocus();
    nameBox().setText(folder.path("mine"));
    accept();
    delete passing;
    ownBox().close();
    EXPECT_TRUE(dialog<QFileDialog>().isEnabled());
}

TEST_F(QuestionDialogsTest, TheFileDialogNeitherDeletesNorRenamesButMakesFolders) {
    fill(folder.path("mine.txt"), "1");
    fill(folder.path("taken"), "1");
    ask(save());
    auto& files = dialog<QFileDialog>();
    files.setDirectory(folder.path(""));
    for (const char* name : {"qt_delete_action", "qt_rename_action"}) {
        EXPECT_FALSE(control<QAction>(files, name).isVisible()) << name;
    }
    // What would hold the test is closed and counted.
    int held = 0;
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, [&held] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            ++held;
            box->close();
        }
    });
    closing.start(1);
    const bool detailed = files.viewMode() == QFileDialog::Detail; // as it was left last
    auto& list = control<QAbstractItemView>(files, detailed ? "treeView" : "listView");
    QElapsedTimer patience;
    patience.start();
    while (list.model()->rowCount(list.rootIndex()) == 0 && !patience.hasExpired(5000)) {
        QCoreApplication::processEvents();
    }
    ASSERT_GT(list.model()->rowCount(list.rootIndex()), 0);
    list.setFocus();
    list.setCurrentIndex(list.model()->index(0, 0, list.rootIndex()));
    QTest::keyClick(files.windowHandle(), Qt::Key_Delete);
    QTest::keyClick(files.windowHandle(), Qt::Key_F2);
    EXPECT_EQ(list.findChild<QLineEdit*>(), nullptr) << "no name is edited";

    for (const auto& [typed, made] : {std::pair("taken", "New Folder"), std::pair("data", "data")}) {
        control<QAction>(files, "qt_new_folder_action").trigger();
        auto* name = list.findChild<QLineEdit*>();
        ASSERT_NE(name, nullptr);
        name->setText(QLatin1String(typed));
        QTest::keyClick(name, Qt::Key_Return);
        QCoreApplication::processEvents();
        deleteWhatWaits();
        EXPECT_TRUE(QFileInfo(folder.path(made)).isDir()) << made;
    }
    EXPECT_EQ(held, 0);
    EXPECT_TRUE(QFile::exists(folder.path("mine.txt")));
}

TEST_F(QuestionDialogsTest, TheOpenDialogTakesAFileThatIsThereAndAddsTheSuffixToANameThatIsNotThereWithoutIt) {
    fill(folder.path("mine.OCM"), "1");
    fill(folder.path("plain"), "1");
    for (const auto& [typed, taken] :
         {std::pair("mine", "mine.OCM"), std::pair("mine.OCM", "mine.OCM"), std::pair("plain", "plain")}) {
        ask(open());
        auto& files = dialog<QFileDialog>();
        EXPECT_EQ(files.windowTitle().toStdString(), "Open");
        EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(files.fileMode(), QFileDialog::ExistingFile);
        nameBox().setText(folder.path(typed));
        accept();
        EXPECT_EQ(answer(), folder.path(taken).toStdString());
    }
}

TEST_F(QuestionDialogsTest, AFileThatIsNotThereIsToldAboveTheOpenDialog) {
    ask(open());
    nameBox().setText(folder.path("gone"));
    accept();
    EXPECT_FALSE(ownBox().isModal());
    EXPECT_TRUE(ownBox().text().startsWith(QStringLiteral("gone.OCM\nFile not found."))) << qPrintable(ownBox().text());
    ownBox().button(QMessageBox::Ok)->click();
    EXPECT_TRUE(given.isEmpty());
    EXPECT_TRUE(nameBox().isEnabled()) << "another name can be chosen";
}

TEST_F(QuestionDialogsTest, AQuestionThatIsTakenBackClosesItsDialogAndCallsNobody) {
    for (const Question& question : {yesNo(), save(), open()}) {
        ask(question);
        standing.reset();
        EXPECT_TRUE(given.isEmpty());
        expectNoDialog();
    }
    fill(folder.path("mine.txt"), "1");
    ask(save());
    nameBox().setText(folder.path("mine"));
    accept();
    standing.reset();
    EXPECT_TRUE(given.isEmpty());
    expectNoDialog();
}

TEST_F(QuestionDialogsTest, ADialogIsNotDeletedOutOfALoopThatItRunsItself) {
    ask(save());
    QPointer<QFileDialog> files(&dialog<QFileDialog>());
    // As a menu of the dialog does; the application's own loop is around it.
    QEventLoop own;
    QEventLoop outer;
    QTimer::singleShot(0, &parent, [&] {
        QTimer::singleShot(0, &parent, [&] {
            standing.reset();
            EXPECT_FALSE(files->isVisible());
            QTimer::singleShot(0, &parent, [&own] { own.quit(); });
        });
        own.exec();
        EXPECT_TRUE(files);
        QObject::connect(files, &QObject::destroyed, &outer, &QEventLoop::quit);
    });
    outer.exec();
    EXPECT_FALSE(files);
    EXPECT_TRUE(given.isEmpty());
}

} // namespace
} // namespace orv
