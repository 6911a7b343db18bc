#include "contents/frmTrackList.h"

#include "contents/frmTrackListOption.h"
#include "frame/Text.h"
#include "store/CdPlayerIni.h"
#include "store/Schema.h"
#include "store/TrackLists.h"
#include "ui/Lettering.h"

static const ListWords Words{
    .screen = u"frmTrackList"_s,
    .title = u"Треки"_s,
    .header = u"Треки Аудио диска"_s,
    .none = u"Списка треков нет.\nВставьте диск и нажмите «Создать»."_s,
    .deleteQuestion = u"Вы действительно хотите удалить информация о треках диска № %1?"_s,
    .recreateQuestion = u"Текущий список треков будет удален! Продолжить?"_s,
    .deleteRoutine = "cmdDeleteList"_L1,
    .createHint = u"Создать список треков диска"_s,
    .deleteHint = u"Удалить список треков диска"_s,
    .recreateHint = u"Удалить список треков диска и создать новый; диск должен быть в устройстве"_s,
    .closeHint = u"Закрыть список треков"_s,
};

static const QString MyGroup = u"MyGroup"_s;

frmTrackList::frmTrackList(Program& program, const ListRequest& request) : ListScreen(program, Audio(), Words, request)
{
    dbGrid->setColumns({{.field = u"Номер"_s, .caption = u"№"_s, .alignment = Qt::AlignRight, .width = 6},
                        {.field = u"Название"_s, .caption = u"Название"_s},
                        {.field = u"Комментарий"_s, .caption = u"Комментарий"_s, .width = 36}});
    dbGrid->setDataControl(dcDatabase);
    dbGrid->setAccessibleName(u"Треки"_s);
    dbGrid->setMinimumHeight(fontMetrics().height() * 12);
    txtTrackName->setMaxLength(FieldLength::TrackName);
    txtComment->setMaxLength(FieldLength::Comment);
    for (ImageButton* button : {cmdMakeChange, cmdMakeChangeComm}) button->setup(u"ok"_s, {}, u"Внести изменения"_s);
    imgSave->setup(u"save"_s, u"Со&хранить"_s, u"Сохранить названия в файле cdplayer.ini"_s, Qt::CTRL | Qt::Key_S);
    imgSave->setWhyDisabled(u"Списка ещё нет: его можно создать"_s);

    QLabel* nameCaption = label(u"&Название:"_s, txtTrackName);
    QLabel* commentCaption = label(u"Ко&мментарий:"_s, txtComment);
    setTag({nameCaption, txtTrackName, cmdMakeChange, commentCaption, txtComment, cmdMakeChangeComm}, MyGroup);
    QBoxLayout* edit = row(column(nameCaption, row(txtTrackName, cmdMakeChange)),
                           column(commentCaption, row(txtComment, cmdMakeChangeComm)));
    edit->setStretch(0, 3);
    edit->setStretch(1, 2);
    QLabel* artistCaption = lettered(label(Audio().nameHeading() + u':'), Lettering::Caption);
    QLabel* albumCaption = lettered(label(u"Альбом:"_s), Lettering::Caption);
    build({.about = row(artistCaption, lblName, albumCaption, lblAlbum),
           .list = dbGrid,
           .edit = edit,
           .state = row(lblTracks),
           .more = imgSave});
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 32);

    connect(dcDatabase, &DataControl::Reposition, this, &frmTrackList::dcDatabase_Reposition);
    connect(dbGrid, &DBGrid::typed, this, [this](const QString& character) {
        Routine("DBGrid_KeyPress"_L1, [&] { m_typeAhead.typed(*dcDatabase, character); });
    });
    connect(dbGrid, &DBGrid::rowDoubleClicked, this, &frmTrackList::editName);
    connect(cmdMakeChange, &QPushButton::clicked, this, &frmTrackList::cmdMakeChange_Click);
    connect(txtTrackName, &QLineEdit::returnPressed, this, &frmTrackList::cmdMakeChange_Click);
    connect(cmdMakeChangeComm, &QPushButton::clicked, this, &frmTrackList::cmdMakeChangeComm_Click);
    connect(txtComment, &QLineEdit::returnPressed, this, &frmTrackList::cmdMakeChangeComm_Click);
    connect(imgSave, &QPushButton::clicked, this, &frmTrackList::cmdSave);
}

void frmTrackList::Form_Load()
{
    lblAlbum->setText(request.album);
    ListScreen::Form_Load();
}

