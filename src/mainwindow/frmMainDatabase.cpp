// The database on view: the user's own, or an external one that is only looked at.
#include "mainwindow/frmMain.h"

#include "store/DatabaseSet.h"

#include <QFileInfo>
#include <QMenu>

namespace {

/// What stands still while an external database is on view: commands, menus with all their commands, and the selector.
const QStringList localTools =
    u"ID_Catalog_AddCD ID_AddCD ID_Catalog_ChangeNumber ID_Catalog_ChangeCategory "
    "ID_DB_Save ID_DB_Wizard ID_DB_Search ID_DB_Import ID_DB_ExportDB ID_DB_Dictionaries ID_DB_DefaultCDDVDROM "
    "ID_Due ID_Due_List ID_Due_Stat ID_Due_DiskHistory ID_Due_Admin "
    "ID_QuickADFind ID_QuickADNewCD ID_QuickADNewDue ID_QuickPCFind ID_QuickPCNewCD ID_QuickPCNewDue "
    "ID_QuickDVDNewCD ID_QuickDVDNewDue"_s.split(u' ');

/// Groups of the list bar that are about the local database, in the order in which they leave.
const QStringList localGroups{u"g4"_s, u"g3"_s, u"g2"_s};

bool samePath(const QString& one, const QString& other) { return one.toLower() == other.toLower(); }

}

void frmMain::OpenExternalDB()
{
    Guarded("frmMain, OpenExternalDB()"_L1, [&] {
        const QString path = program.dialogs.OpenFile(u"Открытие базы данных vinora"_s,
                                                      u"База данных vinora (*.db)|*.db|Все файлы (*.*)|*.*"_s);
        if (path.isEmpty()) return;
        if (samePath(path, program.shared.MainDBPath)) {
            program.dialogs.MsgBox(u"База данных '"_s + QFileInfo(path).fileName() + u"' уже открыта."_s,
                                   Box::Information);
            return;
        }
        if (samePath(path, program.applicationFolder + u"/vinora.db"_s)) {
            if (program.dialogs.Ask(u"Открыть локальную базу данных?"_s)) OpenLocalDB();
            return;
        }
        try {
            const Hourglass hourglass;
            showExternal(ViewExternalDatabase(program, path));
        } catch (const std::exception&) {
            program.dialogs.MsgBox(u"ОШИБКА!\r\n\r\nБаза данных имеет атрибут 'только чтение', повреждена или имеет не "
                                   u"верный формат."_s,
                                   Box::Stop);
            OpenLocalDB();
        }
    });
}

void frmMain::showExternal(const ExternalSummary& seen)
{
    int discs = 0;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        m_dashboard->cards()[CatalogueIndex(*ExternalCatalogues()[i])]->showWithoutLoans(seen[i]);
        discs += seen[i].discs;
    }
    m_dashboard->showExternalTotal(discs);
    for (CatalogueCard* card : m_dashboard->cards()) card->showOverdue(0);
    const QString file = QFileInfo(program.shared.MainDBPath).fileName();
    StatusBar->setMode(u"База данных - внешняя (файл: '"_s + file + u"')"_s);
    StatusBar->setModePicture(u"external"_s, u"Внешняя база данных: только просмотр"_s);
    tmrCheckCD->setEnabled(false);
    tmrNewCD->setEnabled(false);
    ResetDiscSigns();

    for (const QString& group : SSListBar->foldedGroups())
        if (localGroups.contains(group)) m_foldedAway += group;
    for (const QString& group : localGroups) SSListBar->removeGroup(group);
    enableCommands();
}

void frmMain::OpenLocalDB()
{
    Guarded("frmMain, OpenLocalDB()"_L1, [&] {
        const QString external = program.shared.ExternalDBOpen ? program.shared.MainDBPath : QString();
        UseDatabaseFolder(program, LocalDatabaseFolder(program));
        for (const QString& path : {program.shared.MainDBPath, program.shared.FilesDBPath, program.shared.TracksDBPath})
            if (!QFileInfo::exists(path)) {
                program.dialogs.MsgBox(u"ОШИБКА.\r\n\r\nФайл базы данных не найден. Запуск программы невозможен."_s,
                                       Box::Stop);
                EndProcess(program, EXIT_FAILURE);
            }
        program.shared.ExternalDBOpen = false;
        if (!external.isEmpty()) program.engine.Release(external); // its stick can be pulled now
        LoadData();
        StatusBar->setMode(u"База данных - локальная"_s);
        StatusBar->setModePicture({}, {});
        AddListbars();
        loadShortcuts();
        enableCommands();
    });
}

void frmMain::enableForMode()
{
    const bool external = program.shared.ExternalDBOpen;
    m_commands.action(u"ID_DB_OpenLocal")->setEnabled(external);
    ID_DB_DefaultCDDVDROM->setEnabled(!external && ID_DB_DefaultCDDVDROM->count() > 0);
    for (const QString& id : localTools) {
        QAction* tool = m_commands.action(id);
        if (const QMenu* menu = m_commands.menu(id)) {
            tool = menu->menuAction();
            if (external)
                for (QAction* entry : menu->actions()) entry->setEnabled(false);
        }
        if (tool && external) tool->setEnabled(false);
    }
    // The others on the way back depend on their screens.
    if (external) return;
    m_commands.action(u"ID_AddCD")->setEnabled(true);
    m_commands.menu(u"ID_Due")->menuAction()->setEnabled(true);
}

bool frmMain::externalHas(const CatalogueKind& kind)
{
    if (!program.shared.ExternalDBOpen) return true;
    try {
        const Hourglass hourglass;
        RequireCatalogue(program.mainDatabase(), kind);
        return true;
    } catch (const RuntimeError& error) {
        program.dialogs.MsgBox(u"Этот каталог внешней базы данных не открывается."_s + u"\r\n\r\n"_s +
                               error.description());
        return false;
    }
}
