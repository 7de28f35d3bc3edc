#include "desktop/note/ink_image.h"

#include <QBuffer>
#include <QImage>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace hourwright::desktop {

namespace {

using exchange::InkDrawing;
using exchange::InkPoint;
using exchange::InkStroke;

constexpr double margin = 4.0;
constexpr double largest = 4000.0;   // pixels; foreign coordinates may be anything
constexpr double pictureScale = 1.5; // finer than the screen, for print
constexpr double twipsPerPixel = 1440.0 / 96.0;

QPointF at(const InkPoint& point, double scale) {
    return {point.x * scale, point.y * scale};
}

double tip(const InkStroke& stroke, std::uint16_t pressure, double scale) {
    return std::max(0.8, stroke.width * scale * (0.25 + 0.75 * pressure / 65535.0));
}

} // namespace

QSizeF inkSize(const InkDrawing& drawing) {
    double right = 40 / inkScale;
    double bottom = 24 / inkScale;
    for (const InkStroke& stroke : drawing.strokes) {
        for (const InkPoint& point : stroke.points) {
            right = std::max(right, point.x + stroke.width / 2.0);
            bottom = std::max(bottom, point.y + stroke.width / 2.0);
        }
    }
    return {std::min(largest, std::ceil(right * inkScale + margin)),
            std::min(largest, std::ceil(bottom * inkScale + margin))};
}

void paintStroke(QPainter& painter, const InkStroke& stroke, double scale) {
    if (stroke.points.empty())
        return;
    QPen pen(QColor::fromRgba(stroke.colour));
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    const auto& points = stroke.points;
    const bool even = std::ranges::all_of(points, [&](const InkPoint& p) { return p.pressure == points[0].pressure; });
    pen.setWidthF(tip(stroke, points[0].pressure, scale));
    if (points.size() == 1 || even) {
        QPainterPath path(at(points[0], scale));
        for (std::size_t i = 1; i < points.size(); ++i)
            path.lineTo(at(points[i], scale));
        if (points.size() == 1)
            path.lineTo(at(points[0], scale) + QPointF(0.01, 0));
        painter.strokePath(path, pen);
        return;
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto pressure = static_cast<std::uint16_t>((points[i - 1].pressure + points[i].pressure) / 2);
        pen.setWidthF(tip(stroke, pressure, scale));
        painter.setPen(pen);
        painter.drawLine(at(points[i - 1], scale), at(points[i], scale));
    }
}

void paintInk(QPainter& painter, const InkDrawing& drawing, double scale) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const InkStroke& stroke : drawing.strokes)
        paintStroke(painter, stroke, scale);
    painter.restore();
}

void addInkPicture(InkDrawing& drawing) {
    const QSizeF size = inkSize(drawing);
    QImage image((size * pictureScale).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintInk(painter, drawing, inkScale * pictureScale);
    painter.end();
    QBuffer buffer;
    image.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither).save(&buffer, "PNG", 0);
    const QByteArray& bytes = buffer.data();
    const auto view = std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    drawing.picture = exchange::InkPicture{.png = {view.begin(), view.end()},
                                           .pixelWidth = image.width(),
                                           .pixelHeight = image.height(),
                                           .width = qRound(size.width() * twipsPerPixel),
                                           .height = qRound(size.height() * twipsPerPixel)};
}

} // namespace hourwright::desktop
