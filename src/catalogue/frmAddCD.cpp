#include "catalogue/frmAddCD.h"

#include "catalogue/Catalogues.h"
#include "catalogue/Numbering.h"
#include "catalogue/frmAddInCatalogue.h"
#include "frame/Settings.h"
#include "frame/Text.h"
#include "recognition/BoundDisc.h"
#include "recognition/DiscIdentity.h"
#include "ui/IconLabel.h"
#include "ui/Theme.h"

static const auto NoDrive = u"---"_s;

frmAddCD::frmAddCD(Program& program, const CatalogueKind& kind)
    : CatalogueScreen(program, kind, u"frmAddCD"_s, u"Добавление диска"_s)
{
    lblCDsCount0->setText(kind.addCaption);
    lblCDsCount0->setFont(Theme::heading(font()));
    chAutoDetect->setText(u"Определять этот диск, когда он вставлен в дисковод"_s);
    txtNumber->setMaxLength(5);
    DigitKeys(txtNumber);
    auto* picture = new IconLabel;
    picture->setIcon(kind.icon);
    picture->setAccent(kind.accent);
    picture->setScale(2);

    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Перейти к вводу сведений о диске"_s);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть, не добавляя диск"_s);
    imgButton[2]->setup(u"search"_s, u"&Поиск"_s, u"Искать свободный номер"_s);
    imgButton[0]->setDefault(true);
    connect(imgButton[0], &ImageButton::clicked, this, [this] { cmdOK(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { Unload(); });
    connect(imgButton[2], &ImageButton::clicked, this, [this] { cmdSearch(); });
    connect(cmbDrive, &QComboBox::activated, this, [this] { UpdateDriveInfo(); });

    setLayout(column(row(picture, lblCDsCount0, stretch),
                     grid({{label(u"&Номер диска:"_s, txtNumber), row(txtNumber, imgButton[2], stretch)},
                           {label(u"&Устройство:"_s, cmbDrive), row(cmbDrive, lblInserCD, stretch)}}),
                     chAutoDetect, audioSources(), stretch, row(stretch, imgButton[0], imgButton[1])));
}

/// Where the titles of an audio disc come from. The other catalogues have no such choice.
QWidget* frmAddCD::audioSources()
{
    chQuery[0]->setText(u"сервер CDDB"_s);
    chQuery[1]->setText(u"файл cdplayer.ini"_s);
    chTrackSave->setText(u"Сохранить в cdplayer.ini"_s);
    cmbServer->setAccessibleName(u"Сервер CDDB"_s);
    QWidget* sources = group(u"Получить информацию о диске"_s,
                             column(row(chQuery[0], cmbServer), chTrackSave, chQuery[1]));
    setTag({sources}, u"MyGroup"_s);
    for (QWidget* control : std::initializer_list<QWidget*>{chQuery[0], chQuery[1], chTrackSave, cmbServer})
        control->setEnabled(false);
    return sources;
}

void frmAddCD::Form_Load()
{
    Routine("Form_Load"_L1, [&] {
        setVisibleByTag(u"MyGroup", kind.lists == DiscLists::Tracks);
        for (const QChar letter : GetCDDrives(program)) cmbDrive->addItem(letter + u":\\"_s);
        if (cmbDrive->count() == 0) {
            cmbDrive->addItem(NoDrive);
            cmbDrive->setEnabled(false);
            MsgBox(u"Устройство для чтения компакт-дисков не найдено!"_s);
            return;
        }
        cmbDrive->setCurrentIndex(qMax(0, cmbDrive->findText(DefaultDrive(program).trimmed())));
    });
}

void frmAddCD::Form_Activate()
{
    Routine("Form_Activate"_L1, [&] {
        txtNumber->setText(QString::number(FirstFreeNumber(program.mainDatabase(), kind)));
        UpdateDriveInfo();
        txtNumber->setFocus();
        txtNumber->selectAll();
        if (!CheckCDID()) return;
        if (Ask(u"Вы пытаетесь добавить диск, который уже есть в каталоге! Продолжить?"_s))
            refuseDetection();
        else
            Unload();
    });
}

bool frmAddCD::hasDrive() const { return cmbDrive->currentText() != NoDrive; }

void frmAddCD::refuseDetection()
{
    chAutoDetect->setChecked(false);
    chAutoDetect->setEnabled(false);
}

/// The binding is offered exactly when the right kind of disc is in the drive and this catalogue does not know it yet.
void frmAddCD::UpdateDriveInfo()
{
    Routine("UpdateDriveInfo"_L1, [&] {
        const QString kindWord = hasDrive() ? GetDiskIDcheck(program, cmbDrive->currentText()) : QString();
        const CatalogueKind* inserted = CatalogueByKindWord(kindWord);
        lblInserCD->setText(inserted ? inserted->mediumCaption : u"(нет)"_s);
        if (inserted != &kind || CheckCDID()) return refuseDetection();
        chAutoDetect->setEnabled(true);
        chAutoDetect->setChecked(true);
    });
}

/// Whether the disc in the drive is bound to a row of this catalogue.
bool frmAddCD::CheckCDID()
{
    bool found = false;
    Routine("CheckCDID"_L1, [&] {
        if (!hasDrive()) return;
        QString& id = program.shared.CurrentDiscID;
        id = GetDiskID(program, cmbDrive->currentText());
        found = !id.isEmpty() && FindBoundDisc(program.mainDatabase(), kind, id);
    });
    return found;
}

void frmAddCD::cmdSearch()
{
    Routine("cmdSearch"_L1, [&] {
        const Database main = program.mainDatabase();
        int number = FirstFreeNumber(main, kind);
        while (number <= LastNumber) {
            const Answer answer = MsgBox(u"Найден свободный диск № %1.\rДа\t- принять этот номер\r"
                                         "Нет\t- поиск следующего номера\rОтмена\t- отменить поиск"_s.arg(number),
                                         Box::QuestionWithCancel);
            if (answer == Answer::Cancel) return;
            if (answer == Answer::Yes) {
                txtNumber->setText(QString::number(number));
                return cmdOK();
            }
            if (number + 1 == kind.searchEnd) break;
            number = FirstFreeNumber(main, kind, number);
        }
        MsgBox(u"Свободных номеров нет!"_s);
    });
}

/// Asks about a number that is taken. False when the user has to choose another one: a No is a Yes to sharing it.
bool frmAddCD::makeRoom(int number)
{
    const Database main = program.mainDatabase();
    const Recordset taken = main.OpenRecordset(
        u"SELECT * FROM %1 WHERE Номер = ? ORDER BY %2"_s.arg(kind.table, kind.key), {number});
    if (taken.RecordCount() == 0) return true;
    QString title = taken.value(u"Название").text();
    if (kind.album) title += u" - "_s + taken.value(u"Альбом").text();
    if (!Ask(u"Диск № %1:\r'%2' уже существует.\rСместить все номера на 1 начиная с %1-го?"_s.arg(
            QString::number(number), title)))
        return true;
    if (!CanMoveNumbers(main, kind, number)) {
        refuse(txtNumber, CannotMoveMessage(number));
        return false;
    }
    program.shared.ShiftStart = number;
    return true;
}

bool frmAddCD::takeIdentifier()
{
    if (!chAutoDetect->isChecked()) return true;
    Shared& shared = program.shared;
    shared.CurrentDiscID = GetDiskID(program, cmbDrive->currentText());
    if (shared.CurrentDiscID.isEmpty()) {
        MsgBox(kind.noIdentifierMessage);
        return false;
    }
    shared.AutoDetectTag = u"ad:"_s + shared.CurrentDiscID;
    return true;
}

void frmAddCD::cmdOK()
{
    Routine("cmdOK"_L1, [&] {
        const int number = DiscNumber(txtNumber->text());
        if (number == 0) return refuse(txtNumber, u"Указан не верный номер диска. Повторите ввод."_s);
        txtNumber->setText(QString::number(number));
        if (!makeRoom(number) || !takeIdentifier()) return;

        const auto editor = MakeEditor(program, kind);
        {
            const Hourglass hourglass;
            editor->AddUnder(number);
        }
        Unload();
        hide(); // the editor comes up in this window's place, and this one does not come back
        editor->ShowModal(this);
        program.shared.CatalogueQueryFilter.clear();
    });
}

bool AddDisc(Program& program, const CatalogueKind& kind, QWidget* opener)
{
    frmAddCD dialog(program, kind);
    dialog.ShowModal(opener);
    return std::exchange(program.shared.DialogDone, false);
}