void frmTrackList::showPlace(const ListPlace& place) { dcDatabase->FindFirst(u"Название = ?"_s, {place.name}); }

/// Now that the window has its size.
void frmTrackList::Form_Activate() { dbGrid->scrollTo(dbGrid->currentIndex()); }

void frmTrackList::showNoList()
{
    dcDatabase->close();
    allowEditing(false);
}

void frmTrackList::showList()
{
    if (!TrackListIsReadable(program.tracksDatabase(), program.shared.CurrentDiscID)) {
        showNoList();
        return sayNoList(u"Список треков не читается.\nВставьте диск и нажмите «Пересоздать»."_s);
    }
    allowEditing(true);
    ViewTrackList();
}

/// Controls that need a list. Saving does, too.
void frmTrackList::allowEditing(bool allowed)
{
    setEnabledByTag(MyGroup, allowed);
    imgSave->setEnabled(allowed);
    if (allowed) return;
    txtTrackName->clear();
    txtComment->clear();
    lblTracks->clear();
}

void frmTrackList::ViewTrackList()
{
    Routine("ViewTrackList"_L1, [&] {
        dcDatabase->setDatabase(program.tracksDatabase());
        dcDatabase->setRecordSource(TrackListSource(program.shared.CurrentDiscID));
        dcDatabase->Refresh();
    });
}

void frmTrackList::dcDatabase_Reposition()
{
    Routine("dcDatabase_Reposition"_L1, [&] {
        sayNoList(dcDatabase->hasRow() ? QString() : u"В списке нет треков."_s);
        setEnabledByTag(MyGroup, dcDatabase->hasRow());
        lblTracks->setText(u"Треков: %1"_s.arg(dcDatabase->recordCount()));
        txtTrackName->setText(dcDatabase->value(u"Название").text());
        txtComment->setText(dcDatabase->value(u"Комментарий").text());
        for (QLineEdit* box : {txtTrackName, txtComment}) box->setCursorPosition(0);
    });
}

void frmTrackList::editName()
{
    txtTrackName->setFocus();
    txtTrackName->selectAll();
}

void frmTrackList::change(QLineEdit* box, const QString& field)
{
    const QString text = CleanText(box->text());
    box->setText(text);
    Recordset& row = dcDatabase->recordset();
    row.Edit();
    row[field] = text.isEmpty() ? Value() : Value(text);
    row.Update();
    // What is being typed in the other box stays there.
    QLineEdit* other = box == txtComment ? txtTrackName : txtComment;
    const QString typed = other->text();
    dcDatabase->RefreshInPlace();
    other->setText(typed);
}

void frmTrackList::cmdMakeChange_Click()
{
    if (!dcDatabase->hasRow()) return;
    Routine("cmdMakeChange_Click"_L1, [&] {
        change(txtTrackName, u"Название"_s);
        moveOn();
        editName();
    });
}

/// To the next name, and from the last one to the first.
void frmTrackList::moveOn()
{
    const int next = dcDatabase->position() + 1, count = dcDatabase->recordCount();
    const bool last = next == count || dcDatabase->value(u"Номер").toInt() == count;
    dcDatabase->MoveTo(last ? 0 : next);
}

void frmTrackList::cmdMakeChangeComm_Click()
{
    if (!dcDatabase->hasRow()) return;
    Routine("cmdMakeChangeComm_Click"_L1, [&] {
        change(txtComment, u"Комментарий"_s);
        MsgBox(u"Комментарий к треку '%1' успешно изменен."_s.arg(dcDatabase->value(u"Название").text()),
               Box::Information);
    });
}

void frmTrackList::openOptions() { frmTrackListOption(program, disc(), request).ShowModal(this); }

void frmTrackList::cmdSave()
{
    Routine("cmdSave"_L1, [&] {
        if (!Ask(u"Вы уверены, что хотите сохранить информацию о треках диска № %1 в файл 'cdplayer.ini'?"_s.arg(
                request.number)))
            return;
        const QString& id = program.shared.CurrentDiscID;
        const CdPlayerEntry entry{request.title, request.album, TrackNames(program.tracksDatabase(), id)};
        if (CdPlayerIni().write(id, entry))
            MsgBox(u"Данные диска № %1 успешно сохранены в файле 'cdplayer.ini'."_s.arg(request.number),
                   Box::Information);
        else
            MsgBox(CdPlayerIni::NotWritten);
    });
}

void ShowTrackList(Program& program, Form& opener, const ListRequest& request)
{
    frmTrackList(program, request).ShowModal(&opener);
}
