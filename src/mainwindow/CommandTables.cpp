#include "mainwindow/Commands.h"

const QList<Command>& AllCommands()
{
    static const QList<Command> all{
        // Каталог
        {u"ID_Catalog_AudioCD"_s, u"&Аудио диски"_s, u"disc-audio"_s, {u"Ctrl+1"_s}, u"frmCatalogueAudioCD"_s},
        {u"ID_Catalog_PCCD"_s, u"&Компьютерные диски"_s, u"disc-data"_s, {u"Ctrl+2"_s}, u"frmCataloguePCCD"_s},
        {u"ID_Catalog_DVD"_s, u"&DVD диски"_s, u"disc-dvd"_s, {u"Ctrl+3"_s}, u"frmCatalogueDVD"_s},
        {u"ID_Catalog_AddAudioCD"_s, u"&Аудио диск"_s, u"disc-audio"_s, {}, u"frmAddInCatalogueAudio"_s},
        {u"ID_Catalog_AddPCCD"_s, u"&Компьютерный диск"_s, u"disc-data"_s, {}, u"frmAddInCataloguePC"_s},
        {u"ID_Catalog_AddDVD"_s, u"&DVD диск"_s, u"disc-dvd"_s, {}, u"frmAddInCatalogueDVD"_s},
        {u"ID_AddCD"_s, u"Добавить"_s, u"add-disc"_s, {u"Ctrl+N"_s}, {}, u"Добавить"_s},
        {u"ID_Catalog_ChangeNumber"_s, u"Изменить &номер диска"_s, u"number"_s, {}, u"frmChangeNumber"_s},
        {u"ID_Catalog_ChangeCategory"_s, u"Изменить ка&тегорию диска"_s, u"category"_s, {}, u"frmSelectCategory"_s},
        {u"ID_Quit"_s, u"В&ыход"_s, u"quit"_s, {u"Ctrl+Q"_s}},
        // Должники
        {u"ID_Due_List"_s, u"&Список Должников"_s, u"people"_s, {u"Ctrl+D"_s}, u"frmDue"_s},
        {u"ID_Due_DiskHistory"_s, u"&История дисков"_s, u"history"_s, {}, u"frmDiskHistory"_s},
        {u"ID_Due_Stat"_s, u"С&татистика"_s, u"statistics"_s, {}, u"frmDueStat"_s},
        {u"ID_Due_EditNames"_s, u"&Редактирование имен должников"_s, u"person"_s, {}, u"frmEditDue"_s},
        {u"ID_Due_Admin"_s, u"&Управление должниками"_s, u"loan"_s, {}, u"frmAddInDueFromMain"_s},
        // База данных
        {u"ID_DB_Open"_s, u"&Открыть..."_s, u"open"_s, {u"Ctrl+O"_s}, u"OpenExternalDB"_s},
        {u"ID_DB_OpenLocal"_s, u"Открыть &локальную"_s, u"open-local"_s, {}, u"OpenExternalDB"_s},
        {u"ID_DB_Save"_s, u"&Сохранить как..."_s, u"save-as"_s, {}, u"mnuDBSave"_s},
        {u"ID_DB_ExportHTML"_s, u"&HTML-файл..."_s, u"export-html"_s, {}, u"frmExport"_s},
        {u"ID_DB_ExportDB"_s, u"&DB-файл..."_s, u"export-db"_s, {}, u"mnuDBExportDB"_s},
        {u"ID_DB_Import"_s, u"&Импорт..."_s, u"import"_s, {}, u"frmImport"_s},
        {u"ID_DB_Wizard"_s, u"&Мастер обслуживания"_s, u"wizard"_s, {}, u"frmDBWizard"_s},
        {u"ID_DB_EditStyle"_s, u"&Стили аудио дисков"_s, u"disc-audio"_s, {}, u"frmEditStyle"_s},
        {u"ID_DB_EditDescription"_s, u"&Описания компьютерных дисков"_s, u"disc-data"_s, {}, u"frmEditDescription"_s},
        {u"ID_DB_EditGenre"_s, u"&Жанры DVD"_s, u"disc-dvd"_s, {}, u"frmEditGenre"_s},
        {u"ID_DB_Option"_s, u"П&араметры"_s, u"options"_s, {}, u"frmOption"_s},
        {u"ID_DB_Search"_s, u"&Поиск"_s, u"search"_s, {u"Ctrl+F"_s}, u"frmDBFind"_s},
        // Вид
        {u"ID_View_Toolbars_Catalog"_s, u"&Каталоги"_s, {}, {}, {}, {}, true},
        {u"ID_View_Toolbars_Due"_s, u"&Должники"_s, {}, {}, {}, {}, true},
        {u"ID_View_Toolbars_DB"_s, u"&База данных"_s, {}, {}, {}, {}, true},
        {u"ID_View_Toolbars_Drive"_s, u"&Устройство"_s, {}, {}, {}, {}, true},
        {u"ID_View_Toolbars_Option"_s, u"&Настройка..."_s, u"toolbar"_s, {}, u"frmToolbars"_s},
        {u"ID_Panel"_s, u"&Панель vinora"_s, u"panel"_s, {u"F9"_s}, {}, {}, true},
        // Помощь
        {u"ID_Help_Index"_s, u"&Справка"_s, u"help"_s, {u"F1"_s}},
        {u"ID_Help_Info"_s, u"&Информация"_s, u"info"_s},
        {u"ID_Help_About"_s, u"&О программе"_s, u"about"_s, {}, u"frmHelp"_s},
        // Устройство
        {u"ID_Drive_Insert"_s, u"&Вставить образ…"_s, u"image-insert"_s, {u"Ctrl+I"_s}, {}, u"Вставить образ…"_s},
        {u"ID_Drive_Eject"_s, u"&Извлечь"_s, u"eject"_s, {u"Ctrl+E"_s}, {}, u"Извлечь"_s},
        // Меню картинок каталогов
        {u"ID_QuickADCatalog"_s, u"&Каталог"_s, u"disc-audio"_s, {}, u"frmCatalogueAudioCD"_s},
        {u"ID_QuickADNewCD"_s, u"Новый &диск"_s, u"add-disc"_s, {}, u"frmAddInCatalogueAudio"_s},
        {u"ID_QuickADFind"_s, u"&Поиск треков..."_s, u"search"_s, {}, u"frmDBFind"_s},
        {u"ID_QuickADNewDue"_s, u"&Новый Должник"_s, u"loan"_s, {}, u"frmAddInDueFromMain"_s},
        {u"ID_QuickPCCatalog"_s, u"&Каталог"_s, u"disc-data"_s, {}, u"frmCataloguePCCD"_s},
        {u"ID_QuickPCNewCD"_s, u"Новый &диск"_s, u"add-disc"_s, {}, u"frmAddInCataloguePC"_s},
        {u"ID_QuickPCFind"_s, u"&Поиск файлов..."_s, u"search"_s, {}, u"frmDBFind"_s},
        {u"ID_QuickPCNewDue"_s, u"&Новый должник"_s, u"loan"_s, {}, u"frmAddInDueFromMain"_s},
        {u"ID_QuickDVDCatalog"_s, u"&Каталог"_s, u"disc-dvd"_s, {}, u"frmCatalogueDVD"_s},
        {u"ID_QuickDVDNewCD"_s, u"Новый &диск"_s, u"add-disc"_s, {}, u"frmAddInCatalogueDVD"_s},
        {u"ID_QuickDVDNewDue"_s, u"&Новый должник"_s, u"loan"_s, {}, u"frmAddInDueFromMain"_s},
        // Меню ярлыков
        {u"ID_ToolbarEditAdd"_s, u"&Добавить"_s, u"add"_s, {}, u"frmCreateQuery"_s},
        {u"ID_ToolbarEditDel"_s, u"&Удалить"_s, u"delete"_s},
        {u"ID_ToolbarEditChange"_s, u"&Изменить"_s, u"edit"_s, {}, u"frmCreateQuery"_s},
    };
    return all;
}

