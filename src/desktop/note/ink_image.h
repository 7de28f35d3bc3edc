#pragma once

#include "exchange/note_document.h"

#include <QColor>
#include <QPainter>
#include <QSizeF>

/// Drawings on the screen and as pictures.
namespace hourwright::desktop {

/// Ink lies on paper, also on a dark desktop: its colours were chosen for it.
inline constexpr QColor paperColour(0xFD, 0xFC, 0xF6);

/// Device-independent pixels for a hundredth of a millimetre.
inline constexpr double inkScale = 96.0 / 2540.0;

/// The size of a drawing in pixels of the screen, with a small margin; that of a small empty sheet without strokes.
[[nodiscard]] QSizeF inkSize(const exchange::InkDrawing& drawing);

/// Draws one stroke with its corner at the painter's origin; pressed lightly, the pen draws thinner.
void paintStroke(QPainter& painter, const exchange::InkStroke& stroke, double scale = inkScale);
void paintInk(QPainter& painter, const exchange::InkDrawing& drawing, double scale = inkScale);

/// Gives the drawing the picture that programs without ink show.
void addInkPicture(exchange::InkDrawing& drawing);

} // namespace hourwright::desktop
