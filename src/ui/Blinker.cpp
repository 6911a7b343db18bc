#include "ui/Blinker.h"

Blinker::Blinker(QList<QWidget*> widgets, QObject* parent)
    : QObject(parent), m_widgets(widgets.begin(), widgets.end()), m_timer(this)
{
    for (QWidget* widget : widgets) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
    }
    connect(&m_timer, &Timer::tick, this, [this] { show(!m_visible); });
    show(false);
}

void Blinker::setInterval(int milliseconds)
{
    m_interval = milliseconds;
    setOn(m_on);
}

void Blinker::setOn(bool on)
{
    m_on = on;
    m_timer.setEnabled(false);
    show(on);
    if (!on || m_interval <= 1) return;
    m_timer.setInterval(m_interval);
    m_timer.setEnabled(true);
}

void Blinker::show(bool visible)
{
    m_visible = visible;
    for (const QPointer<QWidget>& widget : m_widgets)
        if (widget) widget->setVisible(visible);
}
