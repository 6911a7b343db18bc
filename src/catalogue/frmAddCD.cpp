#include "catalogue/frmAddCD.h"

#include "catalogue/Catalogues.h"
#include "catalogue/Numbering.h"
#include "catalogue/frmAddInCatalogue.h"
#include "frame/Settings.h"
#include "frame/Text.h"
#include "platform/MMControl.h"
#include "recognition/BoundDisc.h"
#include "store/CddbServers.h"

static const auto NoFreeNumber = u"Свободных номеров нет!"_s;

frmAddCD::frmAddCD(Program& program, const CatalogueKind& kind)
    : CatalogueScreen(program, kind, u"frmAddCD"_s, u"Добавление диска"_s)
{
    lblCDsCount0->setText(kind.addCaption);
    chAutoDetect->setText(u"Определять этот диск, когда он вставлен в дисковод"_s);
    txtNumber->setMaxLength(5);
    DigitKeys(txtNumber);

    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Перейти к вводу сведений о диске"_s);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть, не добавляя диск"_s);
    imgButton[2]->setup(u"search"_s, u"&Поиск"_s, u"Искать свободный номер"_s);
    imgButton[0]->setDefault(true);
    connect(imgButton[0], &ImageButton::clicked, this, [this] { cmdOK(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { Unload(); });
    connect(imgButton[2], &ImageButton::clicked, this, [this] { cmdSearch(); });
    connect(cmbDrive, &QComboBox::activated, this, [this] {
        readDrive();
        UpdateDriveInfo();
    });

    setLayout(column(head(lblCDsCount0),
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
    setTag({sources}, MyGroup);
    for (QWidget* control : std::initializer_list<QWidget*>{chQuery[0], chQuery[1], chTrackSave, cmbServer})
        control->setEnabled(false);
    return sources;
}

void frmAddCD::Form_Load()
{
    Routine("Form_Load"_L1, [&] {
        setVisibleByTag(MyGroup, kind.titleSources);
        if (!loadDrives(cmbDrive)) MsgBox(u"Устройство для чтения компакт-дисков не найдено!"_s);
    });
}

void frmAddCD::Form_Activate()
{
    Routine("Form_Activate"_L1, [&] {
        cmbServer->addItems(CddbServerItems());
        cmbServer->setCurrentIndex(ChosenCddbServer(program.settings()));
        const std::optional<int> free = FirstFreeNumber(program.mainDatabase(), kind);
        txtNumber->setText(free ? QString::number(*free) : QString());
        readDrive();
        UpdateDriveInfo();
        txtNumber->setFocus();
        txtNumber->selectAll();
        if (!free) MsgBox(NoFreeNumber);
        if (!CheckCDID()) return;
        if (Ask(u"Вы пытаетесь добавить диск, который уже есть в каталоге! Продолжить?"_s))
            refuseDetection();
        else
            Unload();
    });
}

bool frmAddCD::hasDrive() const { return cmbDrive->isEnabled(); }

void frmAddCD::refuseDetection()
{
    chAutoDetect->setChecked(false);
    chAutoDetect->setEnabled(false);
}

void frmAddCD::readDrive()
{
    const Hourglass hourglass;
    m_disc = hasDrive() ? ReadDisc(program, cmbDrive->currentText()) : DiscInDrive();
}

/// The binding is offered exactly when the right kind of disc is in the drive and this catalogue does not know it yet.
void frmAddCD::UpdateDriveInfo()
{
    Routine("UpdateDriveInfo"_L1, [&] {
        const CatalogueKind* inserted = CatalogueByKindWord(m_disc.kind);
        lblInserCD->setText(inserted ? inserted->mediumCaption : u"(нет)"_s);
        if (inserted != &kind || CheckCDID()) return refuseDetection();
        chAutoDetect->setEnabled(true);
        chAutoDetect->setChecked(true);
    });
}

/// Whether the disc last read is bound to a row of this catalogue.
bool frmAddCD::CheckCDID()
{
    bool found = false;
    Routine("CheckCDID"_L1, [&] {
        if (!hasDrive()) return;
        program.shared.CurrentDiscID = m_disc.id;
        found = FindBoundDisc(program.mainDatabase(), kind, m_disc.id).has_value();
    });
    return found;
}

void frmAddCD::cmdSearch()
{
    Routine("cmdSearch"_L1, [&] {
        const Database main = program.mainDatabase();
        for (auto offer = NextOffer(main, kind, 0); offer; offer = NextOffer(main, kind, *offer)) {
            const Answer answer = MsgBox(u"Найден свободный диск № %1.\rДа\t- принять этот номер\r"
                                         "Нет\t- поиск следующего номера\rОтмена\t- отменить поиск"_s.arg(*offer),
                                         Box::QuestionWithCancel);
            if (answer == Answer::Cancel) return;
            if (answer == Answer::Yes) {
                txtNumber->setText(QString::number(*offer));
                return cmdOK();
            }
        }
        MsgBox(NoFreeNumber);
    });
}

/// Asks about a number that is taken: the number from which the others are to move, 0 for none, since a No is a Yes to
/// sharing it. Nothing when the user has to choose another one.
std::optional<int> frmAddCD::shiftFor(int number)
{
    const Database main = program.mainDatabase();
    const std::optional<QString> title = FirstDiscNumbered(main, kind, number);
    if (!title) return 0;
    if (!Ask(u"Диск № %1:\r'%2' уже существует.\rСместить все номера на 1 начиная с %1-го?"_s.arg(
            QString::number(number), *title)))
        return 0;
    if (CanMoveNumbers(main, kind)) return number;
    refuse(txtNumber, CannotMoveMessage(number));
    return {};
}

bool frmAddCD::takeIdentifier()
{
    if (!chAutoDetect->isChecked()) return true;
    readDrive();
    Shared& shared = program.shared;
    shared.CurrentDiscID = m_disc.id;
    if (shared.CurrentDiscID.isEmpty()) {
        MsgBox(kind.noIdentifierMessage);
        return false;
    }
    shared.AutoDetectTag = u"ad:"_s + shared.CurrentDiscID;
    return true;
}

/// What the disc that is to be bound says of itself.
OfferedTitle frmAddCD::titleOnDisc()
{
    if (!chAutoDetect->isChecked()) return {};
    if (!kind.titleFromCdText) return {.name = m_disc.label};
    MMControl device(program.drives);
    device.Open(cmbDrive->currentText());
    return {.name = device.contents().performer, .album = device.contents().title};
}

void frmAddCD::cmdOK()
{
    Routine("cmdOK"_L1, [&] {
        const int number = DiscNumber(txtNumber->text());
        if (number == 0) return refuse(txtNumber, u"Указан не верный номер диска. Повторите ввод."_s);
        txtNumber->setText(QString::number(number));
        const std::optional<int> shift = shiftFor(number);
        if (!shift || !takeIdentifier()) return;
        if (*shift > 0) program.shared.ShiftStart = *shift; // else one that was agreed to earlier is still due

        const auto editor = MakeEditor(program, kind);
        {
            const Hourglass hourglass;
            editor->AddUnder(number, titleOnDisc());
        }
        Unload();
        hide(); // the editor comes up in this window's place, and this one does not come back
        editor->ShowModal(this);
        m_added = editor->saved();
        if (kind.addingEndsFilter) program.shared.CatalogueQueryFilter.clear();
    });
}

std::optional<qint64> AddDisc(Program& program, const CatalogueKind& kind, QWidget* opener)
{
    frmAddCD dialog(program, kind);
    dialog.ShowModal(opener);
    program.shared.DialogDone = false;
    return dialog.added();
}
