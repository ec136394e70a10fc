// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/messageboxes.h"

#include "base/words.h"
#include "ui/remembered.h"
#include "ui/settingswindow.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QThread>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace orv {

namespace {

constexpr const char* questionMark = "question"; ///< The property of a dialog that is the program's question.

/// The settings window while the operator is there, else the main window, which may be none.
QWidget* windowInHand(QWidget* main) {
    QWidget* settings = dynamic_cast<SettingsWindow*>(QApplication::activeWindow());
    return settings != nullptr ? settings : main;
}

/// Round a point, as far as there is room.
void place(QWidget& box, QPoint centre, const QRect& room) {
    QRect place = box.frameGeometry();
    place.moveCenter(centre);
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveLeft(std::max(place.left(), room.left()));
    place.moveTop(std::max(place.top(), room.top()));
    box.move(place.topLeft());
}

/// A question that only its buttons answer: Esc or the frame would count as No, and No loses the rows.
class YesNoBox final : public QMessageBox {
public:
    YesNoBox(const QString& title, const QString& text, QWidget* parent)
        : QMessageBox(Warning, title, text, Yes | No, parent) {
        setDefaultButton(Yes);
        // Not every window system's own words have the keys.
        button(Yes)->setText(Screen::tr("&Yes"));
        button(No)->setText(Screen::tr("&No"));
    }

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Escape) {
            QMessageBox::keyPressEvent(event);
        }
    }
};

/// Lets a new folder be named as nothing else is; any other name leaves it as it was.
class NewFolderNames final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        const auto* box = qobject_cast<const QLineEdit*>(editor);
        const QString name = box != nullptr ? box->text() : QString();
        const QFileInfo folder(index.data(QFileSystemModel::FilePathRole).toString());
        const bool isPath = QDir::toNativeSeparators(name).contains(QDir::separator());
        if (!name.isEmpty() && !isPath && !QFileInfo::exists(folder.dir().filePath(name))) {
            QStyledItemDelegate::setModelData(editor, model, index);
        }
    }
};

/// A file dialog whose own questions do not hold the program either. The window system's dialogs ask them themselves.
class FileDialog : public QFileDialog {
public:
    FileDialog(const QString& title, const QString& filter, QWidget* parent)
        : QFileDialog(parent) {
        setWindowTitle(title);
        QStringList filters{Screen::tr("All files (*)")};
        if (!filter.isEmpty()) {
            filters.prepend(filter);
        }
        setNameFilters(filters);
        // In the words of the rest of the program.
        setLabelText(FileName, Screen::tr("File &name:"));
        setLabelText(FileType, Screen::tr("Files of type:"));
        constexpr QSize comfortable(760, 460); // fits a screen of 800 x 600
        resize(comfortable);
    }

    void setVisible(bool visible) override {
        QFileDialog::setVisible(visible);
        if (visible && isDrawnHere()) {
            leaveFilesAlone();
            giveNamesTheRoom();
            // Again when the dialog has been laid out with the wider list of places.
            QMetaObject::invokeMethod(
                this, [this] { giveNamesTheRoom(); }, Qt::QueuedConnection);
        }
    }

protected:
    /// Whether Qt draws the dialog.
    bool isDrawnHere() const { return findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) != nullptr; }

    /// Shows a box above the dialog, which takes nothing until the box has been closed.
    void ask(QMessageBox* box, const std::function<void(int button)>& closed) {
        const QPointer<QWidget> focus = focusWidget();
        setEnabled(false);
        box->setEnabled(true);
        if (QPushButton* usual = box->defaultButton()) {
            usual->setFocus(); // disabled with the dialog it has lost it, and Enter would press the first button
        }
        box->setAttribute(Qt::WA_DeleteOnClose);
        connect(box, &QMessageBox::finished, this, [this, focus, closed](int button) {
            setEnabled(true);
            if (focus) {
                focus->setFocus();
            }
            closed(button);
        });
        box->setModal(false);
        box->show();
    }

