#include "contents/frmFileList.h"

#include "contents/FileImages.h"
#include "contents/ListVolume.h"
#include "contents/OpenDiscFile.h"
#include "contents/frmFileListOption.h"
#include "dao/DBEngine.h"
#include "frame/Settings.h"
#include "frame/Text.h"
#include "recognition/DiscIdentity.h"
#include "store/Schema.h"
#include "ui/Icons.h"

#include <QShortcut>
#include <algorithm>
#include <array>

static const ListWords Words{
    .screen = u"frmFileList"_s,
    .title = u"Файлы"_s,
    .header = u"Список файлов Компьютерного диска"_s,
    .none = u"Списка файлов нет.\nВставьте диск и нажмите «Создать»."_s,
    .deleteQuestion = u"Вы действительно хотите удалить информация о структуре %2-го диска № %1?"_s,
    .recreateQuestion = u"Текущий список файлов будет удален! Продолжить?"_s,
    .deleteRoutine = "DeleteList"_L1,
    .createHint = u"Создать список файлов диска"_s,
    .deleteHint = u"Удалить список файлов диска"_s,
    .recreateHint = u"Удалить список файлов диска и создать новый; диск должен быть в устройстве"_s,
    .closeHint = u"Закрыть список файлов"_s,
};

frmFileList::frmFileList(Program& program, const ListRequest& request) : ListScreen(program, Computer(), Words, request)
{
    txtNoFiles->setText(u"В этой папке нет файлов"_s);
    txtNoFiles->setAlignment(Qt::AlignCenter);
    txtNoFiles->setEnabled(false);
    trView->setModel(&tree);
    trView->setMinimumHeight(fontMetrics().height() * 12);
    trView->setAccessibleName(u"Папки"_s);
    lvFiles->setColumns({{u"Файлов: 0"_s}, {u"Размер (Кб)"_s, 14, Qt::AlignRight}});
    lvFiles->setSortable(true);
    lvFiles->sortBy(0, Qt::AscendingOrder);
    lvFiles->setAccessibleName(u"Файлы"_s);
    cmdMakeChangeDir->setup(u"ok"_s, {}, u"Внести изменения"_s);
    cmdMakeChangeFile->setup(u"ok"_s, {}, u"Внести изменения"_s);
    QLabel* volumeCaption = label(u"Объем файлов в списке:"_s);
    QWidget* folders = panel(
        column(trView, commentRow(u"Комментарий к п&апке:"_s, txtCommentDir, cmdMakeChangeDir, u"CommentDir"_s)));
    QWidget* contents = panel(column(stack(lvFiles, txtNoFiles), commentRow(u"Комментарий к &файлу:"_s, txtCommentFile,
                                                                            cmdMakeChangeFile, u"CommentFile"_s)));
    for (QWidget* side : {folders, contents}) {
        side->layout()->setContentsMargins(0, 0, 0, 0);
        picSlider->addWidget(side);
    }
    picSlider->setChildrenCollapsible(false);
    picSlider->setStretchFactor(0, 2);
    picSlider->setStretchFactor(1, 3);
    for (const auto& [keys, step] : {std::pair{Qt::ALT | Qt::Key_Left, -1}, std::pair{Qt::ALT | Qt::Key_Right, 1}})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, step = step] { moveDivider(step); });
    build({.about = row(lblName), .list = picSlider, .state = row(volumeCaption, lblCDSpace[0])});
    resize(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 34);

    connect(trView->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmFileList::trView_NodeClick);
    connect(lvFiles, &ListView::currentRowChanged, this, &frmFileList::lvFiles_ItemClick);
    connect(lvFiles, &ListView::rowActivated, this, &frmFileList::lvFiles_DblClick);
    connect(cmdMakeChangeDir, &QPushButton::clicked, this, &frmFileList::cmdMakeChangeDir_Click);
    connect(txtCommentDir, &QLineEdit::returnPressed, this, &frmFileList::cmdMakeChangeDir_Click);
    connect(cmdMakeChangeFile, &QPushButton::clicked, this, &frmFileList::cmdMakeChangeFile_Click);
    connect(txtCommentFile, &QLineEdit::returnPressed, this, &frmFileList::cmdMakeChangeFile_Click);
}

