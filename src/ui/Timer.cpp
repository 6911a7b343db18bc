#include "ui/Timer.h"

#include <QList>
#include <QPointer>
#include <QTimerEvent>
#include <algorithm>

namespace {
struct HandDriven {
    bool taken = false;
    qint64 now = 0;
    QList<Timer*> enabled; ///< in order of being armed
};
HandDriven& time()
{
    static HandDriven time;
    return time;
}
}

Timer::Timer(QObject* parent) : QObject(parent) {}

Timer::~Timer() { time().enabled.removeOne(this); }

void Timer::setInterval(int milliseconds)
{
    m_interval = std::max(1, milliseconds);
    if (m_enabled) arm();
}

void Timer::setEnabled(bool enabled)
{
    if (m_enabled == enabled) return;
    m_enabled = enabled;
    arm();
}

void Timer::arm()
{
    if (m_id) killTimer(m_id);
    m_id = 0;
    time().enabled.removeOne(this);
    if (!m_enabled) return;
    time().enabled.append(this);
    m_due = time().now + m_interval;
    if (!time().taken) m_id = startTimer(m_interval, m_interval < 100 ? Qt::PreciseTimer : Qt::CoarseTimer);
}

void Timer::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_id) emit tick();
}

void TestTimers::takeOver()
{
    time().taken = true;
    for (Timer* timer : QList(time().enabled)) timer->arm();
}

void TestTimers::giveBack()
{
    time().taken = false;
    for (Timer* timer : QList(time().enabled)) timer->arm();
}

void TestTimers::advance(int milliseconds)
{
    const qint64 end = time().now + milliseconds;
    while (true) {
        const auto& enabled = time().enabled;
        const auto next = std::min_element(enabled.begin(), enabled.end(),
                                           [](Timer* a, Timer* b) { return a->m_due < b->m_due; });
        if (next == enabled.end() || (*next)->m_due > end) break;
        const QPointer<Timer> timer = *next;
        time().now = std::max(time().now, timer->m_due);
        timer->m_due += timer->m_interval;
        // As with the event loop's timers, a tick that still runs, under a box it opened, is not entered again.
        if (timer->m_ticking) continue;
        timer->m_ticking = true;
        emit timer->tick();
        if (timer) timer->m_ticking = false;
    }
    time().now = std::max(time().now, end);
}
