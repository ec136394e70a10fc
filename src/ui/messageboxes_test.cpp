// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"
#include "ui/messageboxes.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace orv {
namespace {

class MessageBoxesTest : public testing::Test {
protected:
    MessageBoxesTest() { boxes.setParent(&parent); }

    QList<QMessageBox*> open() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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

/// Does something with the dialog that waits for the operator.
template <typename Dialog, typename Action>
void whenAsked(Action action) {
    QTimer::singleShot(0, qApp, [action] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        action(*dialog);
    });
}

TEST(QuestionDialogsTest, YesAndNoHaveTheExclamationIcon) {
    QuestionDialogs questions;
    for (const auto& [standard, yes] : {std::pair(QMessageBox::Yes, true), std::pair(QMessageBox::No, false)}) {
        const QMessageBox::StandardButton pressed = standard;
        whenAsked<QMessageBox>([pressed](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle().toStdString(), "Save Data");
            EXPECT_EQ(box.text().toStdString(), "Save it ?");
            EXPECT_EQ(box.icon(), QMessageBox::Warning);
            EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
            box.button(pressed)->click();
        });
        EXPECT_EQ(questions.askYesNo(QStringLiteral("Save Data"), QStringLiteral("Save it ?")), yes);
    }
}

TEST(QuestionDialogsTest, TheSaveDialogHasTitleAndNameAndAddsTheSuffix) {
    const OwnFolder folder;
    QuestionDialogs questions;
    const auto ask = [&questions] {
        return questions.saveFileName(QStringLiteral("Save as"), QStringLiteral("Untitled.txt"), QStringLiteral(".txt"),
                                      QStringLiteral("*.txt"));
    };
    whenAsked<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), "Save as");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        EXPECT_EQ(edit->text().toStdString(), "Untitled.txt");
        edit->setText(QStringLiteral("mine"));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(QFileInfo(ask()).fileName().toStdString(), "mine.txt");
    whenAsked<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(ask().toStdString(), "");
}

TEST(QuestionDialogsTest, TheOpenDialogTakesAFileThatIsThereAndAddsTheSuffixToANameThatIsNotThereWithoutIt) {
    const OwnFolder folder;
    fill(folder.path("mine.OCM"), "1");
    fill(folder.path("plain"), "1");
    QuestionDialogs questions;
    for (const auto& [typed, taken] :
         {std::pair("mine", "mine.OCM"), std::pair("mine.OCM", "mine.OCM"), std::pair("plain", "plain")}) {
        const QString name = folder.path(typed);
        whenAsked<QFileDialog>([name](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle().toStdString(), "Open");
            EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
            EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
            dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        EXPECT_EQ(questions.openFileName(QStringLiteral("Open"), QStringLiteral(".OCM"), QStringLiteral("*.OCM"))
                      .toStdString(),
                  folder.path(taken).toStdString());
    }
}

} // namespace
} // namespace orv