const std::array<CatalogueCommands, 3>& CommandsOfCatalogues()
{
    static const std::array<CatalogueCommands, 3> all{{
        {Audio(), u"ID_Catalog_AudioCD"_s, u"ID_Catalog_AddAudioCD"_s, u"ID_QuickAD"_s, u"ID_QuickADCatalog"_s,
         u"ID_QuickADNewCD"_s},
        {Computer(), u"ID_Catalog_PCCD"_s, u"ID_Catalog_AddPCCD"_s, u"ID_QuickPC"_s, u"ID_QuickPCCatalog"_s,
         u"ID_QuickPCNewCD"_s},
        {Dvd(), u"ID_Catalog_DVD"_s, u"ID_Catalog_AddDVD"_s, u"ID_QuickDVD"_s, u"ID_QuickDVDCatalog"_s,
         u"ID_QuickDVDNewCD"_s},
    }};
    return all;
}

const QList<MenuDef>& AllMenus()
{
    static const QList<MenuDef> all{
        {u"ID_Catalog"_s,
         u"&Каталог"_s,
         {u"ID_Catalog_AudioCD"_s, u"ID_Catalog_PCCD"_s, u"ID_Catalog_DVD"_s, u"-"_s, u"ID_Catalog_AddCD"_s, u"-"_s,
          u"ID_Catalog_ChangeNumber"_s, u"ID_Catalog_ChangeCategory"_s, u"-"_s, u"ID_Drive_Insert"_s,
          u"ID_Drive_Eject"_s, u"-"_s, u"ID_Quit"_s},
         true},
        {u"ID_Catalog_AddCD"_s,
         u"До&бавить"_s,
         {u"ID_Catalog_AddAudioCD"_s, u"ID_Catalog_AddPCCD"_s, u"ID_Catalog_AddDVD"_s}},
        {u"ID_Due"_s,
         u"&Должники"_s,
         {u"ID_Due_List"_s, u"ID_Due_DiskHistory"_s, u"ID_Due_Stat"_s, u"-"_s, u"ID_Due_EditNames"_s,
          u"ID_Due_Admin"_s},
         true},
        {u"ID_DB"_s,
         u"&База данных"_s,
         {u"ID_DB_Open"_s, u"ID_DB_OpenLocal"_s, u"-"_s, u"ID_DB_Save"_s, u"ID_DB_Export"_s, u"ID_DB_Import"_s, u"-"_s,
          u"ID_DB_Wizard"_s, u"ID_DB_Dictionaries"_s, u"ID_DB_Option"_s, u"-"_s, u"ID_DB_Search"_s},
         true},
        {u"ID_DB_Dictionaries"_s,
         u"Сло&вари"_s,
         {u"ID_DB_EditStyle"_s, u"ID_DB_EditDescription"_s, u"ID_DB_EditGenre"_s}},
        {u"ID_DB_Export"_s, u"&Экспорт"_s, {u"ID_DB_ExportHTML"_s, u"ID_DB_ExportDB"_s}},
        {u"ID_View"_s, u"&Вид"_s, {u"ID_View_Toolbars"_s, u"ID_Panel"_s}, true},
        {u"ID_View_Toolbars"_s,
         u"Панели &инструментов"_s,
         {u"ID_View_Toolbars_Catalog"_s, u"ID_View_Toolbars_Due"_s, u"ID_View_Toolbars_DB"_s,
          u"ID_View_Toolbars_Drive"_s, u"-"_s, u"ID_View_Toolbars_Option"_s}},
        {u"ID_Help"_s, u"&Помощь"_s, {u"ID_Help_Index"_s, u"ID_Help_Info"_s, u"-"_s, u"ID_Help_About"_s}, true},
        {u"ID_QuickAD"_s,
         {},
         {u"ID_QuickADCatalog"_s, u"ID_QuickADNewCD"_s, u"ID_QuickADFind"_s, u"ID_QuickADNewDue"_s}},
        {u"ID_QuickPC"_s,
         {},
         {u"ID_QuickPCCatalog"_s, u"ID_QuickPCNewCD"_s, u"ID_QuickPCFind"_s, u"ID_QuickPCNewDue"_s}},
        {u"ID_QuickDVD"_s, {}, {u"ID_QuickDVDCatalog"_s, u"ID_QuickDVDNewCD"_s, u"ID_QuickDVDNewDue"_s}},
        {u"ID_ToolbarEdit"_s, {}, {u"ID_ToolbarEditAdd"_s, u"ID_ToolbarEditDel"_s, u"ID_ToolbarEditChange"_s}},
    };
    return all;
}

const QList<ToolbarDef>& AllToolbars()
{
    static const QList<ToolbarDef> all{
        {u"Каталоги"_s,
         u"ID_View_Toolbars_Catalog"_s,
         {u"ID_AddCD"_s, u"ID_Catalog_AudioCD"_s, u"ID_Catalog_PCCD"_s, u"ID_Catalog_DVD"_s}},
        {u"Должники"_s,
         u"ID_View_Toolbars_Due"_s,
         {u"ID_Due_List"_s, u"ID_Due_DiskHistory"_s, u"ID_Due_Stat"_s, u"ID_Due_Admin"_s}},
        {u"База данных"_s,
         u"ID_View_Toolbars_DB"_s,
         {u"ID_DB_Search"_s, u"ID_DB_Open"_s, u"ID_DB_OpenLocal"_s, u"ID_DB_Wizard"_s, u"ID_DB_Option"_s}},
        {u"Устройство"_s,
         u"ID_View_Toolbars_Drive"_s,
         {u"ID_DB_DefaultCDDVDROM"_s, u"ID_Drive_Insert"_s, u"ID_Drive_Eject"_s}},
    };
    return all;
}
