// What each command of the main window does.
#include "mainwindow/frmMain.h"

#include "catalogue/Catalogues.h"
#include "catalogue/frmAddCD.h"
#include "catalogue/frmChangeNumber.h"
#include "catalogue/frmEditDictionary.h"
#include "catalogue/frmSelectCD.h"
#include "contents/frmFileList.h"
#include "contents/frmTrackList.h"
#include "lending/frmAddInDue.h"
#include "lending/frmAddInDueFromMain.h"
#include "lending/frmDiskHistory.h"
#include "lending/frmDue.h"
#include "lending/frmDueStat.h"
#include "lending/frmEditDue.h"
#include "mainwindow/HelpCommands.h"
#include "recognition/DiscIdentity.h"
#include "recognition/DiscImages.h"
#include "ui/Icons.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>

namespace {
/// The screens that this program has besides those of the catalogues. What leads to others is disabled.
const QStringList builtScreens{
    u"frmAddInDue"_s,         u"frmDue"_s,         u"frmChangeNumber"_s,   u"frmEditDescription"_s,
    u"frmEditGenre"_s,        u"frmEditStyle"_s,   u"frmFileList"_s,       u"frmHelp"_s,
    u"frmOption"_s,           u"frmSelectCD"_s,    u"frmSelectCategory"_s, u"frmToolbars"_s,
    u"frmCreateQuery"_s,      u"frmDBFind"_s,      u"frmTrackList"_s,      u"OpenExternalDB"_s,
    u"frmAddInDueFromMain"_s, u"frmDiskHistory"_s, u"frmDueStat"_s,        u"frmEditDue"_s,
};
}

bool frmMain::offers(QStringView screen) const
{
    for (const CatalogueKind* kind : AllCatalogues())
        if (screen == kind->browser || screen == kind->editor) return true;
    return builtScreens.contains(screen);
}

void frmMain::enableCommands()
{
    for (const Command& command : AllCommands())
        if (!command.needs.isEmpty()) m_commands.action(command.id)->setEnabled(offers(command.needs));
    for (const MenuDef& def : AllMenus()) {
        const bool any = std::ranges::any_of(def.entries, [&](const QString& entry) {
            const QAction* action = m_commands.action(entry);
            return m_commands.menu(entry) || (action && action->isEnabled());
        });
        if (!def.inMenuBar) m_commands.menu(def.id)->menuAction()->setEnabled(any);
    }
    enableForMode();
    enableListBar();
}

frmMain::Handlers frmMain::handlers()
{
    Handlers table{
        {u"ID_AddCD"_s, [](frmMain& m) { m.repeatLastAdd(); }},
        {u"ID_Catalog_ChangeNumber"_s, [](frmMain& m) { m.changeNumber(); }},
        {u"ID_Catalog_ChangeCategory"_s, [](frmMain& m) { m.changeCategory(); }},
        {u"ID_DB_EditStyle"_s, [](frmMain& m) { m.editDictionary(Audio()); }},
        {u"ID_DB_EditDescription"_s, [](frmMain& m) { m.editDictionary(Computer()); }},
        {u"ID_DB_EditGenre"_s, [](frmMain& m) { m.editDictionary(Dvd()); }},
        {u"ID_Due_List"_s, [](frmMain& m) { m.showLoans(); }},
        {u"ID_Due_DiskHistory"_s, [](frmMain& m) { m.showScreen<frmDiskHistory>("frmMain, ID_Due_DiskHistory()"_L1); }},
        {u"ID_Due_Stat"_s, [](frmMain& m) { m.showScreen<frmDueStat>("frmMain, ID_Due_Stat()"_L1); }},
        {u"ID_Due_EditNames"_s, [](frmMain& m) { m.showScreen<frmEditDue>("frmMain, ID_Due_EditNames()"_L1); }},
        {u"ID_Due_Admin"_s, [](frmMain& m) { m.lendByNumber(nullptr); }},
        {u"ID_QuickADNewDue"_s, [](frmMain& m) { m.lendByNumber(&Audio()); }},
        {u"ID_QuickPCNewDue"_s, [](frmMain& m) { m.lendByNumber(&Computer()); }},
        {u"ID_QuickDVDNewDue"_s, [](frmMain& m) { m.lendByNumber(&Dvd()); }},
        {u"ID_Quit"_s, [](frmMain& m) { m.close(); }},
        {u"ID_Panel"_s, [](frmMain& m) { m.showPanel(m.m_commands.action(u"ID_Panel")->isChecked()); }},
        {u"ID_DB_Option"_s, [](frmMain& m) { m.showOptions(); }},
        {u"ID_DB_Search"_s, [](frmMain& m) { m.showSearch({}); }},
        {u"ID_QuickADFind"_s, [](frmMain& m) { m.showSearch(Audio().code); }},
        {u"ID_QuickPCFind"_s, [](frmMain& m) { m.showSearch(Computer().code); }},
        {u"ID_ToolbarEditAdd"_s, [](frmMain& m) { m.addShortcut(); }},
        {u"ID_View_Toolbars_Option"_s, [](frmMain& m) { m.showToolbarOptions(); }},
        {u"ID_Help_Index"_s, [](frmMain& m) { ShowHelp(m.program); }},
        {u"ID_Help_Info"_s, [](frmMain& m) { ShowReadme(m.program); }},
        {u"ID_Help_About"_s, [](frmMain& m) { m.showAbout(); }},
        {u"ID_DB_Open"_s, [](frmMain& m) { m.OpenExternalDB(); }},
        {u"ID_DB_OpenLocal"_s, [](frmMain& m) { m.OpenLocalDB(); }},
        {u"ID_ToolbarEditChange"_s, [](frmMain& m) { m.changeShortcut(); }},
        {u"ID_ToolbarEditDel"_s, [](frmMain& m) { m.deleteShortcut(); }},
        {u"ID_Drive_Insert"_s, [](frmMain& m) { m.cmdInsert(); }},
        {u"ID_Drive_Eject"_s, [](frmMain& m) { m.cmdEject(); }},
    };
    for (const CatalogueCommands& own : CommandsOfCatalogues()) {
        for (const QString& id : {own.open, own.quickOpen})
            table[id] = [&kind = own.kind](frmMain& m) { m.openCatalogue(kind); };
        for (const QString& id : {own.add, own.quickAdd})
            table[id] = [&kind = own.kind](frmMain& m) { m.addAndRemember(kind); };
    }
    return table;
}

