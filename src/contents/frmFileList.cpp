#include "contents/frmFileList.h"

#include "contents/FileImages.h"
#include "contents/ListVolume.h"
#include "contents/OpenDiscFile.h"
#include "contents/frmFileListOption.h"
#include "frame/Settings.h"
#include "frame/Text.h"
#include "recognition/DiscIdentity.h"
#include "store/DiscTables.h"
#include "store/Schema.h"
#include "ui/Icons.h"
#include "ui/Lettering.h"

#include <QShortcut>
#include <algorithm>

frmFileList::frmFileList(Program& program, const ListRequest& request)
    : Screen(program, u"frmFileList"_s, u"Файлы"_s), request(request)
{
    setMaximizable();
    lblHeader->setText(u"Список файлов Компьютерного диска"_s);
    lettered(lblHeader, Lettering::Heading);
    txtNoFiles->setText(u"В этой папке нет файлов"_s);
    for (QLabel* empty : {txtNoFiles, lblNoFiles}) {
        empty->setAlignment(Qt::AlignCenter);
        empty->setEnabled(false);
    }
    trView->setHeaderHidden(true);
    trView->setUniformRowHeights(true);
    trView->setModel(&tree);
    trView->setMinimumHeight(fontMetrics().height() * 12);
    trView->setAccessibleName(u"Папки"_s);
    lvFiles->setColumns({{u"Файлов: 0"_s}, {u"Размер (Кб)"_s, 14, Qt::AlignRight}});
    lvFiles->setSortable(true);
    lvFiles->sortBy(0, Qt::AscendingOrder);
    lvFiles->setAccessibleName(u"Файлы"_s);
    cmdMakeChangeDir->setup(u"ok"_s, {}, u"Внести изменения"_s);
    cmdMakeChangeFile->setup(u"ok"_s, {}, u"Внести изменения"_s);
    imgButton[0]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть список файлов"_s);
    imgButton[1]->setup(u"scan"_s, u"&Создать…"_s, u"Создать список файлов диска"_s);
    imgButton[2]->setup(u"delete"_s, u"&Удалить"_s, u"Удалить список файлов диска"_s);
    imgButton[3]->setup(u"refresh"_s, u"&Пересоздать…"_s, u"Удалить список файлов диска и создать новый"_s);

    imgButton[1]->setWhyDisabled(u"Список уже есть: его можно пересоздать"_s);
    for (const std::size_t onList : {2, 3}) imgButton[onList]->setWhyDisabled(u"Списка ещё нет: его можно создать"_s);

    QLabel* numberCaption = label(u"Диск №"_s);
    QLabel* discCaption = label(u"C&D:"_s, cmbCountCD);
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
    QBoxLayout* page = column(
        row(lblHeader, stretch, discCaption, cmbCountCD), row(numberCaption, lblNumber, lblName),
        stack(picSlider, lblNoFiles),
        row(volumeCaption, lblCDSpace[0], stretch, imgButton[1], imgButton[2], imgButton[3], imgButton[0]));
    page->setStretch(2, 1);
    setLayout(page);
    resize(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 34);

    connect(cmbCountCD, &QComboBox::currentIndexChanged, this, &frmFileList::cmbCountCD_Click);
    connect(trView->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmFileList::trView_NodeClick);
    connect(lvFiles, &ListView::currentRowChanged, this, &frmFileList::lvFiles_ItemClick);
    connect(lvFiles, &ListView::rowActivated, this, &frmFileList::lvFiles_DblClick);
    connect(cmdMakeChangeDir, &QPushButton::clicked, this, &frmFileList::cmdMakeChangeDir_Click);
    connect(txtCommentDir, &QLineEdit::returnPressed, this, &frmFileList::cmdMakeChangeDir_Click);
    connect(cmdMakeChangeFile, &QPushButton::clicked, this, &frmFileList::cmdMakeChangeFile_Click);
    connect(txtCommentFile, &QLineEdit::returnPressed, this, &frmFileList::cmdMakeChangeFile_Click);
    connect(imgButton[0], &QPushButton::clicked, this, &Form::reject);
    connect(imgButton[1], &QPushButton::clicked, this, &frmFileList::cmdCreate);
    connect(imgButton[2], &QPushButton::clicked, this, &frmFileList::DeleteListAsk);
    connect(imgButton[3], &QPushButton::clicked, this, &frmFileList::RecreateListAsk);
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

void frmFileList::Form_Load()
{
    Guarded("frmFileList, Form_Load()"_L1, [&] {
        program.shared.DiscIDSlots = ListsOfDisc(program.mainDatabase(), Computer(), request.key);
        program.shared.CurrentDiscID = program.shared.DiscIDSlots[0];
        lblNumber->setText(QString::number(request.number));
        lblName->setText(request.title);
        {
            const QSignalBlocker quiet(cmbCountCD);
            for (int k = 1; k <= std::clamp(request.discs, 1, 6); ++k) cmbCountCD->addItem(QString::number(k));
            cmbCountCD->setEnabled(cmbCountCD->count() > 1);
            cmbCountCD->setCurrentIndex(std::clamp(request.disc, 1, cmbCountCD->count()) - 1);
        }
        cmbCountCD_Click();
        focusList();
        if (request.place) showPlace(*request.place);
    });
}

/// Now that the window has its size.
void frmFileList::Form_Activate()
{
    trView->scrollTo(trView->currentIndex());
    lvFiles->scrollTo(lvFiles->currentIndex());
}

void frmFileList::showPlace(const ListPlace& place)
{
    const int node = tree.find(place.folder);
    if (trView->isHidden() || node < 0) return;
    trView->setCurrentIndex(tree.indexOf(node));
    const int file = place.name.isEmpty() ? -1 : lvFiles->find(place.name);
    if (file < 0) return;
    lvFiles->setCurrentRow(file);
    lvFiles->setBold(file, true);
    lvFiles->setFocus();
}

/// What the user wants first: the list, or what makes one.
void frmFileList::focusList()
{
    QWidget* none = imgButton[imgButton[1]->isEnabled() ? 1 : 3];
    (trView->isHidden() ? none : trView)->setFocus();
}

void frmFileList::cmbCountCD_Click()
{
    Guarded("frmFileList, cmbCountCD_Click()"_L1, [&] {
        const Hourglass hourglass;
        program.shared.CurrentDiscID = slot();
        const bool listed = !program.shared.CurrentDiscID.isEmpty();
        imgButton[1]->setEnabled(!listed);
        imgButton[2]->setEnabled(listed);
        imgButton[3]->setEnabled(listed);
        if (listed) {
            if (BuildTree()) showList();
            return;
        }
        showTree(false);
        lblNoFiles->setText(u"Списка файлов нет.\nВставьте диск и нажмите «Создать»."_s);
        txtCommentDir->clear();
        txtCommentFile->clear();
        setEnabledByTag(u"CommentDir", false);
        setEnabledByTag(u"CommentFile", false);
        lblCDSpace[0]->setText(u"~0 Мб"_s);
    });
}

bool frmFileList::BuildTree()
{
    tree.setNodes({});
    try {
        QList<FolderNode> nodes = BuildFolderTree(FolderPaths(program.filesDatabase(), program.shared.CurrentDiscID));
        if (nodes.isEmpty()) nodes.append({u"Файлов нет!"_s, -1, false});
        tree.setNodes(nodes);
    } catch (const RuntimeError&) {
        setEnabledByTag(u"CommentDir", false);
        setEnabledByTag(u"CommentFile", false);
        showTree(false);
        lblNoFiles->setText(u"Список файлов не читается.\nВставьте диск и нажмите «Пересоздать»."_s);
        MsgBox(u"ВНИМАНИЕ!\r\rПроизошла ошибка при создании списка файлов! Необходимо повторно произвести сканирование "
               u"диска."_s);
        return false;
    }
    showTree(true);
    setEnabledByTag(u"CommentDir", true);
    return true;
}

void frmFileList::showTree(bool shown)
{
    for (QWidget* part : std::initializer_list<QWidget*>{picSlider, trView, lvFiles}) part->setVisible(shown);
    txtNoFiles->hide();
    lblNoFiles->setVisible(!shown);
}

void frmFileList::showList()
{
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
        const DiscInDrive inDrive = ReadDisc(program, root);
        Drive* drive = program.drives.find(root);
        if (drive && inDrive.kind == Computer().kindWord && inDrive.id == program.shared.CurrentDiscID)
            OpenDiscFile(program, *drive, inDrive.id, folder(), fileName());
        else
            MsgBox(u"Вставьте диск № %1 в устройство для чтения компакт-дисков и повторите операцию."_s.arg(
                request.number));
    });
}

