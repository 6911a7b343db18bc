// A disc of 100,000 files in 5,000 folders: into its list, and out of it into the browser.
//
//     bench_contents              with a disc made up in memory: what lists cost
//     bench_contents disc.iso     with an image: what reading it costs besides
//
// Targets, release build:
//     scan                       1500 ms, the window's longest pause 100 ms, peak memory 150 MB
//     browser opened              500 ms (tree, first list, volume)
//     folder of 20,000 files      500 ms

#include "contents/FileLists.h"
#include "contents/frmFileList.h"
#include "contents/frmFileListCreate.h"
#include "harness/FakeDrives.h"
#include "harness/Fakes.h"
#include "recognition/DiscIdentity.h"
#include "store/DatabaseSet.h"
#include "store/Reanimator.h"
#include "ui/QtDialogs.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/// 50 folders with 100 each; 16 files in every one of these 5,000 but for the first, which has 20,000.
std::shared_ptr<FakeDisc> madeUpDisc()
{
    auto disc = FakeDisc::data(u"BENCH"_s, 0xBE7C);
    for (int a = 0; a < 50; ++a)
        for (int b = 0; b < 100; ++b)
            for (int f = 0; f < (a == 0 && b == 0 ? 20000 : 16); ++f)
                disc->file(u"\\Folder %1\\Sub folder %2\\A file named %3.txt"_s.arg(a).arg(b).arg(f), 1000 * f);
    return disc;
}

/// Longest time for which the event loop did not turn.
class Pauses : public QObject {
public:
    Pauses()
    {
        m_since.start();
        m_timer = startTimer(0);
    }
    ~Pauses() override { killTimer(m_timer); }
    qint64 longest() const { return m_longest; }

private:
    void timerEvent(QTimerEvent*) override { m_longest = std::max(m_longest, m_since.restart()); }

    QElapsedTimer m_since;
    qint64 m_longest = 0;
    int m_timer = 0;
};

template<class Work> qint64 timed(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.elapsed();
}

void report(const char* what, QList<qint64> runs)
{
    std::sort(runs.begin(), runs.end());
    std::printf("%-32s %6lld ms\n", what, static_cast<long long>(runs[runs.size() / 2]));
}

QByteArray peakMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (status.open(QIODevice::ReadOnly))
        for (const QByteArray& line : status.readAll().split('\n'))
            if (line.startsWith("VmHWM:")) return line.mid(6).trimmed();
    return "?";
}

}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    const SystemClock clock;
    DBEngine engine(clock);
    FakeDesktop desktop;
    QtDialogs dialogs(engine, {});
    std::unique_ptr<Drives> drives;
    if (argc > 1) {
        drives = CreateSystemDrives();
        drives->virtualDrive().insert(QString::fromLocal8Bit(argv[1]));
    } else {
        auto fakes = std::make_unique<FakeDrives>();
        fakes->v.medium = madeUpDisc();
        drives = std::move(fakes);
    }
    std::printf("%-32s %s\n", "memory before", peakMemory().constData());

    Program program{.applicationFolder = folder.path(),
                    .version = u"1.0.0"_s,
                    .clock = clock,
                    .engine = engine,
                    .drives = *drives,
                    .dialogs = dialogs,
                    .desktop = desktop,
                    .endProcess = [](int code) { std::exit(code); }};
    UseDatabaseFolder(program, folder.path());
    Reanimator(program, 0);
    const Database files = program.filesDatabase(), main = program.mainDatabase();
    main.Execute(u"INSERT INTO Компьютер (Номер, Название, Дисков) VALUES (1, 'Bench', 1)");
    ListRequest request;
    request.key = main.Scalar(u"SELECT КодКомпьютерныйДиск FROM Компьютер").toLong();

    const QString drive = drives->virtualDrive().root();
    QString id = GetDiskID(program, drive);
    constexpr int Runs = 5;
    QList<qint64> scans, pauses, browsers, largest;
    for (int run = 0; run < Runs; ++run) {
        DeleteList(files, main, {request.key, 1}, id);
        CreateFileTable(files, main, id);
        program.shared.CurrentDiscID = id;
        CreateLinkDiskID(main, {request.key, 1}, id, false);
        const Pauses watched;
        scans += timed(
            [&] { frmFileListCreate(program, drives->virtualDrive(), drives->virtualDrive().disc(), {}).ShowModal(); });
        pauses += watched.longest();
    }
    std::printf("%-32s %s\n", "memory after", peakMemory().constData());
    std::printf("%-32s %6d\n", "rows", files.Scalar(u"SELECT COUNT(*) FROM [%1]"_s.arg(id)).toInt());
    report("scan", scans);
    report("longest pause of the window", pauses);

    const QString crowded =
        files.Scalar(u"SELECT Путь FROM [%1] GROUP BY Путь ORDER BY COUNT(*) DESC"_s.arg(id)).text();
    for (int run = 0; run < Runs; ++run) {
        frmFileList browser(program, request);
        browsers += timed([&] { browser.Load(); });
        FolderModel& tree = *static_cast<FolderModel*>(browser.trView->model());
        for (int node = 0; node < tree.nodes().size(); ++node)
            if (FolderPathOf(tree.nodes(), node) == crowded)
                largest += timed([&] { browser.trView->setCurrentIndex(tree.indexOf(node)); });
    }
    report("browser opened", browsers);
    report("largest folder", largest);
}
