// What the main window shows by itself: the dashboard's figures and signs, the drive, the clock.
#include "mainwindow/frmMain.h"

#include "frame/Text.h"
#include "recognition/DiscIdentity.h"
#include "recognition/DiscImages.h"
#include "store/DatabaseSet.h"

#include <QFileInfo>

void frmMain::LoadData()
{
    Guarded("frmMain, LoadData()"_L1, [&] {
        try {
            const Hourglass hourglass;
            const auto summary = Summarise(program.mainDatabase());
            int discs = 0, lent = 0;
            for (size_t i = 0; i < summary.size(); ++i) {
                m_dashboard->cards()[i]->show(summary[i]);
                discs += summary[i].discs;
                lent += summary[i].lent;
            }
            m_dashboard->showTotal(discs, lent);
            ConfigureTimers();
            CheckDue();
            CheckCD();
            showDrive();
        } catch (const RuntimeError& error) {
            if (error.number() != DaoErrorNumber::CannotOpenOrWrite) throw;
            const QString folder = QFileInfo(program.shared.MainDBPath).path();
            if (!program.dialogs.Ask(u"Папка '"_s + folder +
                                         u"' доступна только для чтения! Локальная работа с базой данных не "
                                         u"возможна!\r\n\r\nВосстановить путь к локальной базе данных?"_s,
                                     Box::Warning))
                program.endProcess(0);
            RestoreDatabaseFolder(program);
            LoadData();
        }
    });
}

void frmMain::ConfigureTimers()
{
    const auto interval = [&](QStringView key) -> std::optional<int> {
        const Profile settings = program.settings();
        if (!settings.has(u"Option", key)) return {};
        const double value = settings.number(u"Option", key, 5);
        return value == 1 ? 1 : int(value / 10);
    };
    const auto due = interval(u"tmrDue"), disc = interval(u"tmrCD");
    for (CatalogueCard* card : m_dashboard->cards()) {
        if (due) card->setDueInterval(*due);
        if (disc) card->setDiscInterval(*disc);
    }
}

void frmMain::CheckDue()
{
    Guarded("frmMain, CheckDue()"_L1, [&] {
        PerCatalogue overdue{};
        const Profile settings = program.settings();
        const bool off = settings.has(u"Option", u"CheckDueOnStartup") &&
                         settings.number(u"Option", u"CheckDueOnStartup", 2) == 0;
        if (!off) overdue = OverdueLoans(program.mainDatabase(), program.clock.today());
        for (size_t i = 0; i < overdue.size(); ++i) m_dashboard->cards()[i]->showOverdue(overdue[i]);
    });
}

void frmMain::CheckCD()
{
    ResetDiscSigns();
    StatusBar->setDiscPicture({}, {});
    const Profile settings = program.settings();
    if (!settings.has(u"Option", u"CheckCD")) return;
    tmrCheckCD->setEnabled(settings.number(u"Option", u"CheckCD", 2) == 1);
}

void frmMain::ResetDiscSigns()
{
    m_watch.reset();
    paintSigns();
}

void frmMain::tmrCheckCD_Timer()
{
    m_watch.tick(); // guarded by itself: it asks the user only while no routine is under way
    Guarded("frmMain, tmrCheckCD_Timer()"_L1, [&] {
        paintSigns();
        showDrive();
    });
}

void frmMain::tmrTime_Timer()
{
    m_showTime = !m_showTime;
    StatusBar->setClock(m_showTime ? program.clock.now().toString(u"hh:mm"_s)
                                   : FormatDate(program.clock.today(), u"d MMMM (dddd)"_s));
}

void frmMain::LoadDefaultCD()
{
    m_fillingDrives = true;
    ID_DB_DefaultCDDVDROM->clear();
    for (Drive* drive : program.drives.all()) {
        ID_DB_DefaultCDDVDROM->addItem(drive->root());
        ID_DB_DefaultCDDVDROM->setItemData(ID_DB_DefaultCDDVDROM->count() - 1, drive->description(), Qt::ToolTipRole);
    }
    ID_DB_DefaultCDDVDROM->setEnabled(ID_DB_DefaultCDDVDROM->count() > 0);
    const QString stored = program.settings().read(u"Option", u"Drive", 4).trimmed().left(3);
    ID_DB_DefaultCDDVDROM->setCurrentIndex(qMax(0, ID_DB_DefaultCDDVDROM->findText(stored)));
    m_fillingDrives = false;
    showDrive();
}

void frmMain::defaultDriveChanged()
{
    if (m_fillingDrives) return;
    Guarded("frmMain, ID_DB_DefaultCDDVDROM_Change()"_L1, [&] {
        ResetDiscSigns();
        program.settings().write(u"Option", u"Drive", ID_DB_DefaultCDDVDROM->currentText());
        CheckCD();
        showDrive();
    });
}

void frmMain::showDrive()
{
    Drive* drive = program.drives.find(ID_DB_DefaultCDDVDROM->currentText());
    QString caption;
    if (drive && drive->lastKnown().success) {
        const VolumeProperties volume = drive->lastKnown();
        const QString word = KindOfVolume(volume, ReadSkipCD(program, SerialToID(volume.serial)));
        if (const CatalogueKind* kind = CatalogueByKindWord(word)) caption = kind->mediumCaption;
    }
    m_dashboard->drive().show(drive, caption);
    m_commands.action(u"ID_Drive_Eject")->setEnabled(!program.drives.virtualDrive().imagePath().isEmpty());
}
