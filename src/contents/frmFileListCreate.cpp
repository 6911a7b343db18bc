#include "contents/frmFileListCreate.h"

#include "contents/FileLists.h"
#include "frame/Text.h"
#include "ui/Lettering.h"

#include <QScopedValueRollback>

static constexpr int TurnMilliseconds = 50;
static constexpr int ErrorsBetweenQuestions = 3;
static constexpr int DiscSteps = 1000;

frmFileListCreate::frmFileListCreate(Program& program, Drive& drive, std::shared_ptr<Disc> disc,
                                     const ScanOptions& options)
    : LongWork(program, u"frmFileListCreate"_s, u"Создание списка файлов"_s), drive(drive), disc(std::move(disc)),
      options(options)
{
    for (QProgressBar* bar : {prbFiles, prbDisc}) bar->setTextVisible(false);
    prbDisc->setMaximum(DiscSteps);
    cmdStop->setup(u"stop"_s, u"&Остановить"_s, u"Остановить сканирование (Esc); найденное останется в списке"_s);
    QLabel *folderCaption = label(u"Папка:"_s), *discCaption = label(u"Весь диск:"_s);
    lettered(lblCount, Lettering::Caption);
    setLayout(column(lblDir, lblFile, grid({{folderCaption, prbFiles}, {discCaption, prbDisc}}),
                     row(lblCount, stretch, cmdStop)));
    setMinimumWidth(fontMetrics().averageCharWidth() * 64);
    connect(cmdStop, &QPushButton::clicked, this, &Form::reject);
}

void frmFileListCreate::Work()
{
    Guarded("frmFileListCreate, CreateFileList()"_L1, [&] {
        const QScopedValueRollback<bool> pause(program.shared.DriveWatchPaused, true);
        const ScanRules taken = rules();
        FileListWriter list(program.filesDatabase(), program.shared.CurrentDiscID);
        CreateFileList(
            *disc, taken,
            [&](const FileRow& row) {
                list.add(row);
                ++(row.name == row.folder ? folders : files);
            },
            *this);
    });
}

void frmFileListCreate::stopping()
{
    cmdStop->setEnabled(false);
    lblCount->setText(u"Сканирование прерывается…"_s);
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
        const FilterTable table(program.filesDatabase(), options.wantedFiles);
        filter = FileFilter(table.FullArrayFileFiltr(), options.wantedFiles);
    });
    return filter;
}

/// The medium is about to be asked for the folder, which may take long.
bool frmFileListCreate::entering(const QString& folder)
{
    comeTo(folder, 0, {walked(), 0});
    return showAndTurn();
}

void frmFileListCreate::listing(const QString& folder, qsizetype count, const ScanProgress& at)
{
    comeTo(folder, int(count), at);
    stoppedBefore = !working();
}

void frmFileListCreate::comeTo(const QString& folder, int count, const ScanProgress& at)
{
    const bool root = folder.size() == 1;
    folderShown = (drive.root().left(2) + (root ? folder : folder.chopped(1))).toUpper();
    fileShown.clear();
    done = 0;
    toDo = count;
    progress = at;
}

double frmFileListCreate::walked() const { return progress.walked + progress.share * done / qMax(1, toDo); }

/// The files of the folders above are known already, so they still come, unless each would be a way of the drive's head.
bool frmFileListCreate::file(qsizetype index, const QString& name)
{
    fileShown = name.toLower();
    done = int(index) + 1;
    if (sinceShown.hasExpired(TurnMilliseconds)) showAndTurn();
    return working() || (stoppedBefore && !options.infoMP3);
}

void frmFileListCreate::readingError(const RuntimeError& error)
{
    // A scratch fails many times in one way: what the first time says is worth keeping.
    if (errors++ == 0) LogFaultIfPossible(program, "frmFileListCreate, CreateFileList()"_L1, error);
    MsgBox(u"Ошибка чтения диска! Некоторые файлы не будут добавлены в список."_s);
    if (!drive.volume().success) return stop();
    if (errors % ErrorsBetweenQuestions == 0 && !Ask(u"Диск читается с ошибками. Продолжить сканирование?"_s)) stop();
}

bool frmFileListCreate::showAndTurn()
{
    if (!sinceShown.isValid() || sinceShown.hasExpired(TurnMilliseconds)) {
        showProgress();
        sinceShown.start();
    }
    return turn();
}

void frmFileListCreate::showProgress()
{
    lblDir->setText(folderShown);
    lblFile->setText(fileShown);
    prbFiles->setMaximum(qMax(1, toDo));
    prbFiles->setValue(done);
    prbDisc->setValue(int(DiscSteps * walked()));
    if (!working()) return; // its line says that it is ending
    lblCount->setText(u"Папок: %1, файлов: %2"_s.arg(FormatNumber(folders, 0, true), FormatNumber(files, 0, true)));
}