void frmFileList::cmdCreate()
{
    Guarded("frmFileList, cmdCreate()"_L1, [&] {
        frmFileListOption(program, disc(), request.number).ShowModal(this);
        if (!std::exchange(program.shared.DialogDone, false)) return;
        cmbCountCD_Click();
        focusList();
    });
}

void frmFileList::DeleteListAsk()
{
    if (!Ask(u"Вы действительно хотите удалить информация о структуре %1-го диска № %2?"_s.arg(discNumber())
                 .arg(request.number),
             Box::Question | Box::SafeDefault))
        return;
    DeleteList();
    cmbCountCD_Click();
    focusList();
}

void frmFileList::RecreateListAsk()
{
    if (!Ask(u"Текущий список файлов будет удален! Продолжить?"_s, Box::Warning)) return;
    DeleteList();
    cmbCountCD_Click();
    cmdCreate();
}

void frmFileList::DeleteList()
{
    Guarded("frmFileList, DeleteList()"_L1, [&] {
        ::DeleteList(program.filesDatabase(), program.mainDatabase(), disc(), program.shared.CurrentDiscID);
        slot().clear();
    });
}

void ShowFileList(Program& program, Form& opener, const ListRequest& request)
{
    frmFileList(program, request).ShowModal(&opener);
}
