// What the main window shows by itself: the dashboard's figures and signs, the drive, the clock.
#include "mainwindow/frmMain.h"

#include "frame/Settings.h"
#include "frame/Text.h"
#include "store/DatabaseSet.h"

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
            OfferToRestoreFolder(program, u"Папка '%1' доступна только для чтения! Локальная работа с базой данных не "
                                          u"возможна!"_s.arg(MainDatabaseFolder(program)));
            LoadData();
        }
    });
}

void frmMain::ConfigureTimers()
{
    const auto due = BlinkInterval(program, u"tmrDue"), disc = BlinkInterval(program, u"tmrCD");
    if (due)
        for (CatalogueCard* card : m_dashboard->cards()) card->setDueInterval(*due);
    if (disc) tmrNewCD->setInterval(qMax(1, *disc));
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
    if (program.shared.ExternalDBOpen) return; // its discs are not ours
    const Profile settings = program.settings();
    if (!settings.has(u"Option", u"CheckCD")) return;
    const bool watching = settings.number(u"Option", u"CheckCD", 2) == 1;
    tmrCheckCD->setEnabled(watching);
    if (!watching) tmrNewCD->setEnabled(false);
}

void frmMain::ResetDiscSigns()
{
    m_watch.reset();
    paintSigns();
}

void frmMain::tmrCheckCD_Timer()
{
    // The watch guards itself: it may ask only where no routine is under way.
    if (m_watch.tick()) startBlinking();
    paintSigns();
    const auto& seen = m_watch.glance();
    if (seen && seen->drive && seen->drive->root() == ID_DB_DefaultCDDVDROM->currentText())
        showDrive(*seen, seen->drive->root());
    else
        showDrive();
}

void frmMain::startBlinking()
{
    // A steady sign stays without a tick.
    const bool steady = tmrNewCD->interval() == 1;
    if (steady) m_watch.blink(true);
    tmrNewCD->setEnabled(!steady);
}

void frmMain::tmrNewCD_Timer()
{
    m_watch.blink(false);
    paintSigns();
}

void frmMain::paintSigns()
{
    const DriveSigns& signs = m_watch.signs();
    if (signs == m_painted) return;
    m_painted = signs;
    for (size_t i = 0; i < signs.catalogues.size(); ++i)
        m_dashboard->cards()[i]->showSign(signs.catalogues[i], offers(u"frmSelectCD"));
    switch (signs.state) {
    case DriveState::Unknown: StatusBar->setDiscPicture({}, {}); break;
    case DriveState::NoDisc: StatusBar->setDiscPicture(u"disc-empty"_s, u"Диска в устройстве нет"_s); break;
    case DriveState::Disc: StatusBar->setDiscPicture(u"disc"_s, u"Диск в устройстве"_s); break;
    }
}

void frmMain::tmrTime_Timer()
{
    m_showTime = !m_showTime;
    StatusBar->setClock(m_showTime ? program.clock.now().toString(u"hh:mm"_s)
                                   : FormatDate(program.clock.today(), u"d MMMM (dddd)"_s));
}

void frmMain::LoadDefaultCD()
{
    ID_DB_DefaultCDDVDROM->clear();
    for (Drive* drive : program.drives.all()) {
        ID_DB_DefaultCDDVDROM->addItem(drive->root());
        ID_DB_DefaultCDDVDROM->setItemData(ID_DB_DefaultCDDVDROM->count() - 1, drive->description(), Qt::ToolTipRole);
    }
    enableForMode();
    const int stored = ID_DB_DefaultCDDVDROM->findText(DefaultDrive(program).left(3), Qt::MatchFixedString);
    ID_DB_DefaultCDDVDROM->setCurrentIndex(qMax(0, stored));
    showDrive();
}

void frmMain::defaultDriveChanged()
{
    Guarded("frmMain, ID_DB_DefaultCDDVDROM_Change()"_L1, [&] {
        ResetDiscSigns();
        program.settings().write(u"Option", u"Drive", ID_DB_DefaultCDDVDROM->currentText());
        CheckCD();
        showDrive();
    });
}

void frmMain::showDrive()
{
    showDrive(GlanceAt(program, ID_DB_DefaultCDDVDROM->currentText()), DefaultDrive(program).left(3));
}

void frmMain::showDrive(const DriveGlance& seen, const QString& chosen)
{
    const QString image = program.drives.virtualDrive().imagePath();
    DriveSight sight{
        .root = {}, .chosen = chosen, .description = {}, .image = {}, .volume = seen.volume, .size = {}, .kind = {}};
    if (seen.drive) {
        sight.root = seen.drive->root();
        sight.description = seen.drive->description();
        if (seen.drive->isVirtual()) {
            sight.image = image;
            sight.size = program.drives.virtualDrive().size();
        }
    }
    if (const CatalogueKind* kind = CatalogueByKindWord(seen.disc.kind)) sight.kind = kind->mediumCaption;
    sight.undecided = !tmrCheckCD->enabled() && !program.settings().has(u"Option", u"CheckCD");
    m_dashboard->drive().show(sight);
    m_commands.action(u"ID_Drive_Eject")->setEnabled(!image.isEmpty());
}
