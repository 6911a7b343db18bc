#include "contents/frmTrackListOption.h"

#include "platform/CdToc.h"
#include "platform/Files.h"
#include "recognition/Refusals.h"
#include "store/CdPlayerIni.h"
#include "store/CddbServers.h"
#include "store/TrackLists.h"
#include "ui/Lettering.h"

frmTrackListOption::frmTrackListOption(Program& program, DiscOfRow disc, const ListRequest& request)
    : ListOptionScreen(program, u"frmTrackListOption"_s, disc, request.number), request(request)
{
    lblHeader->setText(u"Параметры сканирования треков"_s);
    lettered(lblHeader, Lettering::Heading);
    chCDDB->setText(u"се&рвер CDDB"_s);
    cmbServer->setAccessibleName(u"Сервер CDDB"_s);
    chTrackImport->setText(u"&файл cdplayer.ini"_s);
    chTrackWithoutName->setText(u"&Без запроса названия треков"_s);
    chTrackSave->setText(u"Со&хранить в cdplayer.ini"_s);
    const QString inFile = u"Файл %1/cdplayer.ini"_s.arg(SystemProfileFolder());
    for (QCheckBox* box : {chTrackImport, chTrackSave}) box->setToolTip(inFile);
    if (!program.offers(u"frmCDDB")) chCDDB->setToolTip(u"В этой версии программы обращаться к серверам CDDB нельзя"_s);
    QLabel* hint = lettered(label(u"Если ничего не отмечено, названия вводятся по одному."_s), Lettering::Caption);
    imgButton[0]->setup(u"ok"_s, u"&Создать"_s, u"Создать список треков диска"_s);
    imgButton[0]->setDefault(true);
    imgButton[1]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть, не создавая списка"_s);

    QBoxLayout* cddb = row(chCDDB, cmbServer);
    cddb->setStretch(1, 1);
    setLayout(column(lblHeader, driveRow(),
                     group(u"Названия треков"_s, column(cddb, chTrackImport, chTrackWithoutName, hint)), chTrackSave,
                     stretch, row(stretch, imgButton[0], imgButton[1])));

    connect(chCDDB, &QCheckBox::toggled, this, [this](bool on) {
        if (on) chooseOnly(chCDDB);
        enableWays();
    });
    connect(chTrackImport, &QCheckBox::toggled, this, [this](bool on) {
        if (on) chooseOnly(chTrackImport);
        enableWays();
    });
    // The other two keep their ticks while the names are not asked for.
    connect(chTrackWithoutName, &QCheckBox::toggled, this, [this](bool on) { on ? enableWays() : cmbDrive_Click(); });
    connect(imgButton[0], &QPushButton::clicked, this, &frmTrackListOption::cmdOK);
    connect(imgButton[1], &QPushButton::clicked, this, &Form::reject);
}

void frmTrackListOption::Form_Load()
{
    Routine("Form_Load"_L1, [&] {
        cmbServer->addItems(CddbServerItems());
        cmbServer->setCurrentIndex(ChosenCddbServer(program.settings()));
        enableWays();
        loadDrives();
    });
}

void frmTrackListOption::kindShown(const QString& kindWord)
{
    m_audio = kindWord == Audio().kindWord;
    enableWays();
}

void frmTrackListOption::chooseOnly(const QCheckBox* way)
{
    for (QCheckBox* other : {chCDDB, chTrackImport, chTrackWithoutName})
        if (other != way) other->setChecked(false);
}

/// Names need a disc to be the names of; and what came from cdplayer.ini need not go there.
void frmTrackListOption::enableWays()
{
    const bool nameless = chTrackWithoutName->isChecked();
    chCDDB->setEnabled(m_audio && !nameless && program.offers(u"frmCDDB"));
    cmbServer->setEnabled(chosen(chCDDB));
    chTrackImport->setEnabled(m_audio && !nameless);
    chTrackSave->setEnabled(nameless || (m_audio && !chTrackImport->isChecked()));
}

void frmTrackListOption::cmdOK()
{
    Routine("cmdOK"_L1, [&] {
        if (!hasDrive()) return;
        const DiscInDrive inDrive = ReadDisc(program, cmbDrive->currentText());
        if (inDrive.kind != Audio().kindWord) {
            MsgBox(Refusal::NoAudioDisc);
            return;
        }
        if (!takeIdentifier(inDrive)) return;
        Drive* drive = program.drives.find(cmbDrive->currentText());
        if (!drive || !MediumOf(*drive, inDrive.id)) {
            MsgBox(Refusal::NoAudioDisc);
            return;
        }
        const bool import = chosen(chTrackImport); // which needs no more of the disc than its identifier
        const DiscToList toList = readDisc();
        if (toList.names.isEmpty() && !import) {
            MsgBox(Refusal::NoAudioDisc);
            return;
        }
        if (!CreateTrackTable()) return Unload();

        const Hourglass hourglass;
        const std::optional<int> tracks = import ? ImportTrackList() : CreateTrackList(toList.names);
        if (!tracks) {
            DropList(program.tracksDatabase(), program.shared.CurrentDiscID);
            MsgBox(u"Информация о этом диске отсутствует в файле cdplayer.ini!"_s);
            return;
        }
        CreateLinkDiskID(*tracks, toList.time);
        Unload();
    });
}

frmTrackListOption::DiscToList frmTrackListOption::readDisc() const
{
    const Hourglass hourglass;
    MMControl device(program.drives);
    device.Open(cmbDrive->currentText());
    DiscToList toList;
    for (const DiscTrack& track : device.contents().tracks)
        if (track.audio) toList.names += track.title;
    if (!toList.names.isEmpty()) toList.time = PlayingTime(ReadToc(device));
    return toList;
}

bool frmTrackListOption::CreateTrackTable()
{
    if (::CreateTrackTable(program.tracksDatabase(), program.mainDatabase(), program.shared.CurrentDiscID)) return true;
    MsgBox(u"Серийный номер этого диска совпадает с уже существующим серийным номером!"_s);
    return false;
}

std::optional<int> frmTrackListOption::ImportTrackList()
{
    std::optional<int> count;
    Routine("ImportTrackList"_L1, [&] {
        const QString& id = program.shared.CurrentDiscID;
        const std::optional<CdPlayerEntry> entry = CdPlayerIni().read(id);
        if (!entry) return;
        ::ImportTrackList(program.tracksDatabase(), id, entry->tracks);
        count = int(entry->tracks.size());
    });
    return count;
}

int frmTrackListOption::CreateTrackList(const QStringList& offered)
{
    QStringList names;
    Routine("CreateTrackList"_L1, [&] {
        const bool nameless = chTrackWithoutName->isChecked();
        TrackListWriter list(program.tracksDatabase(), program.shared.CurrentDiscID);
        for (qsizetype i = 1; i <= offered.size(); ++i) {
            names += nameless ? u"Запись %1"_s.arg(i)
                              : program.dialogs.InputBox(
                                    u"Введите название %1-го из %2 треков:"_s.arg(i).arg(offered.size()),
                                    u"Название трека"_s, offered[i - 1]);
            list.add(names.constLast());
        }
        if (!chTrackSave->isChecked()) return;
        if (!CdPlayerIni().write(program.shared.CurrentDiscID, {request.title, request.album, names}))
            MsgBox(CdPlayerIni::NotWritten);
    });
    return int(names.size());
}

void frmTrackListOption::CreateLinkDiskID(int tracks, const QString& time)
{
    Routine("CreateLinkDiskID"_L1, [&] {
        ::CreateLinkDiskID(program.mainDatabase(), disc, program.shared.CurrentDiscID, tracks, time);
        listMade();
    });
}
