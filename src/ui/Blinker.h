#pragma once

#include "ui/Timer.h"

#include <QList>
#include <QPointer>
#include <QWidget>

/// A sign that blinks: its widgets show and hide together at each tick. An interval of 1 or 0 means a steady sign, which
/// costs no ticks. The widgets keep their place in the layout while hidden.
class Blinker : public QObject {
public:
    Blinker(QList<QWidget*> widgets, QObject* parent);

    /// Milliseconds between showing and hiding; 0 or 1 steady.
    void setInterval(int milliseconds);
    int interval() const { return m_interval; }
    /// On: shown at once, then blinking. Off: hidden.
    void setOn(bool on);
    bool on() const { return m_on; }

private:
    void show(bool visible);

    QList<QPointer<QWidget>> m_widgets;
    Timer m_timer;
    int m_interval = 500;
    bool m_on = false;
    bool m_visible = false;
};