private:
    /// Size, kind and date are at least as wide as their captions. Only widths: Qt keeps how the columns behave for the
    /// dialogs of all its programs.
    void giveNamesTheRoom() {
        const auto* list = findChild<QTreeView*>(QStringLiteral("treeView"));
        if (list == nullptr) {
            return;
        }
        QHeaderView& columns = *list->header();
        int left = list->viewport()->width();
        if (auto* places = findChild<QListView*>(QStringLiteral("sidebar"))) {
            const int wanted = places->sizeHintForColumn(0) + 2 * places->frameWidth();
            left -= std::max(wanted - places->width(), 0);
            places->setMinimumWidth(wanted);
        }
        for (int column = 1; column < columns.count(); ++column) {
            columns.resizeSection(column, std::max(columns.sectionSize(column), columns.sectionSizeHint(column)));
            left -= columns.sectionSize(column);
        }
        constexpr int leastForNames = 160;
        columns.resizeSection(0, std::max(left, leastForNames));
    }

    /// Qt's dialog would also delete and rename files, and asks and tells of it in boxes that hold the program. A new
    /// folder can be made and named.
    void leaveFilesAlone() {
        for (const char* name : {"qt_delete_action", "qt_rename_action"}) {
            if (auto* action = findChild<QAction*>(QLatin1String(name))) {
                action->setVisible(false);
            }
        }
        for (auto* shortcut : findChildren<QShortcut*>()) {
            shortcut->setEnabled(shortcut->key() != QKeySequence(QKeySequence::Delete));
        }
        for (const char* name : {"listView", "treeView"}) {
            if (auto* view = findChild<QAbstractItemView*>(QLatin1String(name))) {
                view->setEditTriggers(QAbstractItemView::NoEditTriggers);
                view->setItemDelegate(new NewFolderNames(view)); // one a view: two would both answer it
            }
        }
    }
};

class SaveDialog final : public FileDialog {
public:
    using FileDialog::FileDialog;

    void accept() override {
        const QFileInfo file(selectedFiles().value(0));
        if (!isDrawnHere() || !file.exists() || file.isDir()) {
            QFileDialog::accept();
            return;
        }
        auto* box = new QMessageBox(QMessageBox::Warning, Screen::tr("Save as"), // a longer title would be cut
                                    Screen::tr("%1 already exists.\nDo you want to replace it?").arg(file.fileName()),
                                    QMessageBox::Yes | QMessageBox::No, this);
        box->setDefaultButton(QMessageBox::No);
        ask(box, [this](int button) {
            if (button == QMessageBox::Yes) {
                setOption(DontConfirmOverwrite);
                QFileDialog::accept();
            }
        });
    }
};

/// Opens a file that is there. A name typed without suffix means the file with it, unless there is one without.
class OpenDialog final : public FileDialog {
public:
    OpenDialog(const QString& title, const QString& filter, QString suffix, QWidget* parent)
        : FileDialog(title, filter, parent)
        , suffix_(std::move(suffix)) {}

    void accept() override {
        setDefaultSuffix(QString());
        if (!QFileInfo::exists(selectedFiles().value(0))) {
            setDefaultSuffix(suffix_.mid(1));
        }
        const QFileInfo file(selectedFiles().value(0));
        if (!isDrawnHere() || file.exists() || selectedFiles().isEmpty()) {
            QFileDialog::accept();
            return;
        }
        ask(new QMessageBox(
                QMessageBox::Warning, windowTitle(),
                Screen::tr("%1\nFile not found.\nPlease verify the correct file name was given.").arg(file.fileName()),
                QMessageBox::Ok, this),
            [](int) {});
    }

private:
    QString suffix_; ///< With its dot; may be empty.
};

/// The empty text is no folder.
void openIn(QFileDialog& dialog, const QString& folder) {
    if (!folder.isEmpty()) {
        dialog.setDirectory(folder);
    }
}

QDialog* makeDialog(const Question& question, const QString& folder, QWidget* parent) {
    if (question.kind == Question::Kind::YesNo) {
        return new YesNoBox(question.title.shown(), question.text.shown(), parent);
    }
    if (question.kind == Question::Kind::OpenName) {
        auto* dialog = new OpenDialog(question.title.shown(), question.filter.shown(), question.suffix, parent);
        dialog->setAcceptMode(QFileDialog::AcceptOpen);
        dialog->setFileMode(QFileDialog::ExistingFile);
        openIn(*dialog, folder);
        return dialog;
    }
    auto* dialog = new SaveDialog(question.title.shown(), question.filter.shown(), parent);
    if (!question.suffix.isEmpty()) {
        dialog->setDefaultSuffix(question.suffix.mid(1));
    }
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    openIn(*dialog, folder);
    dialog->selectFile(question.presetName);
    return dialog;
}

QString answerOf(const QDialog& dialog, int result) {
    if (const auto* files = qobject_cast<const QFileDialog*>(&dialog)) {
        return result == QDialog::Accepted ? files->selectedFiles().value(0) : QString();
    }
    return result == QMessageBox::Yes ? Question::yes() : Question::no();
}

/// Takes a dialog off the screen for good. A menu of its own may run a loop inside it, out of which it must not be
/// deleted.
void discard(QDialog* dialog) {
    dialog->hide();
    for (auto* box : dialog->findChildren<QDialog*>()) {
        box->hide();
    }
    if (QThread::currentThread()->loopLevel() <= 1) {
        dialog->deleteLater();
        return;
    }
    if (QWidget* menu = QApplication::activePopupWidget()) {
        menu->close();
    }
    constexpr int soon = 100;
    QTimer::singleShot(soon, dialog, [dialog] { discard(dialog); });
}

