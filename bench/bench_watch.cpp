// One second of the main window with a disc in the drive that it knows already: the whole tick of the watch, with the
// image's file, the settings and the system's list of devices looked at, and nothing changed.
//
// Target: under 1 ms, since it runs as long as the program does.
#include "mainwindow/frmMain.h"
#include "platform/XdgDesktop.h"
#include "recognition/DiscImages.h"
#include "store/DatabaseSet.h"
#include "store/StartUp.h"
#include "ui/QtDialogs.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

namespace {

constexpr int WarmUps = 50, Repeats = 1001;

/// Ten seconds of silence in one track.
QString audioImage(const QString& folder)
{
    QFile sound(folder + u"/disc.bin"_s);
    QFile sheet(folder + u"/disc.cue"_s);
    if (!sound.open(QIODevice::WriteOnly) || !sound.resize(10 * 75 * 2352) || !sheet.open(QIODevice::WriteOnly))
        return {};
    sheet.write("FILE \"disc.bin\" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n");
    return sheet.fileName();
}

}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Theme::apply(application, u"light"_s);
    QTemporaryDir folder;
    const SystemClock clock;
    DBEngine engine(clock);
    const std::unique_ptr<Drives> drives = CreateSystemDrives();
    QtDialogs dialogs(engine, {.lastFolder = {}, .keepLastFolder = {}});
    XdgDesktop desktop;
    Program program{.applicationFolder = folder.path(),
                    .version = u"1.0.0"_s,
                    .clock = clock,
                    .engine = engine,
                    .drives = *drives,
                    .dialogs = dialogs,
                    .desktop = desktop,
                    .endProcess = [](int code) { std::_Exit(code); }};
    SetFilePaths(program);
    PrepareDatabases(program);
    InsertImage(program, audioImage(folder.path()));

    frmMain window(program);
    window.Load();
    window.show();
    auto* watch = window.findChild<Timer*>(u"tmrCheckCD"_s);
    for (int i = 0; i < WarmUps; ++i) {
        emit watch->tick();
        QCoreApplication::processEvents();
    }
    watch->setEnabled(false);
    auto* sign = window.findChild<QLabel*>(u"lblDriveMedium"_s);
    if (!sign || !sign->text().contains(u"Audio CD")) {
        std::fprintf(stderr, "the disc is not seen\n");
        return 1;
    }

    QList<double> times;
    for (int i = 0; i < Repeats; ++i) {
        QElapsedTimer timer;
        timer.start();
        emit watch->tick();
        QCoreApplication::processEvents();
        times += double(timer.nsecsElapsed()) / 1e6;
    }
    std::ranges::sort(times);
    std::printf("tick of the watch, idle drive: %8.3f ms   (target 1; slowest of %d: %.3f)\n", times[Repeats / 2],
                Repeats, times.back());
    return 0;
}