void frmMain::Route(const QString& id)
{
    static const Handlers table = handlers();
    if (const auto handler = table.find(id); handler != table.end()) (*handler)(*this);
}

void frmMain::openCatalogue(const CatalogueKind& kind, qint64 key)
{
    Guarded("frmMain, OpenCatalogue()"_L1, [&] {
        ResetDiscSigns();
        if (!externalHas(kind)) return;
        OpenCatalogue(program, kind, nullptr, key);
        if (!program.shared.ExternalDBOpen) LoadData();
    });
}

void frmMain::addDisc(const CatalogueKind& kind)
{
    Guarded("frmMain, AddDisc()"_L1, [&] {
        ResetDiscSigns();
        if (const std::optional<qint64> added = AddDisc(program, kind))
            openCatalogue(kind, *added);
        else if (!program.shared.ExternalDBOpen)
            LoadData();
    });
}

void frmMain::addAndRemember(const CatalogueKind& kind)
{
    addDisc(kind);
    program.settings().write(u"Toolbars", u"LastAction", QString::number(CatalogueIndex(kind) + 1));
}

void frmMain::repeatLastAdd()
{
    const Profile settings = program.settings();
    const bool remembered = settings.has(u"Toolbars", u"LastAction");
    const double last = remembered ? settings.number(u"Toolbars", u"LastAction", 5) : 1;
    for (const CatalogueCommands& own : CommandsOfCatalogues()) {
        if (last != double(CatalogueIndex(own.kind) + 1)) continue;
        // What nobody has chosen is not remembered either.
        return remembered ? Route(own.add) : addDisc(own.kind);
    }
}

void frmMain::changeNumber()
{
    Guarded("frmMain, ID_Catalog_ChangeNumber()"_L1, [&] {
        frmChangeNumber(program).ShowModal();
        LoadData();
    });
}

void frmMain::showLoans()
{
    Guarded("frmMain, ID_Due_List()"_L1, [&] {
        frmDue(program).ShowModal();
        LoadData();
    });
}

void frmMain::lendByNumber(const CatalogueKind* category)
{
    Guarded("frmMain, ID_Due_Admin()"_L1, [&] {
        frmAddInDueFromMain(program, category).ShowModal();
        LoadData();
    });
}

void frmMain::editDictionary(const CatalogueKind& kind)
{
    Guarded("frmMain, EditDictionary()"_L1, [&] { frmEditDictionary(program, kind).ShowModal(); });
}

void frmMain::changeCategory()
{
    Guarded("frmMain, ID_Catalog_ChangeCategory()"_L1, [&] {
        const auto stopWatch = [this] { tmrCheckCD->setEnabled(false); };
        if (!ChangeCategory(program, ID_DB_DefaultCDDVDROM->currentText(), stopWatch)) return;
        tmrCheckCD->setEnabled(true);
        CheckCD();
        showDrive();
    });
}

void frmMain::insertImage(const QString& path)
{
    Guarded("frmMain, InsertImage()"_L1, [&] {
        try {
            const Hourglass hourglass;
            InsertImage(program, path);
        } catch (const RuntimeError& error) {
            program.dialogs.MsgBox(u"Образ не вставлен."_s + u"\r\n\r\n"_s + error.description());
            return;
        }
        LoadDefaultCD();
        CheckCD();
        if (tmrCheckCD->enabled()) tmrCheckCD_Timer();
    });
}

void frmMain::cmdInsert()
{
    const QString path = program.dialogs.OpenFile(u"Вставить образ диска"_s, ImageFilter());
    if (!path.isEmpty()) insertImage(path);
}

void frmMain::cmdEject()
{
    Guarded("frmMain, EjectImage()"_L1, [&] {
        EjectImage(program);
        CheckCD();
        showDrive();
    });
}

static QString droppedImage(const QMimeData* data)
{
    QStringList paths;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile()) paths += url.toLocalFile();
    return ImageAmong(paths);
}

void frmMain::dragEnterEvent(QDragEnterEvent* event)
{
    if (!program.dialogs.modalIsOpen() && !droppedImage(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event)
{
    const QString path = droppedImage(event->mimeData());
    event->acceptProposedAction();
    // Read when the drop is over: the program that it came from waits for its end.
    const auto read = [this, path] {
        if (path.isEmpty() || program.dialogs.modalIsOpen()) return;
        activateWindow();
        insertImage(path);
    };
    QMetaObject::invokeMethod(this, read, Qt::QueuedConnection);
}

void frmMain::ShowFileList(Form& opener, const ListRequest& request) { ::ShowFileList(program, opener, request); }

std::optional<DiscChoice> frmMain::PickDisc(Form& opener, const QString& mode)
{
    return ::PickDisc(program, mode, &opener);
}

void frmMain::ShowTrackList(Form& opener, const ListRequest& request) { ::ShowTrackList(program, opener, request); }

void frmMain::ShowAddInDue(Form& opener, const CatalogueKind& kind, qint64 disc)
{
    ::ShowAddInDue(program, kind, disc, &opener);
}
