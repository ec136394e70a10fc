// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/words.h"
#include "program/program.h"
#include "ui/plotpicture.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class QMenu;
class QPrintDialog;
class QPrinter;

namespace orv {

/// The buttons that save, copy and print the curves as they are seen.
class PictureButtons final : public QWidget {
public:
    /// `refresh` draws what has changed. Program and canvas outlive the buttons.
    PictureButtons(Program& program, PlotCanvas& canvas, std::function<void()> refresh);

    Signal<QString> saved; ///< A picture, under this whole name.
    Signal<> copied;       ///< A picture is on the clipboard.

private:
    QMenu* makeSaveMenu(QWidget* parent);
    Task<> save(PictureFormat format);
    void copy();
    void askForPrinter();
    void print(QPrinter& printer);
    void tell(const Words& title, const Words& text);

    Program& program_;
    PlotCanvas& canvas_;
    std::function<void()> refresh_;
    QPointer<QPrintDialog> printDialog_; ///< The one that stands.
    Bindings bindings_;
};

} // namespace orv
