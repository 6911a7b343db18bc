#include "contents/frmFileListCreate.h"

#include "contents/FileLists.h"
#include "frame/Text.h"
#include "ui/Theme.h"

#include <QCoreApplication>

namespace {

/// Nobody else may touch the drive until the end of the block.
class DriveWatchPause {
public:
    explicit DriveWatchPause(Shared& shared) : m_shared(shared), m_before(shared.DriveWatchPaused)
    {
        shared.DriveWatchPaused = true;
    }
    ~DriveWatchPause() { m_shared.DriveWatchPaused = m_before; }
    DriveWatchPause(const DriveWatchPause&) = delete;
    DriveWatchPause& operator=(const DriveWatchPause&) = delete;

private:
    Shared& m_shared;
    bool m_before;
};

constexpr int TurnMilliseconds = 50;

}

frmFileListCreate::frmFileListCreate(Program& program, const QString& drive, const ScanOptions& options)
    : Screen(program, u"frmFileListCreate"_s, u"Создание списка файлов"_s), drive(drive), options(options)
{
    prbFiles->setTextVisible(false);
    QLabel* hint = label(u"Esc прерывает сканирование; найденное останется в списке"_s);
    for (QLabel* small : {lblCount, hint}) small->setFont(Theme::caption(font()));
    setLayout(column(lblDir, lblFile, prbFiles, lblCount, hint));
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
}

void frmFileListCreate::Form_Activate()
{
    CreateFileList();
    Unload();
}

bool frmFileListCreate::Form_QueryUnload()
{
    if (!scanning) return true;
    scanning = false;
    lblCount->setText(u"Сканирование прерывается…"_s);
    return false;
}

void frmFileListCreate::CreateFileList()
{
    Guarded("frmFileListCreate, CreateFileList()"_L1, [&] {
        const DriveWatchPause pause(program.shared);
        const ScanRules taken = rules();
        Drive* device = program.drives.find(drive);
        const std::shared_ptr<Disc> disc = device ? device->disc() : nullptr;
        if (!disc) return readingError(DiscError(u"Диск вынут из устройства %1."_s.arg(drive)));
        FileListWriter list(program.filesDatabase(), program.shared.CurrentDiscID);
        scanning = true;
        ::CreateFileList(
            *disc, taken, [&](const FileRow& row) { list.add(row); }, *this);
        scanning = false;
    });
}

ScanRules frmFileListCreate::rules()
{
    ScanRules rules{.rootFiles = options.filesInCore,
                    .folders = options.scanDir,
                    .foldersOnly = options.scanDirOnly && options.scanDirOnlyEnabled(),
                    .hiddenFiles = options.hiddenFiles,
                    .lowerCase = options.lCase,
                    .tags = options.infoMP3};
    if (options.filterChoiceEnabled()) rules.filter = FullArrayFileFiltr();
    return rules;
}

FileFilter frmFileListCreate::FullArrayFileFiltr()
{
    FileFilter filter({}, options.wantedFiles);
    Guarded("frmFileListCreate, FullArrayFileFiltr()"_L1, [&] {
        const QString table = FilterTableName(options.wantedFiles);
        filter = FileFilter(::FullArrayFileFiltr(program.filesDatabase(), table), options.wantedFiles);
    });
    return filter;
}

bool frmFileListCreate::entering(const QString&)
{
    turn();
    return scanning;
}

void frmFileListCreate::listing(const QString& folder, qsizetype count)
{
    const bool root = folder.size() == 1;
    folderShown = (drive.left(2) + (root ? folder : folder.chopped(1))).toUpper();
    done = 0;
    toDo = int(count);
    ++folders;
}

void frmFileListCreate::file(qsizetype index, const QString& name)
{
    fileShown = name.toLower();
    done = int(index) + 1;
    ++files;
    if (sinceShown.hasExpired(TurnMilliseconds)) turn();
}

void frmFileListCreate::readingError(const RuntimeError&)
{
    MsgBox(u"Ошибка чтения диска! Некоторые файлы не будут добавлены в список."_s);
}

void frmFileListCreate::turn()
{
    if (!sinceShown.isValid() || sinceShown.hasExpired(TurnMilliseconds)) {
        showProgress();
        sinceShown.start();
    }
    QCoreApplication::processEvents();
    program.engine.Yield();
}

void frmFileListCreate::showProgress()
{
    lblDir->setText(folderShown);
    lblFile->setText(fileShown);
    prbFiles->setMaximum(qMax(1, toDo));
    prbFiles->setValue(done);
    if (!scanning) return; // its line says that it is ending
    lblCount->setText(u"Папок: %1, файлов: %2"_s.arg(FormatNumber(folders, 0, true), FormatNumber(files, 0, true)));
}
