// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/messageboxes.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace orv {

namespace {

void prepare(QFileDialog& dialog, const QString& title, const QString& filter) {
    dialog.setWindowTitle(title);
    QStringList filters{QStringLiteral("All files (*)")};
    if (!filter.isEmpty()) {
        filters.prepend(filter);
    }
    dialog.setNameFilters(filters);
}

/// A question that only its buttons answer: Esc or the frame would count as No, and No loses the rows.
class Question final : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Escape) {
            QMessageBox::keyPressEvent(event);
        }
    }
};

/// Opens a file that is there. A name typed without suffix means the file with it, unless there is one without.
class OpenDialog final : public QFileDialog {
public:
    OpenDialog(QString suffix, QWidget* parent)
        : QFileDialog(parent)
        , suffix_(std::move(suffix)) {}

    void accept() override {
        setDefaultSuffix(QString());
        if (!QFileInfo::exists(selectedFiles().value(0))) {
            setDefaultSuffix(suffix_.mid(1));
        }
        QFileDialog::accept();
    }

private:
    QString suffix_; ///< With its dot; may be empty.
};

QString chosen(QFileDialog& dialog) {
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

void MessageBoxes::show(const Message& message) {
    told.tell(message);
    const QString name = message.title + QLatin1Char('\n') + message.text;
    if (parent_) {
        for (const auto* open : parent_->findChildren<QMessageBox*>()) {
            if (open->property("message").toString() == name && open->isVisible()) {
                return;
            }
        }
    }
    auto* box =
        new QMessageBox(message.icon == Message::Icon::Exclamation ? QMessageBox::Warning : QMessageBox::Information,
                        message.title, message.text, QMessageBox::Ok, parent_);
    box->setProperty("message", name);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->button(QMessageBox::Ok)->setText(QStringLiteral("&OK"));
    box->show();
}

void MessageBoxes::waitUntilRead() {
    if (!parent_) {
        return;
    }
    for (const QPointer<QMessageBox> box : parent_->findChildren<QMessageBox*>()) {
        if (box && box->isVisible()) {
            QEventLoop loop;
            QObject::connect(box, &QMessageBox::finished, &loop, &QEventLoop::quit);
            loop.exec();
        }
    }
}

bool QuestionDialogs::askYesNo(const QString& title, const QString& text) {
    Question box(QMessageBox::Warning, title, text, QMessageBox::Yes | QMessageBox::No, parent_);
    box.setDefaultButton(QMessageBox::Yes);
    // Not every window system's own words have the keys.
    box.button(QMessageBox::Yes)->setText(QStringLiteral("&Yes"));
    box.button(QMessageBox::No)->setText(QStringLiteral("&No"));
    return box.exec() == QMessageBox::Yes;
}

QString QuestionDialogs::saveFileName(const QString& title, const QString& presetName, const QString& suffix,
                                      const QString& filter) {
    QFileDialog dialog(parent_);
    prepare(dialog, title, filter);
    if (!suffix.isEmpty()) {
        dialog.setDefaultSuffix(suffix.mid(1));
    }
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectFile(presetName);
    return chosen(dialog);
}

QString QuestionDialogs::openFileName(const QString& title, const QString& suffix, const QString& filter) {
    OpenDialog dialog(suffix, parent_);
    prepare(dialog, title, filter);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return chosen(dialog);
}

namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
        return true;
    default:
        return false;
    }
}

} // namespace

void WindowEvents::processEvents(int milliseconds) {
    QTimer wakeUp;
    wakeUp.setSingleShot(true);
    wakeUp.setTimerType(Qt::PreciseTimer);
    wakeUp.start(milliseconds);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void WindowEvents::keepResponsive(bool manualDialogLives) {
    if (!manualDialogLives) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return;
    }
    qApp->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    qApp->removeEventFilter(this);
}

bool WindowEvents::eventFilter(QObject* watched, QEvent* event) {
    return isInput(event->type()) && !belongsToManualDialog(watched);
}

bool WindowEvents::belongsToManualDialog(const QObject* object) const {
    if (!manualDialog_) {
        return false;
    }
    if (object->isWidgetType()) {
        return qobject_cast<const QWidget*>(object)->window() == manualDialog_;
    }
    return object == manualDialog_->windowHandle();
}

} // namespace orv
