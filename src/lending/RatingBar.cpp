#include "lending/RatingBar.h"

#include "lending/Rating.h"
#include "ui/Theme.h"

#include <QLinearGradient>
#include <QPainter>

namespace {
/// Good is green, orange begins to be bad, and from the middle on it is as red as it gets.
constexpr double Bad = 0.25, Terrible = 0.6;

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
    const QColor ground = palette().color(QPalette::Window), ink = palette().color(QPalette::WindowText);
    const auto way = [&](double share) {
        return QRectF(left - thick / 2, (height() - thick) / 2, length * share + thick, thick);
    };
    painter.setBrush(Theme::mix(ground, ink, 0.12));
    painter.drawRoundedRect(way(1), thick / 2, thick / 2);
    if (!isEnabled()) return;

    const double share = double(value() - minimum()) / (maximum() - minimum());
    QLinearGradient colours(left, 0, left + length, 0);
    for (const double place : {0.0, Bad, Terrible, 1.0}) colours.setColorAt(place, colourAt(place, palette()));
    painter.setBrush(colours);
    painter.drawRoundedRect(way(share), thick / 2, thick / 2);

    const double rim = side * 0.16;
    painter.setPen(QPen(colourAt(share, palette()), rim));
    painter.setBrush(palette().color(QPalette::Base));
    const double radius = (side - rim) / 2;
    painter.drawEllipse(QPointF(left + length * share, height() / 2.0), radius, radius);
}
