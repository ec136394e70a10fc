// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotpicture.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrinter>
#include <QSvgGenerator>

#include <cmath>
#include <utility>

namespace orv {

namespace {

constexpr std::pair<PictureFormat, const char*> suffixes[] = {
    {PictureFormat::Png, ".png"}, {PictureFormat::Pdf, ".pdf"}, {PictureFormat::Svg, ".svg"}};

/// The units of a picture's width; small canvases make no small pictures.
constexpr int pictureWidth = 1000;

int heightFor(const QSizeF& shape) {
    constexpr double flattest = 0.3;
    constexpr double steepest = 1.5;
    return static_cast<int>(pictureWidth * std::clamp(shape.height() / shape.width(), flattest, steepest));
}

void setTitle(QPdfWriter& writer) {
    writer.setCreator(QStringLiteral("ORV Host"));
    writer.setTitle(QStringLiteral("Curves of the data sheet"));
}

/// Fills a page of `size` device units.
bool paintPage(PlotCanvas& canvas, QPagedPaintDevice& page, const QSizeF& size) {
    QCPPainter painter;
    if (!painter.begin(&page)) {
        return false;
    }
    painter.setMode(QCPPainter::pmVectorized);
    const double scale = size.width() / pictureWidth;
    painter.scale(scale, scale);
    canvas.paintPicture(painter, pictureWidth, heightFor(size));
    return painter.end();
}

void writePdf(PlotCanvas& canvas, QIODevice& device) {
    constexpr int resolution = 600;
    QPdfWriter writer(&device);
    setTitle(writer);
    writer.setResolution(resolution);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(QPageLayout::Landscape);
    paintPage(canvas, writer, writer.pageLayout().paintRectPixels(resolution).size());
}

void writeSvg(PlotCanvas& canvas, QIODevice& device) {
    const int height = heightFor(canvas.size());
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setTitle(QStringLiteral("Curves of the data sheet"));
    generator.setSize(QSize(pictureWidth, height));
    generator.setViewBox(QRect(0, 0, pictureWidth, height));
    QCPPainter painter;
    painter.begin(&generator);
    painter.setMode(QCPPainter::pmVectorized);
    canvas.paintPicture(painter, pictureWidth, height);
    painter.end();
}

} // namespace

QString pictureSuffix(PictureFormat format) {
    for (const auto& [known, suffix] : suffixes) {
        if (known == format) {
            return QString::fromLatin1(suffix);
        }
    }
    return {};
}

PictureFormat pictureFormat(const QString& fileName, PictureFormat otherwise) {
    for (const auto& [format, suffix] : suffixes) {
        if (fileName.endsWith(QLatin1String(suffix), Qt::CaseInsensitive)) {
            return format;
        }
    }
    return otherwise;
}

QImage plotImage(PlotCanvas& canvas) {
    constexpr int scale = 2;
    const int height = heightFor(canvas.size());
    QImage image(pictureWidth * scale, height * scale, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDevicePixelRatio(scale);
    QCPPainter painter;
    painter.begin(&image);
    canvas.paintPicture(painter, pictureWidth, height);
    painter.end();
    return image;
}

QByteArray plotPicture(PlotCanvas& canvas, PictureFormat format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    switch (format) {
    case PictureFormat::Png:
        plotImage(canvas).save(&buffer, "PNG");
        break;
    case PictureFormat::Pdf:
        writePdf(canvas, buffer);
        break;
    case PictureFormat::Svg:
        writeSvg(canvas, buffer);
        break;
    }
    return bytes;
}

bool printPlot(PlotCanvas& canvas, QPrinter& printer) {
    return paintPage(canvas, printer, printer.pageLayout().paintRectPixels(printer.resolution()).size());
}

} // namespace orv
