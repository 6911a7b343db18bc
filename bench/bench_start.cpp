// From the start of the process to the main window painted, with three databases in place.
//
// Target: under 150 ms, warm. The figure includes loading the libraries; the splash screen is on view before.
// It runs the whole program as children of its own, in a folder of its own; QT_QPA_PLATFORM chooses the display.
#include "mainwindow/Application.h"
#include "mainwindow/frmMain.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int WarmUps = 3, Repeats = 21;

qint64 now() { return std::chrono::steady_clock::now().time_since_epoch().count(); }

/// Tells when a window has painted for the first time, and ends the process.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(qint64 begin) : m_begin(begin) {}
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint) return false;
        watched->removeEventFilter(this);
        watched->event(event);
        std::printf("%lld\n", static_cast<long long>((now() - m_begin) / 1000));
        std::fflush(stdout);
        std::_Exit(0);
    }

private:
    qint64 m_begin;
};

/// Microseconds of one start, or -1.
double startOnce(const QString& program)
{
    QProcess child;
    child.start(program, {u"--child"_s, QString::number(now())});
    if (!child.waitForFinished(20000)) return -1;
    return child.readAllStandardOutput().trimmed().toDouble();
}

}

int main(int argc, char** argv)
{
    if (argc > 2 && QByteArrayView(argv[1]) == "--child") {
        FirstPaint first(QByteArray(argv[2]).toLongLong());
        return RunVinora(argc, argv, [&](frmMain& window) { window.installEventFilter(&first); });
    }
    QTemporaryDir folder;
    const QString program = folder.filePath(u"vinora"_s);
    if (!QFile::copy(QString::fromLocal8Bit(argv[0]), program)) return 1;

    std::printf("first start, databases created: %6.0f ms\n", startOnce(program) / 1000);
    for (int i = 0; i < WarmUps; ++i) startOnce(program);
    QList<double> times;
    for (int i = 0; i < Repeats; ++i) times += startOnce(program) / 1000;
    std::ranges::sort(times);
    std::printf("start to the window painted:    %6.0f ms   (fastest %.0f, slowest %.0f of %d)\n", times[Repeats / 2],
                times.front(), times.back(), Repeats);
    return 0;
}
