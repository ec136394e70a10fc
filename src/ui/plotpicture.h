// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/plotcanvas.h"

#include <QByteArray>
#include <QImage>
#include <QString>

class QPrinter;

namespace orv {

/// The file formats of a picture of the curves.
enum class PictureFormat { Png, Pdf, Svg };

/// The ending of such a file's name, with its dot.
QString pictureSuffix(PictureFormat format);

/// The format that the ending of `fileName` tells; `otherwise` if it tells none.
PictureFormat pictureFormat(const QString& fileName, PictureFormat otherwise);

/// The curves as they are seen, black on white with a legend, smooth, in the shape of the canvas.
QImage plotImage(PlotCanvas& canvas);

/// The same as the bytes of a file. PDF is a landscape page of A4.
QByteArray plotPicture(PlotCanvas& canvas, PictureFormat format);

/// Prints the same onto one page. Returns whether the printer took it.
bool printPlot(PlotCanvas& canvas, QPrinter& printer);

} // namespace orv
