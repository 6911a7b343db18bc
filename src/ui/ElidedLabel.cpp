#include "ui/ElidedLabel.h"

#include <QHelpEvent>
#include <QStyle>
#include <QStylePainter>
#include <QToolTip>
#include <algorithm>

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const
{
    const QSize whole = QLabel::sizeHint();
    return {std::min(whole.width(), fontMetrics().averageCharWidth() * 40), whole.height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 8, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    const QString fitting = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
    painter.drawItemText(contentsRect(), int(alignment()), palette(), isEnabled(), fitting, foregroundRole());
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    const bool cut = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? text() : QString(), this);
    return true;
}
