// A disc of 100,000 files in 5,000 folders: into its list, without a filter and with each of the two full ones, and out of
// it into the browser. Beside them other programs that are to be had: isoinfo and xorriso list the image, sqlite3 the list.
//
//     bench_contents              with a disc made up in memory: what lists cost
//     bench_contents disc.iso     with an image, of files .txt: what reading it costs besides

#include "Bench.h"
#include "contents/FileFilter.h"
#include "contents/FileLists.h"
#include "contents/frmFileList.h"
#include "contents/frmFileListCreate.h"
#include "recognition/DiscIdentity.h"

#include <QProcess>
#include <QStandardPaths>

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

std::unique_ptr<Drives> drivesWith(const QString& image)
{
    if (!image.isEmpty()) {
        auto drives = CreateSystemDrives();
        drives->virtualDrive().insert(image);
        return drives;
    }
    auto drives = std::make_unique<FakeDrives>();
    drives->v.medium = madeUpDisc();
    return drives;
}

/// Both filters with as many entries as they hold. All files pass: of none to be left out there is one on the disc, and the
/// last of those to be taken is what all of them end in. So each name is looked through for every entry.
void fillFilters(const Database& files)
{
    for (const bool wanted : {false, true}) {
        const FilterTable table(files, wanted);
        for (const FilterTable::Entry& seed : table.entries()) table.remove(seed.text);
        for (int i = 1; i < MaximumFilterEntries; ++i)
            table.add(i % 5 ? u".%1"_s.arg(i * 7919 % 46656, 3, 36, QLatin1Char('0')) : u"copy of %1"_s.arg(i));
        table.add(wanted ? u".TXT"_s : u".tmp"_s);
    }
}

/// Another program at the same work; it prints into nothing.
class OtherProgram {
public:
    OtherProgram(const QString& name, const QStringList& arguments)
        : m_path(QStandardPaths::findExecutable(name)), m_arguments(arguments)
    {}
    void run()
    {
        if (m_path.isEmpty()) return;
        m_figure.take([&] {
            QProcess process;
            process.setStandardOutputFile(QProcess::nullDevice());
            process.setStandardErrorFile(QProcess::nullDevice());
            process.start(m_path, m_arguments);
            process.waitForFinished(-1);
            if (process.exitCode() != 0) m_failed = true;
        });
    }
    void print(const QString& what) const
    {
        if (m_path.isEmpty() || m_failed)
            std::printf("%s: %s\n", qPrintable(what), m_failed ? "it failed" : "not installed");
        else
            m_figure.print(what);
    }

private:
    QString m_path;
    QStringList m_arguments;
    Figure m_figure;
    bool m_failed = false;
};

}

int main(int argc, char** argv)
{
    Bench bench(argc, argv, drivesWith(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString()));
    Program& program = bench.program;
    VirtualDrive& drive = program.drives.virtualDrive();
    PrintMemory(u"memory before"_s);

    const Database files = program.filesDatabase(), main = program.mainDatabase();
    FillShelf(program, Computer(), 1);
    ListRequest request;
    request.key = main.Scalar(u"SELECT КодКомпьютерныйДиск FROM Компьютер").toLong();

    const QString image = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    OtherProgram isoinfo(u"isoinfo"_s, {u"-l"_s, u"-J"_s, u"-i"_s, image});
    OtherProgram xorriso(u"xorriso"_s, {u"-indev"_s, image, u"-find"_s, u"/"_s, u"-exec"_s, u"lsdl"_s});

    QString id = GetDiskID(program, drive.root());
    constexpr int Runs = 5;
    Figure plain, unwanted, wanted, pauses;
    int rows = 0;
    const auto scan = [&](Figure& figure, const ScanOptions& options) {
        DeleteList(files, main, Computer(), {request.key, 1}, id);
        CreateFileTable(files, main, id);
        program.shared.CurrentDiscID = id;
        CreateLinkDiskID(main, {request.key, 1}, id, false);
        const Pauses watched;
        figure.take([&] { frmFileListCreate(program, drive, drive.disc(), options).ShowModal(); });
        pauses.add(watched.longest());
        const int taken = files.Scalar(u"SELECT COUNT(*) FROM [%1]"_s.arg(id)).toInt();
        if (std::exchange(rows, taken) != taken) std::printf("%d rows in the list\n", taken);
    };
    fillFilters(files);
    for (int run = 0; run < Runs; ++run) {
        scan(plain, {});
        scan(unwanted, {.filter = true});
        scan(wanted, {.filter = true, .wantedFiles = true});
        if (image.isEmpty()) continue;
        isoinfo.run();
        xorriso.run();
    }
    PrintMemory(u"memory after"_s, 150);
    plain.print(u"scan of %1 files and folders"_s.arg(rows), 1500);
    unwanted.print(u"with 50 names to be left out"_s, 1.2 * plain.median());
    wanted.print(u"with 50 names to be taken"_s, 1.2 * plain.median());
    pauses.print(u"the window's longest pause in them"_s, 100);
    if (!image.isEmpty()) {
        isoinfo.print(u"isoinfo -l -J, which only lists the image"_s);
        xorriso.print(u"xorriso -find / -exec lsdl, which only lists it"_s);
    }

    const QString crowded =
        files.Scalar(u"SELECT Путь FROM [%1] GROUP BY Путь ORDER BY COUNT(*) DESC"_s.arg(id)).text();
    OtherProgram sqlite(u"sqlite3"_s, {program.shared.FilesDBPath, u"SELECT * FROM [%1]"_s.arg(id)});
    Figure browsers, largest;
    for (int run = 0; run < Runs; ++run) {
        sqlite.run();
        frmFileList browser(program, request);
        browsers.take([&] { browser.Load(); });
        FolderModel& tree = *static_cast<FolderModel*>(browser.trView->model());
        for (int node = 0; node < tree.nodes().size(); ++node)
            if (FolderPathOf(tree.nodes(), node) == crowded)
                largest.take([&] { browser.trView->setCurrentIndex(tree.indexOf(node)); });
    }
    browsers.print(u"browser opened: tree, first list, volume"_s, 500);
    sqlite.print(u"sqlite3 \"SELECT * FROM [list]\""_s);
    largest.print(u"its largest folder"_s, 500);
}
