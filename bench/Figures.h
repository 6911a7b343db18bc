#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <functional>

/// How long repeated work took. A figure is the median of its repeats, printed in one line beside its target.
class Figure {
public:
    /// Does the work and takes its time.
    void take(const std::function<void()>& work);
    /// A time taken elsewhere, in milliseconds.
    void add(double milliseconds) { m_wall += milliseconds; }
    double median() const;

    /// "what   median ms   (target 150, slowest 21.3 of 5)". Where the processor's time is known it follows the median,
    /// and with `units` of work in each repeat its share of one. `target` in milliseconds, 0 for none.
    void print(const QString& what, double target = 0, int units = 1) const;

private:
    QList<double> m_wall, m_processor;
};

/// Does the work once for warmth, then `repeats` times, and prints.
void Measure(const QString& what, double target, int repeats, const std::function<void()>& work, int units = 1);

/// The most memory that the process had so far.
void PrintMemory(const QString& what, double targetMegabytes = 0);

/// Longest time for which the event loop did not turn, from its construction on.
class Pauses : public QObject {
public:
    Pauses();
    double longest() const { return m_longest; }

private:
    void timerEvent(QTimerEvent*) override;

    QElapsedTimer m_since;
    double m_longest = 0;
};