QLayout* frmFileList::commentRow(const QString& caption, QLineEdit* box, ImageButton* button, const QString& tag)
{
    box->setMaxLength(FieldLength::Comment);
    QLabel* text = label(caption, box);
    setTag({text, box, button}, tag);
    return column(text, row(box, button));
}

void frmFileList::moveDivider(int step)
{
    QList<int> widths = picSlider->sizes();
    const int distance = step * fontMetrics().averageCharWidth() * 4;
    picSlider->setSizes({widths[0] + distance, widths[1] - distance});
}

void frmFileList::showNoList()
{
    txtCommentDir->clear();
    txtCommentFile->clear();
    setEnabledByTag(u"CommentDir", false);
    setEnabledByTag(u"CommentFile", false);
    lblCDSpace[0]->setText(u"~0 Мб"_s);
}

void frmFileList::showPlace(const ListPlace& place)
{
    const int node = tree.find(place.folder);
    if (node < 0) return;
    trView->setCurrentIndex(tree.indexOf(node));
    const int file = place.name.isEmpty() ? -1 : lvFiles->find(place.name);
    if (file < 0) return;
    lvFiles->setCurrentRow(file);
    lvFiles->setBold(file, true);
    lvFiles->setFocus();
}

/// Now that the window has its size.
void frmFileList::Form_Activate()
{
    trView->scrollTo(trView->currentIndex());
    lvFiles->scrollTo(lvFiles->currentIndex());
}

/// The list is not there, is no list of ours, or holds paths that make no tree. Anything else is the file's or the disk's
/// trouble, in which nobody shall be sent to drop the list.
static bool isOfTheList(int number)
{
    using namespace DaoErrorNumber;
    constexpr std::array numbers{TableNotFound, NoSuchParameter, MalformedStatement, NoTreeOfPath};
    return std::ranges::find(numbers, number) != numbers.end();
}

/// Long paths have no blanks to break lines at.
static QString breakable(QString text) { return text.replace(u'\\', u"\\\u200B"_s); }

bool frmFileList::BuildTree()
{
    tree.setNodes({});
    try {
        QList<FolderNode> nodes = BuildFolderTree(FolderPaths(program.filesDatabase(), program.shared.CurrentDiscID));
        if (nodes.isEmpty()) nodes.append({u"Файлов нет!"_s, -1, false});
        tree.setNodes(nodes);
    } catch (const RuntimeError& error) {
        if (!isOfTheList(error.number())) throw;
        LogFaultIfPossible(program, "frmFileList, BuildTree()"_L1, error);
        const bool noTree = error.number() == NoTreeOfPath;
        sayNoList(u"Список файлов нельзя показать.\n%1\n\n%2"_s.arg(
                      breakable(error.description()),
                      noTree ? u"Повторное сканирование этого не изменит. Файлы списка находит поиск."_s
                             : u"Вставьте диск и нажмите «Пересоздать»."_s),
                  noTree ? imgButton[0] : imgButton[3]);
        showNoList();
        MsgBox(u"ВНИМАНИЕ!\r\rПроизошла ошибка при создании списка файлов! Необходимо повторно произвести сканирование "
               u"диска."_s);
        return false;
    }
    sayNoList({});
    setEnabledByTag(u"CommentDir", true);
    return true;
}

void frmFileList::showList()
{
    if (!BuildTree()) return;
    trView->setCurrentIndex(tree.indexOf(0));
    ShowListVolume();
}

void frmFileList::trView_NodeClick()
{
    if (!trView->currentIndex().isValid()) return;
    Guarded("frmFileList, trView_NodeClick()"_L1, [&] {
        const Hourglass hourglass;
        txtCommentFile->clear();
        FillFileList(folder());
    });
}

