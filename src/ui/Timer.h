#pragma once

#include <QObject>
#include <functional>

/// The timer of forms: it ticks in the event loop, or, in a test that has called `TestTimers::takeOver()`, when the test
/// says that time has passed.
class Timer : public QObject {
    Q_OBJECT
public:
    explicit Timer(QObject* parent = nullptr);
    ~Timer() override;

    /// Milliseconds, at least 1. Restarts a running timer.
    void setInterval(int milliseconds);
    int interval() const { return m_interval; }
    void setEnabled(bool enabled);
    bool enabled() const { return m_enabled; }

signals:
    void tick();

private:
    friend class TestTimers;
    void arm();
    void timerEvent(QTimerEvent* event) override;

    int m_interval = 1000;
    bool m_enabled = false;
    int m_id = 0;
    qint64 m_due = 0;       ///< in a test: the made-up time of the next tick
    bool m_ticking = false; ///< in a test
};

/// Time by hand. Between takeOver() and giveBack() no timer ticks by itself.
class TestTimers {
public:
    static void takeOver();
    static void giveBack();
    /// Lets time pass: every enabled timer ticks when it is due, in order of time.
    static void advance(int milliseconds);
};
