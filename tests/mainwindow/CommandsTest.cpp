#include "mainwindow/Commands.h"

#include "ui/Icons.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QWidget>
#include <gtest/gtest.h>

TEST(Commands, EveryEntryOfAMenuOrToolbarIsSomething)
{
    QWidget owner;
    const Commands commands(&owner);
    QSet<QString> known{u"-"_s, u"ID_DB_DefaultCDDVDROM"_s};
    for (const Command& command : AllCommands()) {
        EXPECT_FALSE(known.contains(command.id)) << command.id.toStdString();
        known += command.id;
        EXPECT_TRUE(command.icon.isEmpty() || iconNames().contains(command.icon)) << command.icon.toStdString();
    }
    for (const MenuDef& menu : AllMenus()) known += menu.id;

    const auto check = [&](const QString& where, const QStringList& entries) {
        for (const QString& entry : entries)
            EXPECT_TRUE(known.contains(entry)) << (where + u": "_s + entry).toStdString();
    };
    for (const MenuDef& menu : AllMenus()) check(menu.id, menu.entries);
    for (const ToolbarDef& bar : AllToolbars()) {
        check(bar.name, bar.entries);
        EXPECT_TRUE(bar.toggle.isEmpty() || commands.action(bar.toggle)->isCheckable()) << bar.name.toStdString();
    }
}

TEST(Commands, NoTwoShareAShortcutOrAMnemonicOfTheirMenu)
{
    QSet<QString> shortcuts;
    for (const Command& command : AllCommands()) {
        if (command.shortcut.isEmpty()) continue;
        const QString keys = command.shortcut.toString();
        EXPECT_FALSE(shortcuts.contains(keys)) << keys.toStdString();
        shortcuts += keys;
    }

    QWidget owner;
    const Commands commands(&owner);
    for (const MenuDef& def : AllMenus()) {
        QString taken;
        for (const QAction* action : commands.menu(def.id)->actions()) {
            const qsizetype at = action->text().indexOf(u'&');
            if (at < 0) continue;
            const QChar letter = action->text().at(at + 1).toLower();
            EXPECT_FALSE(taken.contains(letter)) << (def.id + u": "_s + action->text()).toStdString();
            taken += letter;
        }
    }
}

TEST(Commands, MenusHoldTheWholeVocabulary)
{
    // Menus by their captions and identifiers, entries likewise; those of drive and dictionaries are apart.
    const char* const told[] = {
        "Каталог ID_Catalog: Аудио диски ID_Catalog_AudioCD, Компьютерные диски ID_Catalog_PCCD, DVD диски "
        "ID_Catalog_DVD, Добавить ID_Catalog_AddCD, Изменить номер диска ID_Catalog_ChangeNumber, "
        "Изменить категорию диска ID_Catalog_ChangeCategory, Выход ID_Quit",
        "Добавить ID_Catalog_AddCD: Аудио диск ID_Catalog_AddAudioCD, Компьютерный диск ID_Catalog_AddPCCD, "
        "DVD диск ID_Catalog_AddDVD",
        "Должники ID_Due: Список Должников ID_Due_List, История дисков ID_Due_DiskHistory, Статистика ID_Due_Stat, "
        "Редактирование имен должников ID_Due_EditNames, Управление должниками ID_Due_Admin",
        "База данных ID_DB: Открыть... ID_DB_Open, Открыть локальную ID_DB_OpenLocal, Сохранить как... ID_DB_Save, "
        "Экспорт ID_DB_Export, Импорт... ID_DB_Import, Мастер обслуживания ID_DB_Wizard, Параметры ID_DB_Option, "
        "Поиск ID_DB_Search",
        "Экспорт ID_DB_Export: HTML-файл... ID_DB_ExportHTML, DB-файл... ID_DB_ExportDB",
        "Вид ID_View: Панели инструментов ID_View_Toolbars, Панель vinora ID_Panel",
        "Панели инструментов ID_View_Toolbars: Каталоги ID_View_Toolbars_Catalog, Должники ID_View_Toolbars_Due, "
        "База данных ID_View_Toolbars_DB, Настройка... ID_View_Toolbars_Option",
        "Помощь ID_Help: Справка ID_Help_Index, Информация ID_Help_Info, О программе ID_Help_About",
        " ID_QuickAD: Каталог ID_QuickADCatalog, Новый диск ID_QuickADNewCD, Поиск треков... ID_QuickADFind, "
        "Новый Должник ID_QuickADNewDue",
        " ID_QuickPC: Каталог ID_QuickPCCatalog, Новый диск ID_QuickPCNewCD, Поиск файлов... ID_QuickPCFind, "
        "Новый должник ID_QuickPCNewDue",
        " ID_QuickDVD: Каталог ID_QuickDVDCatalog, Новый диск ID_QuickDVDNewCD, Новый должник ID_QuickDVDNewDue",
        " ID_ToolbarEdit: Добавить ID_ToolbarEditAdd, Удалить ID_ToolbarEditDel, Изменить ID_ToolbarEditChange",
    };
    QWidget owner;
    const Commands commands(&owner);
    QStringList menus;
    for (const MenuDef& def : AllMenus()) {
        if (def.id == u"ID_DB_Dictionaries") continue;
        QStringList entries;
        for (const QAction* action : commands.menu(def.id)->actions()) {
            const QString id = action->menu() ? action->menu()->objectName() : action->objectName();
            if (!action->isSeparator() && !id.contains(u"_Drive") && id != u"ID_DB_Dictionaries")
                entries += QString(action->text()).remove(u'&') + u' ' + id;
        }
        menus += u"%1 %2: %3"_s.arg(QString(def.text).remove(u'&'), def.id, entries.join(u", "_s));
    }
    for (const char* menu : told) EXPECT_TRUE(menus.removeOne(QString::fromUtf8(menu))) << menu;
    EXPECT_EQ(menus, QStringList());
}
