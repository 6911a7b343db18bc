#include "lending/RatingBar.h"

#include "lending/Rating.h"
#include "ui/Theme.h"

#include <QLinearGradient>
#include <QPainter>

namespace {
/// The colours go by the words: good is green, what is called bad orange, what is called terrible red.
constexpr double Bad = 13.0 / LargestRating, Terrible = 35.0 / LargestRating;

QColor colourAt(double share, const QPalette& palette)
{
    const QColor green = Theme::accent(1, palette), orange = Theme::accent(2, palette), red = Theme::danger(palette);
    if (share < Bad) return Theme::mix(green, orange, share / Bad);
    return share < Terrible ? Theme::mix(orange, red, (share - Bad) / (Terrible - Bad)) : red;
}
}

RatingBar::RatingBar(QWidget* parent) : QProgressBar(parent)
{
    setRange(0, LargestRating);
    setValue(0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize RatingBar::sizeHint() const
{
    const int line = fontMetrics().height();
    return {line * 8, qRound(line * 1.1)};
}

void RatingBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double side = height() - 1, thick = side * 0.4, left = 0.5 + side / 2, length = width() - 1 - side;
    const QPalette& shades = palette();
    const auto way = [&](double share) {
        return QRectF(left - thick / 2, (height() - thick) / 2, length * share + thick, thick);
    };
    const auto draw = [&](const QRectF& part, const QBrush& brush) {
        painter.setBrush(brush);
        painter.drawRoundedRect(part, thick / 2, thick / 2);
    };
    if (!isEnabled()) return draw(way(1), Theme::mix(Theme::card(shades), shades.color(QPalette::WindowText), 0.15));

    QLinearGradient ahead(left, 0, left + length, 0), gone(left, 0, left + length, 0);
    for (const double place : {0.0, Bad, Terrible, 1.0}) {
        const QColor colour = colourAt(place, shades);
        gone.setColorAt(place, colour);
        ahead.setColorAt(place, Theme::mix(Theme::card(shades), colour, 0.3));
    }
    const double share = double(value() - minimum()) / (maximum() - minimum());
    draw(way(1), ahead);
    draw(way(share), gone);

    const double rim = side * 0.2;
    painter.setPen(QPen(colourAt(share, shades), rim));
    painter.setBrush(shades.color(QPalette::Base));
    const double radius = (side - rim) / 2;
    painter.drawEllipse(QPointF(left + length * share, height() / 2.0), radius, radius);
}
