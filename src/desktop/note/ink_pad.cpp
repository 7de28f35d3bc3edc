#include "desktop/note/ink_pad.h"

#include "desktop/note/ink_image.h"
#include "desktop/screen_size.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTabletEvent>
#include <algorithm>
#include <cmath>
#include <limits>

namespace hourwright::desktop {

namespace {

using exchange::InkDrawing;
using exchange::InkPoint;
using exchange::InkStroke;

constexpr double full = 65535.0;
constexpr double eraserReach = 6.0; // pixels around the eraser

std::int32_t toInk(double pixels) {
    return static_cast<std::int32_t>(std::lround(std::clamp(pixels, -20000.0, 20000.0) / inkScale));
}

double distanceTo(QPointF place, QPointF from, QPointF to) {
    const QPointF way = to - from;
    const double length = QPointF::dotProduct(way, way);
    const double part = length > 0 ? std::clamp(QPointF::dotProduct(place - from, way) / length, 0.0, 1.0) : 0.0;
    const QPointF off = place - (from + part * way);
    return std::hypot(off.x(), off.y());
}

QPointF pixel(const InkPoint& point) {
    return {point.x * inkScale, point.y * inkScale};
}

bool touches(const InkStroke& stroke, QPointF place) {
    const double reach = eraserReach + stroke.width * inkScale / 2;
    for (std::size_t i = 0; i < stroke.points.size(); ++i)
        if (distanceTo(place, pixel(stroke.points[i == 0 ? 0 : i - 1]), pixel(stroke.points[i])) <= reach)
            return true;
    return false;
}

} // namespace

InkPad::InkPad(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setErasing(false);
}

QSize InkPad::sizeHint() const {
    const QSize drawn = inkSize({.strokes = strokes_, .picture = std::nullopt}).toSize();
    const QSize usual = isHandheld() ? QSize(320, 320) : QSize(560, 320);
    return drawn.expandedTo(usual).boundedTo({1200, 900});
}

void InkPad::setDrawing(const InkDrawing& drawing) {
    strokes_ = drawing.strokes;
    undo_.clear();
    redo_.clear();
    updateGeometry();
    update();
}

InkDrawing InkPad::drawing() const {
    InkDrawing result{.strokes = strokes_, .picture = std::nullopt};
    std::int32_t left = std::numeric_limits<std::int32_t>::max();
    std::int32_t top = left;
    for (const InkStroke& stroke : strokes_) {
        const auto half = static_cast<std::int32_t>(std::min(stroke.width, 100'000U) / 2 + 100);
        for (const InkPoint& point : stroke.points) {
            left = std::min(left, std::max(point.x, -1'000'000) - half);
            top = std::min(top, std::max(point.y, -1'000'000) - half);
        }
    }
    // A drawing that only moves has not changed, so what stands in the corner already stays.
    if (std::abs(left) <= 100 && std::abs(top) <= 100)
        return result;
    for (InkStroke& stroke : result.strokes) {
        for (InkPoint& point : stroke.points) {
            point.x -= left;
            point.y -= top;
        }
    }
    return result;
}

void InkPad::setErasing(bool erasing) {
    erasing_ = erasing;
    setCursor(erasing ? Qt::PointingHandCursor : Qt::CrossCursor);
}

void InkPad::keep(Strokes before) {
    undo_.push_back(std::move(before));
    redo_.clear();
    update();
    emit changed();
}

void InkPad::undo() {
    if (undo_.empty() || down_)
        return;
    redo_.push_back(std::exchange(strokes_, std::move(undo_.back())));
    undo_.pop_back();
    update();
    emit changed();
}

void InkPad::redo() {
    if (redo_.empty() || down_)
        return;
    undo_.push_back(std::exchange(strokes_, std::move(redo_.back())));
    redo_.pop_back();
    update();
    emit changed();
}

void InkPad::clear() {
    if (!strokes_.empty())
        keep(std::exchange(strokes_, {}));
}

void InkPad::begin(QPointF position, double pressure, bool erase) {
    before_ = strokes_;
    down_ = true;
    erasesNow_ = erase;
    if (!erase)
        strokes_.push_back({.colour = colour_, .width = tip_, .points = {}});
    move(position, pressure);
}

void InkPad::move(QPointF position, double pressure) {
    if (!down_)
        return;
    if (erasesNow_)
        eraseAt(position);
    else
        addPoint(position, pressure);
    update();
}

// Points closer than the screen shows only cost room.
void InkPad::addPoint(QPointF position, double pressure) {
    const InkPoint point{.x = toInk(std::clamp(position.x(), 0.0, 1.0 * width())),
                         .y = toInk(std::clamp(position.y(), 0.0, 1.0 * height())),
                         .pressure = static_cast<std::uint16_t>(std::lround(std::clamp(pressure, 0.0, 1.0) * full))};
    auto& points = strokes_.back().points;
    const double least = 1.5 / inkScale;
    if (points.empty() || std::hypot(points.back().x - point.x, points.back().y - point.y) >= least)
        points.push_back(point);
}

void InkPad::eraseAt(QPointF position) {
    std::erase_if(strokes_, [&](const InkStroke& stroke) { return touches(stroke, position); });
}

void InkPad::end() {
    if (!down_)
        return;
    down_ = false;
    if (strokes_ != before_)
        keep(std::move(before_));
    before_.clear();
}

void InkPad::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), paperColour);
    paintInk(painter, {.strokes = strokes_, .picture = std::nullopt});
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void InkPad::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        begin(event->position(), 1.0, erasing_);
}

void InkPad::mouseMoveEvent(QMouseEvent* event) {
    move(event->position(), 1.0);
}

void InkPad::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        end();
}

// Accepted events of a pen are not repeated as those of a mouse.
void InkPad::tabletEvent(QTabletEvent* event) {
    const bool eraserEnd = event->pointerType() == QPointingDevice::PointerType::Eraser;
    if (event->type() == QEvent::TabletPress)
        begin(event->position(), event->pressure(), erasing_ || eraserEnd);
    else if (event->type() == QEvent::TabletMove)
        move(event->position(), event->pressure());
    else
        end();
    event->accept();
}

} // namespace hourwright::desktop
