#include "Figures.h"

#include "platform/Literals.h"

#include <QFile>
#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

double middle(QList<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

}

void Figure::take(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    const std::clock_t begin = std::clock();
    work();
    m_processor += 1000.0 * double(std::clock() - begin) / CLOCKS_PER_SEC;
    m_wall += double(timer.nsecsElapsed()) / 1e6;
}

double Figure::median() const { return middle(m_wall); }

void Figure::print(const QString& what, double target, int units) const
{
    std::printf("%-52s %9.2f ms", qPrintable(what), median());
    if (target > 0) std::printf("  target %g%s", target, median() > target ? ", MISSED" : "");
    std::printf("  (slowest of %d: %.2f", int(m_wall.size()), *std::ranges::max_element(m_wall));
    if (m_processor.size() == m_wall.size()) {
        const double used = middle(m_processor);
        std::printf("; processor %.2f", used);
        if (units > 1) std::printf(", %.2f us each", used * 1000 / units);
    }
    std::printf(")\n");
    std::fflush(stdout);
}

void Measure(const QString& what, double target, int repeats, const std::function<void()>& work, int units)
{
    work();
    Figure figure;
    for (int i = 0; i < repeats; ++i) figure.take(work);
    figure.print(what, target, units);
}

void PrintMemory(const QString& what, double targetMegabytes)
{
    QFile status(u"/proc/self/status"_s);
    double megabytes = 0;
    if (status.open(QIODevice::ReadOnly))
        for (const QByteArray& line : status.readAll().split('\n'))
            if (line.startsWith("VmHWM:")) megabytes = line.simplified().split(' ').value(1).toDouble() / 1024;
    std::printf("%-52s %9.1f MB", qPrintable(what), megabytes);
    if (targetMegabytes > 0)
        std::printf("  target %g%s", targetMegabytes, megabytes > targetMegabytes ? ", MISSED" : "");
    std::printf("\n");
}

Pauses::Pauses()
{
    m_since.start();
    startTimer(0);
}

void Pauses::timerEvent(QTimerEvent*)
{
    m_longest = std::max(m_longest, double(m_since.nsecsElapsed()) / 1e6);
    m_since.restart();
}
