#include "ui/Card.h"

#include "ui/Strokes.h"
#include "ui/Theme.h"

#include <QPainter>

Card::Card(QWidget* parent) : QWidget(parent) {}

void Card::setAccent(int index)
{
    m_accent = index;
    update();
}

void Card::paintEvent(QPaintEvent*)
{
    constexpr qreal Edge = 3;
    const qreal radius = fontMetrics().height() * 0.55;
    const QRectF sheet = rect();
    QPainter painter(this);
    Strokes::roundRect(painter, sheet, radius, Theme::card(palette()), Theme::hairline(palette()));
    if (!m_accent) return;
    painter.setClipRect(QRectF(sheet.left(), sheet.top(), sheet.width(), Edge));
    Strokes::roundRect(painter, sheet, radius, Theme::accent(*m_accent, palette()));
}
