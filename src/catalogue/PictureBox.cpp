#include "catalogue/PictureBox.h"

#include "catalogue/Covers.h"
#include "frame/Fault.h"

#include <QPainter>

PictureBox::PictureBox(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(80, 80);
}

void PictureBox::setPath(const QString& path)
{
    m_path = path;
    m_readFor = {};
    update();
}

void PictureBox::paintEvent(QPaintEvent*)
{
    if (m_path.isEmpty()) return;
    const QSize physical = size() * devicePixelRatioF();
    if (m_readFor != physical) {
        const Hourglass hourglass;
        m_picture = LoadCover(m_path, physical);
        m_readFor = physical;
    }
    if (m_picture.isNull()) return;
    const QSizeF shown = QSizeF(m_picture.size()) / devicePixelRatioF();
    const QPointF corner((width() - shown.width()) / 2, (height() - shown.height()) / 2);
    QPainter(this).drawPixmap(QRectF(corner, shown), m_picture, QRectF(m_picture.rect()));
}
