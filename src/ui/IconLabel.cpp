#include "ui/IconLabel.h"

#include "ui/Icons.h"

#include <QPainter>

IconLabel::IconLabel(QWidget* parent) : QWidget(parent) { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void IconLabel::setIcon(const QString& name, const QColor& accent)
{
    m_name = name;
    m_accent = accent;
    update();
}

void IconLabel::setScale(double heights)
{
    m_scale = heights;
    updateGeometry();
    update();
}

QSize IconLabel::sizeHint() const
{
    const int edge = qRound(fontMetrics().height() * m_scale);
    return {edge, edge};
}

void IconLabel::paintEvent(QPaintEvent*)
{
    if (m_name.isEmpty()) return;
    QPainter painter(this);
    icon(m_name, m_accent).paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}
