// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/picturebuttons.h"

#include "base/files.h"
#include "ui/plotcanvas.h"
#include "ui/widgets.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QVBoxLayout>

#include <memory>
#include <utility>

namespace orv {

PictureButtons::PictureButtons(Program& program, PlotCanvas& canvas, std::function<void()> refresh)
    : program_(program)
    , canvas_(canvas)
    , refresh_(std::move(refresh)) {
    auto* saveButton = makeButton(
        Screen::tr("Save Pict&ure"), "SavePicture", [] {},
        Screen::tr("Saves the curves as they are seen as a PNG, PDF or SVG file."));
    saveButton->setMenu(makeSaveMenu(saveButton));
    bindEnabled(bindings_, saveButton, program_.link.session.commands.canAsk);
    auto* copyButton = makeButton(
        Screen::tr("Cop&y"), "CopyPicture", [this] { copy(); },
        Screen::tr("Copies the curves as they are seen as a picture to the clipboard."));
    auto* printButton = makeButton(
        Screen::tr("Print &Graph..."), "PrintPicture", [this] { askForPrinter(); },
        Screen::tr("Prints the curves as they are seen."));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* button : {saveButton, copyButton, printButton}) {
        column->addWidget(button);
    }
}

QMenu* PictureButtons::makeSaveMenu(QWidget* parent) {
    struct Item {
        PictureFormat format;
        const char* text;
        const char* name;
    };
    constexpr Item items[] = {
        {PictureFormat::Png, QT_TRANSLATE_NOOP("orv", "As P&NG, pixels, for screens and documents"), "SavePng"},
        {PictureFormat::Pdf, QT_TRANSLATE_NOOP("orv", "As P&DF, a page to print or send"), "SavePdf"},
        {PictureFormat::Svg, QT_TRANSLATE_NOOP("orv", "As S&VG, lines, for drawing programs"), "SaveSvg"}};
    auto* menu = new QMenu(parent);
    for (const Item& item : items) {
        QAction* action = menu->addAction(Screen::tr(item.text));
        action->setObjectName(QLatin1String(item.name));
        connect(action, &QAction::triggered, this, [this, format = item.format] {
            program_.link.procedures.startBeside(Words::tr("Save Picture"), [this, format] { return save(format); });
        });
    }
    return menu;
}

Task<> PictureButtons::save(PictureFormat format) {
    const QString suffix = pictureSuffix(format);
    const Question question = saveQuestion(Words::tr("Save Picture"), program_.sheet.shown.fileName.value() + suffix,
                                           suffix, QLatin1Char('*') + suffix);
    const QString name = co_await program_.link.waits.answer(question);
    if (name.isEmpty()) {
        co_return; // also when the page has gone with the program
    }
    // Rows may have come while the operator chose.
    refresh_();
    const QString whole = QFileInfo(name).absoluteFilePath();
    const Words reason = writeWholeFile(name, plotPicture(canvas_, pictureFormat(name, format)));
    if (!reason.isEmpty()) {
        tell(Words::tr("Save Picture"),
             Words::tr("The picture could not be saved as %1: %2.\n\nChoose another folder or make room on the "
                       "disk, then save again.")
                 .arg(whole, reason));
        co_return;
    }
    saved.tell(whole);
}

void PictureButtons::copy() {
    refresh_();
    QGuiApplication::clipboard()->setImage(plotImage(canvas_));
    copied.tell();
}

void PictureButtons::askForPrinter() {
    if (printDialog_) {
        printDialog_->raise();
        printDialog_->activateWindow();
        return;
    }
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setDocName(Screen::tr("Curves of the data sheet")); // the name that a printed file is offered, too
    printDialog_ = new QPrintDialog(printer.get(), this);
    printDialog_->setAttribute(Qt::WA_DeleteOnClose);
    connect(printDialog_, qOverload<QPrinter*>(&QPrintDialog::accepted), this,
            [this, printer](QPrinter*) { print(*printer); });
    printDialog_->setModal(false);
    printDialog_->show();
}

void PictureButtons::print(QPrinter& printer) {
    refresh_();
    if (!printPlot(canvas_, printer)) {
        tell(Words::tr("Print Graph"),
             Words::tr("The printer did not take the page.\n\nSee whether it is switched on and connected, then "
                       "print again, or save the curves as PDF and print that."));
    }
}

void PictureButtons::tell(const Words& title, const Words& text) {
    program_.link.session.messages.show(operatorWarning(text, title));
}

} // namespace orv
