// The list bar of the main window: its fixed groups, and the user's query shortcuts.
#include "catalogue/RecordSource.h"
#include "dao/DBEngine.h"
#include "mainwindow/frmMain.h"
#include "search/frmCreateQuery.h"
#include "ui/Icons.h"

#include <QMenu>

namespace {
struct ListBarItem {
    QString text, key, icon, command;
};
struct ListBarGroup {
    QString key, caption;
    QList<ListBarItem> items;
};

const auto dueListText = u"Список должников"_s;
const auto shortcutGroup = u"g4"_s;

const QList<ListBarGroup>& listBarGroups()
{
    static const QList<ListBarGroup> groups{
        {u"g1"_s,
         u"Каталоги"_s,
         {{Audio().listText, u"cat1"_s, u"disc-audio"_s, u"ID_Catalog_AudioCD"_s},
          {Computer().listText, u"cat2"_s, u"disc-data"_s, u"ID_Catalog_PCCD"_s},
          {Dvd().listText, u"cat3"_s, u"disc-dvd"_s, u"ID_Catalog_DVD"_s}}},
        {u"g2"_s,
         u"Должники"_s,
         {{dueListText, u"due1"_s, u"people"_s, u"ID_Due_List"_s},
          {u"История дисков"_s, u"due2"_s, u"history"_s, u"ID_Due_DiskHistory"_s},
          {u"Статистика"_s, u"due3"_s, u"statistics"_s, u"ID_Due_Stat"_s},
          {u"Управление должниками"_s, u"due4"_s, u"loan"_s, u"ID_Due_Admin"_s}}},
        {u"g3"_s,
         u"База данных"_s,
         {{u"Мастер обслуживания"_s, u"db1"_s, u"wizard"_s, u"ID_DB_Wizard"_s},
          {u"Поиск"_s, u"db2"_s, u"search"_s, u"ID_DB_Search"_s}}},
        {shortcutGroup, u"Запрос"_s, {}},
    };
    return groups;
}

/// Commands by the text of their item. The options have one, although no group holds it.
const QHash<QString, QString>& commandsByText()
{
    static const QHash<QString, QString> commands = [] {
        QHash<QString, QString> table{{u"Параметры"_s, u"ID_DB_Option"_s}};
        for (const ListBarGroup& group : listBarGroups())
            for (const ListBarItem& item : group.items) table[item.text] = item.command;
        return table;
    }();
    return commands;
}
}

void frmMain::AddListbars()
{
    if (SSListBar->groupCount() >= 2) return;
    for (const ListBarGroup& group : listBarGroups()) {
        if (SSListBar->hasGroup(group.key)) continue;
        SSListBar->addGroup(group.key, group.caption);
        for (const ListBarItem& item : group.items) SSListBar->addItem(group.key, item.key, item.text, icon(item.icon));
    }
    SSListBar->setHint(shortcutGroup, u"Ярлык запроса добавляют здесь правой кнопкой мыши или клавишей меню."_s);
    SSListBar->setFoldedGroups(SSListBar->foldedGroups() + std::exchange(m_foldedAway, {}));
}

void frmMain::enableListBar()
{
    for (const ListBarGroup& group : listBarGroups())
        for (const ListBarItem& item : group.items)
            SSListBar->setItemEnabled(group.key, item.text, m_commands.action(item.command)->isEnabled());
}

void frmMain::listBarClicked(const QString& group, const QString& text)
{
    if (group == shortcutGroup) return runShortcut(text);
    if (text == dueListText && program.shared.ExternalDBOpen) {
        program.dialogs.MsgBox(u"qwe"_s, Box::Bare);
        return;
    }
    Route(commandsByText().value(text));
}

void frmMain::loadShortcuts()
{
    SSListBar->setItems(shortcutGroup, u"query1"_s, QueryNames(program.queries()), icon(u"query"_s));
}

static void tellNoShortcut(Program& program, const QString& name)
{
    program.dialogs.MsgBox(u"Запрос с именем '"_s + name + u"' ее найден!"_s);
}

/// The user may have written conditions by hand.
static bool readable(const Database& main, const CatalogueKind& kind, const QString& filter)
{
    using namespace DaoErrorNumber;
    try {
        main.OpenRecordset(RecordSource(kind, filter, kind.sortOrders.constFirst().item, false));
    } catch (const RuntimeError& error) {
        for (const int number : {NoSuchParameter, MalformedStatement, TableNotFound, UndefinedFunction})
            if (error.number() == number) return false;
        throw;
    }
    return true;
}

void frmMain::runShortcut(const QString& name)
{
    Guarded("frmMain, RunShortcut()"_L1, [&] {
        const std::optional<StoredQuery> shortcut = ReadStoredQuery(program.queries(), name);
        if (!shortcut) return tellNoShortcut(program, name);
        const CatalogueKind* kind = CatalogueByCode(shortcut->category);
        if (!kind) {
            program.dialogs.MsgBox(u"Каталог '%1' ярлыка '%2' неизвестен."_s.arg(shortcut->category, name));
            return;
        }
        if (!externalHas(*kind)) return;
        if (!readable(program.mainDatabase(), *kind, shortcut->filter())) {
            program.dialogs.MsgBox(u"Условие ярлыка '%1' не читается:\r\n%2\r\n\r\nИзмените или удалите ярлык."_s.arg(
                name, shortcut->filter()));
            return;
        }
        program.shared.CatalogueQueryMode = true;
        program.shared.CatalogueQueryFilter = shortcut->filter();
        openCatalogue(*kind);
    });
}

void frmMain::showShortcutMenu(const QString& group, const QString& text, const QPoint& at)
{
    if (group != shortcutGroup) return;
    m_shortcut = text;
    m_commands.action(u"ID_ToolbarEditDel")->setEnabled(!text.isEmpty());
    m_commands.action(u"ID_ToolbarEditChange")->setEnabled(!text.isEmpty());
    program.dialogs.Popup(*m_commands.menu(u"ID_ToolbarEdit"), at);
}

void frmMain::addShortcut()
{
    Guarded("frmMain, ID_ToolbarEditAdd()"_L1, [&] {
        const qsizetype before = SSListBar->items(shortcutGroup).size();
        frmCreateQuery(program).ShowModal();
        loadShortcuts();
        QStringList folded = SSListBar->foldedGroups();
        if (SSListBar->items(shortcutGroup).size() == before || folded.removeAll(shortcutGroup) == 0) return;
        SSListBar->setFoldedGroups(folded); // who made one looks for it
    });
}

void frmMain::changeShortcut()
{
    Guarded("frmMain, ID_ToolbarEditChange()"_L1, [&] {
        const auto stored = ReadStoredQuery(program.queries(), m_shortcut, WholeFragmentBuffer);
        if (!stored) return tellNoShortcut(program, m_shortcut);
        frmCreateQuery form(program);
        form.Load();
        form.edit(*stored);
        form.ShowModal();
        loadShortcuts();
    });
}

void frmMain::deleteShortcut()
{
    Guarded("frmMain, ID_ToolbarEditDel()"_L1, [&] {
        const QString question = u"Вы дейсвительно хотите удалить ярлык '"_s + m_shortcut + u"'?"_s;
        if (!program.dialogs.Ask(question, Box::Question | Box::SafeDefault)) return;
        if (!DeleteQuery(program.queries(), m_shortcut)) {
            program.dialogs.MsgBox(u"Ошибка удаления ярлыка!"_s);
            return;
        }
        loadShortcuts();
    });
}
