#include "ui/LinkButton.h"

#include "ui/Strokes.h"
#include "ui/Theme.h"

#include <QKeyEvent>
#include <QPainter>

LinkButton::LinkButton(QWidget* parent) : QAbstractButton(parent)
{
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void LinkButton::setColour(const QColor& colour)
{
    m_colour = colour;
    update();
}

QSize LinkButton::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * inset(fontMetrics()), fontMetrics().height() * 5 / 4};
}

void LinkButton::paintEvent(QPaintEvent*)
{
    const QColor colour = m_colour.isValid() ? m_colour : palette().color(QPalette::Link);
    QPainter painter(this);
    if (hasFocus()) Strokes::roundRect(painter, rect(), fontMetrics().height() * 0.3, {}, colour, 2);
    QFont face = font();
    face.setUnderline(isEnabled() && underMouse());
    painter.setFont(face);
    painter.setPen(isEnabled() ? colour : Theme::subdued(palette()));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

void LinkButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}