/// The question that stands; null if none does.
QDialog* standingQuestion() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->property(questionMark).isValid()) {
            return static_cast<QDialog*>(widget);
        }
    }
    return nullptr;
}

} // namespace

bool showUnasked(QWidget& window) {
    QDialog* question = standingQuestion();
    if (question == nullptr) {
        window.show();
        return true;
    }
    QWidget* active = QApplication::activeWindow();
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
    window.setAttribute(Qt::WA_ShowWithoutActivating, false);
    question->raise();
    for (auto* box : question->findChildren<QDialog*>()) {
        box->raise();
    }
    if (active != nullptr) {
        active->activateWindow(); // not every window system heeds the attribute
    }
    return false;
}

void MessageBoxes::show(const Message& message) {
    told.tell(message);
    const QString name = message.title.english() + QLatin1Char('\n') + message.text.english();
    if (parent_) {
        for (const auto* open : unreadIn(*parent_)) {
            if (open->property("message").toString() == name) {
                return;
            }
        }
    }
    auto* box =
        new QMessageBox(message.icon == Message::Icon::Exclamation ? QMessageBox::Warning : QMessageBox::Information,
                        message.title.shown(), message.text.shown(), QMessageBox::Ok, parent_);
    box->setProperty("message", name);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->button(QMessageBox::Ok)->setText(Screen::tr("&OK"));
    // Not out of the box's own going: what it belongs to may be destroyed then.
    QObject::connect(
        box, &QObject::destroyed, &receiver_, [this] { tellIfRead(); }, Qt::QueuedConnection);
    const QWidget* inHand = windowInHand(parent_);
    showUnasked(*box);
    // The main window has it, as only that one is always there; it stands where the operator looks.
    if (inHand != parent_) {
        const auto move = [box, centre = inHand->frameGeometry().center(),
                           room = inHand->screen()->availableGeometry()] { place(*box, centre, room); };
        QTimer::singleShot(0, box, move); // its size is that of its text once it has been laid out
    }
}

QList<QMessageBox*> MessageBoxes::unreadIn(const QWidget& parent) {
    QList<QMessageBox*> boxes = parent.findChildren<QMessageBox*>();
    boxes.removeIf([](const QMessageBox* box) { return !box->isVisible() || !box->property("message").isValid(); });
    return boxes;
}

void MessageBoxes::whenRead(std::function<void()> read) {
    read_ = std::move(read);
    tellIfRead();
}

void MessageBoxes::tellIfRead() {
    if (read_ && (!parent_ || unreadIn(*parent_).isEmpty())) {
        std::exchange(read_, {})();
    }
}

namespace {

/// A question on the screen: its dialog goes with it, and the focus returns.
class StandingQuestion {
public:
    StandingQuestion(QDialog* dialog, QWidget* focus)
        : dialog_(dialog)
        , focus_(focus) {}
    StandingQuestion(const StandingQuestion&) = delete;
    StandingQuestion& operator=(const StandingQuestion&) = delete;
    ~StandingQuestion() {
        if (dialog_) {
            dialog_->disconnect();
            discard(dialog_);
        }
        if (focus_ && focus_->isVisible() && focus_->isEnabled()) {
            focus_->setFocus();
        }
    }

private:
    QPointer<QDialog> dialog_;
    QPointer<QWidget> focus_;
};

} // namespace

Subscription QuestionDialogs::ask(const Question& question, Answered answered) {
    QWidget* window = windowInHand(parent_);
    // The button that asked is disabled meanwhile and loses the focus to a neighbour.
    QWidget* focus = window != nullptr ? window->focusWidget() : nullptr;
    const QString folder = remembered_ != nullptr ? remembered_->folder(question.suffix) : QString();
    QDialog* dialog = makeDialog(question, folder, window);
    dialog->setProperty(questionMark, true);
    dialog->setModal(false);
    QObject::connect(dialog, &QDialog::finished, dialog,
                     [this, dialog, suffix = question.suffix, answered = std::move(answered)](int result) {
                         const QString answer = answerOf(*dialog, result);
                         const bool isFile = qobject_cast<QFileDialog*>(dialog) != nullptr && !answer.isEmpty();
                         if (remembered_ != nullptr && isFile) {
                             remembered_->keepFolder(suffix, answer);
                         }
                         answered(answer);
                     });
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    return std::make_shared<StandingQuestion>(dialog, focus);
}

} // namespace orv
