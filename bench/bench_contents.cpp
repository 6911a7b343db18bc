// A disc of 100,000 files in 5,000 folders: into its list, and out of it into the browser.
//
//     bench_contents              with a disc made up in memory: what lists cost
//     bench_contents disc.iso     with an image: what reading it costs besides

#include "Bench.h"
#include "contents/FileLists.h"
#include "contents/frmFileList.h"
#include "contents/frmFileListCreate.h"
#include "recognition/DiscIdentity.h"

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

    QString id = GetDiskID(program, drive.root());
    constexpr int Runs = 5;
    Figure scans, pauses, browsers, largest;
    for (int run = 0; run < Runs; ++run) {
        DeleteList(files, main, Computer(), {request.key, 1}, id);
        CreateFileTable(files, main, id);
        program.shared.CurrentDiscID = id;
        CreateLinkDiskID(main, {request.key, 1}, id, false);
        const Pauses watched;
        scans.take([&] { frmFileListCreate(program, drive, drive.disc(), {}).ShowModal(); });
        pauses.add(watched.longest());
    }
    PrintMemory(u"memory after"_s, 150);
    const int rows = files.Scalar(u"SELECT COUNT(*) FROM [%1]"_s.arg(id)).toInt();
    scans.print(u"scan of %1 files and folders"_s.arg(rows), 1500);
    pauses.print(u"the window's longest pause in it"_s, 100);

    const QString crowded =
        files.Scalar(u"SELECT Путь FROM [%1] GROUP BY Путь ORDER BY COUNT(*) DESC"_s.arg(id)).text();
    for (int run = 0; run < Runs; ++run) {
        frmFileList browser(program, request);
        browsers.take([&] { browser.Load(); });
        FolderModel& tree = *static_cast<FolderModel*>(browser.trView->model());
        for (int node = 0; node < tree.nodes().size(); ++node)
            if (FolderPathOf(tree.nodes(), node) == crowded)
                largest.take([&] { browser.trView->setCurrentIndex(tree.indexOf(node)); });
    }
    browsers.print(u"browser opened: tree, first list, volume"_s, 500);
    largest.print(u"its largest folder"_s, 500);
}
