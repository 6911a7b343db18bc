// From the start of the process to the main window painted, with three databases in place. The figure includes loading
// the libraries; the splash screen is on view before. It runs the whole program as children of its own, in a folder of
// its own, offscreen unless QT_QPA_PLATFORM names another display.

#include "Figures.h"
#include "mainwindow/Application.h"
#include "mainwindow/frmMain.h"

#include <QEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

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
        std::_Exit(EXIT_SUCCESS);
    }

private:
    qint64 m_begin;
};

/// Milliseconds of one start.
double startOnce(const QString& program)
{
    QProcess child;
    child.start(program, {u"--child"_s, QString::number(now())});
    const bool ended = child.waitForFinished(20000);
    bool painted = false;
    const double microseconds = child.readAllStandardOutput().trimmed().toDouble(&painted);
    if (!ended || !painted) {
        std::fprintf(stderr, "the program did not paint its window: %s\n%s", qPrintable(child.errorString()),
                     child.readAllStandardError().constData());
        std::exit(EXIT_FAILURE);
    }
    return microseconds / 1000;
}

}

int main(int argc, char** argv)
{
    if (argc > 2 && QByteArrayView(argv[1]) == "--child") {
        FirstPaint first(QByteArray(argv[2]).toLongLong());
        return RunVinora(argc, argv, [&](frmMain& window) { window.installEventFilter(&first); });
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir folder;
    const QString program = folder.filePath(u"vinora"_s);
    if (!QFile::copy(QString::fromLocal8Bit(argv[0]), program)) {
        std::fprintf(stderr, "no copy of this program could be made in %s\n", qPrintable(folder.path()));
        return EXIT_FAILURE;
    }

    Figure first, warm;
    first.add(startOnce(program));
    for (int i = 0; i < 3; ++i) startOnce(program);
    for (int i = 0; i < 21; ++i) warm.add(startOnce(program));
    first.print(u"first start, databases created"_s);
    warm.print(u"start to the window painted"_s, 150);
}
