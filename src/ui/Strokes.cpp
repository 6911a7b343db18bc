#include "ui/Strokes.h"

#include <QPainter>

namespace {

class Drawing {
public:
    Drawing(QPainter& painter, const QColor& colour, qreal width) : m_painter(painter)
    {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    ~Drawing() { m_painter.restore(); }
    Q_DISABLE_COPY_MOVE(Drawing)

private:
    QPainter& m_painter;
};

}

void Strokes::roundRect(QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill, const QColor& line,
                        qreal width)
{
    Drawing drawing(painter, line, width);
    if (!line.isValid()) painter.setPen(Qt::NoPen);
    if (fill.isValid()) painter.setBrush(fill);
    const qreal inset = line.isValid() ? width / 2 : 0;
    const QRectF inside = rect.adjusted(inset, inset, -inset, -inset);
    const qreal corner = qMin(radius, qMin(rect.width(), rect.height()) / 2) - inset;
    painter.drawRoundedRect(inside, qMax(0.0, corner), qMax(0.0, corner));
}

void Strokes::chevron(QPainter& painter, const QRectF& rect, Towards towards, qreal size, const QColor& colour)
{
    Drawing drawing(painter, colour, qMax(1.3, size / 6.5));
    const qreal half = size / 2, deep = size / 4;
    painter.translate(rect.center());
    painter.rotate(towards == Towards::Up ? 180 : towards == Towards::Left ? 90 : towards == Towards::Right ? -90 : 0);
    const QPointF points[] = {{-half, -deep}, {0, deep}, {half, -deep}};
    painter.drawPolyline(points, 3);
}

void Strokes::tick(QPainter& painter, const QRectF& rect, const QColor& colour)
{
    Drawing drawing(painter, colour, qMax(1.6, rect.width() / 7));
    const auto at = [&](qreal x, qreal y) {
        return QPointF(rect.x() + rect.width() * x, rect.y() + rect.height() * y);
    };
    const QPointF points[] = {at(0.22, 0.53), at(0.42, 0.72), at(0.78, 0.3)};
    painter.drawPolyline(points, 3);
}

void Strokes::dash(QPainter& painter, const QRectF& rect, const QColor& colour)
{
    Drawing drawing(painter, colour, qMax(1.6, rect.width() / 7));
    const qreal y = rect.center().y(), part = rect.width() * 0.26;
    painter.drawLine(QPointF(rect.left() + part, y), QPointF(rect.right() - part, y));
}
