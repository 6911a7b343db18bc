#include "ui/Notice.h"

#include "ui/Theme.h"

#include <QPainter>

Notice::Notice(QWidget* parent) : QWidget(parent)
{
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
}

void Notice::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor danger = Theme::danger(palette());
    painter.setPen(Theme::mix(Theme::card(palette()), danger, 0.5));
    painter.setBrush(Theme::mix(Theme::card(palette()), danger, 0.12)); // its own colour is read on it
    const double radius = fontMetrics().height() * 0.4;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}
