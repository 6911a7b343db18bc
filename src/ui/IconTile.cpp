#include "ui/IconTile.h"

#include "ui/Icons.h"
#include "ui/Strokes.h"
#include "ui/Theme.h"

#include <QKeyEvent>
#include <QPainter>

IconTile::IconTile(QWidget* parent) : QAbstractButton(parent)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] { emit menuWanted(mapToGlobal(QPoint(0, height()))); });
}

void IconTile::setup(const QString& iconName, int accent, const QString& hint)
{
    m_accent = accent;
    setIcon(catalogueIcon(iconName, accent));
    setToolTip(hint);
    setAccessibleName(hint);
}

QSize IconTile::sizeHint() const
{
    const int side = fontMetrics().height() * 11 / 4;
    return QSize(side, side);
}

void IconTile::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) emit menuWanted(event->globalPosition().toPoint());
}

void IconTile::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}

void IconTile::paintEvent(QPaintEvent*)
{
    const QColor accent = Theme::accent(m_accent, palette());
    const qreal radius = fontMetrics().height() * 0.6;
    const QColor ground = isEnabled() ? Theme::tint(accent, palette())
                                      : Theme::mix(Theme::card(palette()), Theme::subdued(palette()), 0.12);
    const bool lit = isEnabled() && (underMouse() || isDown());

    QPainter painter(this);
    Strokes::roundRect(painter, rect(), radius, lit ? Theme::mix(ground, accent, isDown() ? 0.3 : 0.16) : ground,
                       hasFocus() ? accent : QColor(), 2);
    const int inset = height() / 5;
    icon().paint(&painter, rect().adjusted(inset, inset, -inset, -inset), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
}
