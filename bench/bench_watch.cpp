// One second of the main window with a disc in the drive that it knows already: the whole tick of the watch, with the
// image's file, the settings and the system's list of devices looked at, and nothing changed. It runs as long as the
// program does. And the one tick that finds a disc which has just come in among all that a catalogue can hold.

#include "Bench.h"
#include "mainwindow/frmMain.h"
#include "recognition/DiscImages.h"

#include <QFile>
#include <cstdlib>

/// Ten seconds of silence in one track.
static QString audioImage(const Bench& bench)
{
    QFile sound(bench.path(u"disc.bin"_s)), sheet(bench.path(u"disc.cue"_s));
    if (!sound.open(QIODevice::WriteOnly) || !sound.resize(10 * 75 * 2352) || !sheet.open(QIODevice::WriteOnly))
        return {};
    sheet.write("FILE \"disc.bin\" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n");
    return sheet.fileName();
}

static void lookUp(Program& program)
{
    FillShelf(program, Audio());
    program.mainDatabase().Execute(u"UPDATE Аудио SET ДискID6_d = ? WHERE Номер = ?",
                                   {GetDiskID(program, u"V:\\"_s), FullShelf});
    DriveWatch watch(program);
    const DriveSign& sign = watch.signs().catalogues[CatalogueIndex(Audio())];
    Measure(u"tick of the watch that finds the last of 32,767 discs"_s, 50, 25, [&] {
        watch.reset();
        watch.tick();
        if (!sign.numbered) std::fprintf(stderr, "the disc is not found\n");
    });
}

int main(int argc, char** argv)
{
    Bench bench(argc, argv, CreateSystemDrives());
    InsertImage(bench.program, audioImage(bench));

    frmMain window(bench.program);
    window.Load();
    window.show();
    auto* watch = window.findChild<Timer*>(u"tmrCheckCD"_s);
    const auto tick = [watch] {
        emit watch->tick();
        QCoreApplication::processEvents();
    };
    for (int i = 0; i < 50; ++i) tick();
    watch->setEnabled(false);
    auto* sign = window.findChild<QLabel*>(u"lblDriveMedium"_s);
    if (!sign || !sign->text().contains(u"Audio CD")) {
        std::fprintf(stderr, "the disc is not seen\n");
        return EXIT_FAILURE;
    }
    Measure(u"tick of the watch, idle drive"_s, 1, 1001, tick);
    lookUp(bench.program);
}