void frmFileList::FillFileList(const QString& path)
{
    static const QList<QIcon> icons = [] {
        QList<QIcon> all;
        for (int image = 1; image <= 12; ++image) all += icon(FileImageIcon(image));
        return all;
    }();
    const FolderContents contents = ReadFolder(program.filesDatabase(), program.shared.CurrentDiscID, path);
    txtCommentDir->setText(contents.comment);
    QList<ListView::Row> rows;
    rows.reserve(contents.files.size());
    for (const FileRow& file : contents.files)
        rows.append({.texts = {file.name, file.size}, .icon = icons[FileImage(file.name) - 1], .data = file.comment});
    lvFiles->setRows(rows);
    lvFiles->setCaption(0, u"Файлов: %1"_s.arg(rows.size()));
    lvFiles->setVisible(!rows.isEmpty());
    txtNoFiles->setVisible(rows.isEmpty());
    setEnabledByTag(u"CommentFile", !rows.isEmpty());
    if (!rows.isEmpty()) lvFiles->setCurrentRow(0);
}

QString frmFileList::fileName() const { return lvFiles->text(lvFiles->currentRow()); }

void frmFileList::lvFiles_ItemClick()
{
    if (!fileName().isEmpty()) txtCommentFile->setText(lvFiles->row(lvFiles->currentRow()).data.toString());
}

void frmFileList::cmdMakeChangeDir_Click()
{
    Guarded("frmFileList, cmdMakeChangeDir_Click()"_L1, [&] {
        const QString node = tree.data(trView->currentIndex(), Qt::DisplayRole).toString();
        changeComment(txtCommentDir, folder(), u"папке '%1'"_s.arg(node));
    });
}

void frmFileList::cmdMakeChangeFile_Click()
{
    Guarded("frmFileList, cmdMakeChangeFile_Click()"_L1, [&] {
        if (changeComment(txtCommentFile, fileName(), u"файлу '%1'"_s.arg(fileName())))
            lvFiles->setData(lvFiles->currentRow(), txtCommentFile->text());
    });
}

bool frmFileList::changeComment(QLineEdit* box, const QString& name, const QString& what)
{
    box->setText(CleanText(box->text()));
    if (!SetFileComment(program.filesDatabase(), program.shared.CurrentDiscID, folder(), name, box->text())) {
        MsgBox(u"Необходимо пересоздать структуру диска!"_s);
        txtCommentDir->clear(); // also when a file's comment was meant
        return false;
    }
    MsgBox(u"Комментарий к %1 успешно изменен."_s.arg(what), Box::Information);
    return true;
}

void frmFileList::ShowListVolume()
{
    lblCDSpace[0]->setText(ListVolume(program.filesDatabase(), program.shared.CurrentDiscID));
}

void frmFileList::lvFiles_DblClick()
{
    if (fileName().isEmpty()) return;
    Guarded("frmFileList, lvFiles_DblClick()"_L1, [&] {
        const Hourglass hourglass;
        const QString root = DefaultDrive(program).left(3);
        const QString& id = program.shared.CurrentDiscID;
        const DiscInDrive inDrive = ReadDisc(program, root);
        Drive* drive = program.drives.find(root);
        const bool sought = drive && inDrive.kind == Computer().kindWord && inDrive.id == id;
        if (const std::shared_ptr<Disc> medium = sought ? MediumOf(*drive, id) : nullptr)
            OpenDiscFile(program, {medium, id, drive->mountPoint()}, folder(), fileName());
        else
            MsgBox(u"Вставьте диск № %1 в устройство для чтения компакт-дисков и повторите операцию."_s.arg(
                request.number));
    });
}

void frmFileList::openOptions() { frmFileListOption(program, disc(), request.number).ShowModal(this); }

void ShowFileList(Program& program, Form& opener, const ListRequest& request)
{
    frmFileList(program, request).ShowModal(&opener);
}
