#include "contents/frmFileListOption.h"

#include "contents/FileLists.h"
#include "contents/frmEditFilter.h"
#include "contents/frmFileListCreate.h"
#include "recognition/Refusals.h"

frmFileListOption::frmFileListOption(Program& program, DiscOfRow disc, int number)
    : ListOptionScreen(program, u"frmFileListOption"_s, disc, number)
{
    chFilesInCore->setText(u"Файлы в &корневом каталоге"_s);
    chScanDir->setText(u"К&аталоги и подкаталоги"_s);
    chScanDirOnly->setText(u"&Только имена каталогов"_s);
    chLCase->setText(u"Имена файлов в &нижнем регистре"_s);
    chHiddenFiles->setText(u"&Скрытые файлы"_s);
    chFiles->setText(u"Информация &mp3-файлов"_s);
    chFilter->setText(u"Применять &фильтр"_s);
    optFilter[0]->setText(u"н&енужных файлов"_s);
    optFilter[1]->setText(u"ну&жных файлов"_s);
    chShare->setText(u"&Добавить/Изменить привязку к текущему диску"_s);
    imgButton[0]->setup(u"scan"_s, u"Скани&ровать"_s, u"Создать список файлов диска"_s);
    imgButton[0]->setDefault(true);
    imgButton[1]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть без сканирования"_s);
    imgButton[2]->setup(u"filter"_s, u"&Изменить…"_s, u"Изменить фильтр файлов"_s);

    QBoxLayout* foldersOnly = row(chScanDirOnly, stretch);
    foldersOnly->setContentsMargins(fontMetrics().height() * 3 / 2, 0, 0, 0); // it belongs to the box above
    setLayout(column(driveRow(), group(u"Область сканирования"_s, column(chFilesInCore, chScanDir, foldersOnly)),
                     group(u"Файлы"_s, column(chLCase, chHiddenFiles, chFiles,
                                              row(chFilter, optFilter[0], optFilter[1], stretch, imgButton[2]))),
                     chShare, stretch, row(stretch, imgButton[0], imgButton[1])));

    for (QCheckBox* box : {chScanDir, chScanDirOnly, chFilter})
        connect(box, &QCheckBox::toggled, this, &frmFileListOption::enableOptions);
    connect(imgButton[0], &QPushButton::clicked, this, &frmFileListOption::cmdStartScan);
    connect(imgButton[1], &QPushButton::clicked, this, &Form::reject);
    connect(imgButton[2], &QPushButton::clicked, this, &frmFileListOption::cmdEditFilter);
}

void frmFileListOption::Form_Load()
{
    Guarded("frmFileListOption, Form_Load()"_L1, [&] {
        ScanOptions kept;
        ReadScanOptions(program.settings(), kept);
        showOptions(kept);
        loadDrives();
    });
}

void frmFileListOption::Form_Unload()
{
    Guarded("frmFileListOption, Form_Unload()"_L1, [&] {
        if (!WriteScanOptions(program.settings(), options()))
            MsgBox(u"Параметры не сохранены: файл '%1' недоступен для записи!"_s.arg(program.settings().path()));
    });
}

void frmFileListOption::cmdStartScan()
{
    Guarded("frmFileListOption, cmdStartScan()"_L1, [&] {
        if (!chFilesInCore->isChecked() && !chScanDir->isChecked()) {
            MsgBox(u"Выберите область сканирования диска!"_s);
            return;
        }
        if (!hasDrive()) return;
        const QString root = cmbDrive->currentText();
        const DiscInDrive inDrive = ReadDisc(program, root);
        if (inDrive.kind == Audio().kindWord) {
            MsgBox(u"В устройстве для чтения компакт дисков вставлен Аудио диск."_s);
            return;
        }
        if (inDrive.kind.isEmpty()) {
            MsgBox(Refusal::NoDisc);
            return;
        }
        if (inDrive.kind != Computer().kindWord) return; // of a DVD nothing is said
        if (!takeIdentifier(inDrive)) return;
        Drive* drive = program.drives.find(root);
        const std::shared_ptr<Disc> medium = drive ? MediumOf(*drive, inDrive.id) : nullptr;
        if (!medium) {
            MsgBox(Refusal::NoDisc);
            return;
        }
        if (CreateFileTable()) {
            frmFileListCreate(program, *drive, medium, options()).ShowModal(this);
            CreateLinkDiskID();
        }
        Unload();
    });
}

bool frmFileListOption::CreateFileTable()
{
    const auto ask = [&] {
        return Ask(
            u"Серийный номер этого диска совпадает с уже существующим серийным номером!\r\r"
            u"Возможные причины:\r\n"
            u"   1. Этот диск уже есть в базе данных\r\n"
            u"   2. Диск записан в режиме пакетно записи (UDF)\r\n"
            u"   3. Диск имеет одинаковый идентификатор с ранее добавленным диском (пиратская копия)\r\n\r\n"
            u"Не смотря на это, есть возможность произвести добавление списка файлов для этого диска. Продолжить?"_s,
            Box::Warning);
    };
    return ::CreateFileTable(program.filesDatabase(), program.mainDatabase(), program.shared.CurrentDiscID, ask);
}

void frmFileListOption::CreateLinkDiskID()
{
    Guarded("frmFileListOption, CreateLinkDiskID()"_L1, [&] {
        ::CreateLinkDiskID(program.mainDatabase(), disc, program.shared.CurrentDiscID, chShare->isChecked());
        listMade();
    });
}

void frmFileListOption::cmdEditFilter()
{
    Guarded("frmFileListOption, cmdEditFilter()"_L1, [&] {
        frmEditFilter editor(program);
        editor.Load();
        if (optFilter[1]->isChecked()) editor.optFilter[1]->setChecked(true);
        editor.ShowModal(this);
    });
}

ScanOptions frmFileListOption::options() const
{
    return {.filesInCore = chFilesInCore->isChecked(),
            .scanDir = chScanDir->isChecked(),
            .scanDirOnly = chScanDirOnly->isChecked(),
            .lCase = chLCase->isChecked(),
            .hiddenFiles = chHiddenFiles->isChecked(),
            .infoMP3 = chFiles->isChecked(),
            .filter = chFilter->isChecked(),
            .wantedFiles = optFilter[1]->isChecked(),
            .share = chShare->isChecked()};
}

void frmFileListOption::showOptions(const ScanOptions& shown)
{
    chFilesInCore->setChecked(shown.filesInCore);
    chScanDir->setChecked(shown.scanDir);
    chScanDirOnly->setChecked(shown.scanDirOnly);
    chLCase->setChecked(shown.lCase);
    chHiddenFiles->setChecked(shown.hiddenFiles);
    chFiles->setChecked(shown.infoMP3);
    chFilter->setChecked(shown.filter);
    optFilter[shown.wantedFiles ? 1 : 0]->setChecked(true);
    chShare->setChecked(shown.share);
    enableOptions();
}

void frmFileListOption::enableOptions()
{
    const ScanOptions now = options();
    chScanDirOnly->setEnabled(now.scanDirOnlyEnabled());
    chFilter->setEnabled(now.filterEnabled());
    for (QRadioButton* choice : optFilter) choice->setEnabled(now.filterChoiceEnabled());
}
