#include "ui/IconLabel.h"

#include "ui/Icons.h"

#include <QPainter>

IconLabel::IconLabel(QWidget* parent) : QWidget(parent) { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void IconLabel::setIcon(const QString& name, const QColor& accent)
{
    if (name == m_name && accent == m_accent) return;
    m_name = name;
    m_accent = accent;
    update();
}

void IconLabel::setAccent(int index)
{
    m_catalogue = index;
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
    const QIcon picture = m_catalogue ? catalogueIcon(m_name, *m_catalogue) : icon(m_name, m_accent);
    picture.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}
