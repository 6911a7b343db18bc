#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

/// The shapes that all controls are drawn with. Each leaves the painter as it found it.
namespace Strokes {

enum class Towards { Up, Down, Left, Right };

/// `line` lies inside `rect`; an invalid colour leaves out the fill or the line.
void roundRect(QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill, const QColor& line = {},
               qreal width = 1);
/// In the middle of `rect`, as wide as `size`.
void chevron(QPainter& painter, const QRectF& rect, Towards towards, qreal size, const QColor& colour);
/// A tick as large as `rect`.
void tick(QPainter& painter, const QRectF& rect, const QColor& colour);
/// The sign of a box that is neither on nor off.
void dash(QPainter& painter, const QRectF& rect, const QColor& colour);

}
