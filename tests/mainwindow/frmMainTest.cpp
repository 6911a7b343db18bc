#include "mainwindow/MainWindowTest.h"
#include "ui/ListBar.h"

#include <QFile>
#include <QToolBar>

TEST_F(MainWindow, AnEmptyShelfShowsZerosAndOnlyWhatIsThereIsEnabled)
{
    walk([&]() -> Script {
        EXPECT_EQ(title(), u"vinora 1.0"_s);
        for (const char* counter : {"lblCDsAudio", "lblCDsPC", "lblCDsDVD", "lblCDdueAudio", "lblCDduePC"})
            EXPECT_EQ(shown(counter), u"0"_s) << counter;
        EXPECT_EQ(shown("lblCDsPCUpdate"), u"-"_s);
        EXPECT_EQ(shown("StatusBar_1"), u"База данных - локальная"_s);
        EXPECT_EQ(shown("StatusBar_4"), u"14 ноября (пятница)"_s);
        EXPECT_TRUE(commandEnabled("ID_Catalog_PCCD"));
        EXPECT_TRUE(commandEnabled("ID_QuickPCNewCD"));
        EXPECT_TRUE(commandEnabled("ID_Catalog_AudioCD"));
        EXPECT_FALSE(commandEnabled("ID_DB_Wizard"));
        EXPECT_FALSE(visible("lblNewPC"));
        EXPECT_FALSE(visible("fraFindDuePC"));
        EXPECT_EQ(shown("ID_DB_DefaultCDDVDROM"), u"V:\\"_s);
        co_await advance(5000);
        EXPECT_EQ(shown("StatusBar_4"), u"12:00"_s);
        co_await picture("main");
    });
}

TEST_F(MainWindow, CountsDiscsLoansAndOverdueOnes)
{
    shelf.computer(1, "Debian").lent("Иванов", "2003-10-01", {}, "2003-11-14");
    shelf.computer(2, "Словари").lent("Иванов", "2003-11-01", {}, "2003-11-15");
    shelf.audio(1, "Кино").lent("Петрова", "2003-10-01");
    program.mainDatabase().Execute(u"INSERT INTO _Информация (ПослОбновлКомпьютер) VALUES (?)", {QDate(2003, 2, 1)});
    setOption(u"tmrDue"_s, u"5000"_s);
    walk([&]() -> Script {
        EXPECT_EQ(shown("lblCDsPC"), u"2"_s);
        EXPECT_EQ(shown("lblCDduePC"), u"2"_s);
        EXPECT_EQ(shown("lblCDsPCUpdate"), u"1 февраля 2003 г."_s);
        EXPECT_EQ(shown("lblFindDuePC"), u"1"_s) << "a loan due today is overdue, one due tomorrow is not";
        EXPECT_TRUE(visible("fraFindDuePC"));
        EXPECT_FALSE(visible("fraFindDueAudio")) << "a loan without a term never is";
        co_await advance(500);
        EXPECT_FALSE(visible("fraFindDuePC")) << "it blinks with a tenth of the setting";
        co_await advance(500);
        EXPECT_TRUE(visible("fraFindDuePC"));
    });

    setOption(u"CheckDueOnStartup"_s, u"0"_s);
    walk([&]() -> Script {
        EXPECT_EQ(shown("lblCDduePC"), u"2"_s);
        EXPECT_FALSE(visible("fraFindDuePC"));
        co_return;
    });
}

TEST_F(MainWindow, ALentDiscIsCountedUntilItIsTakenFromTheListOfDebtors)
{
    shelf.computer(1, "Debian");
    walk([&]() -> Script {
        expectForm("frmCataloguePCCD");
        co_await trigger("ID_Catalog_PCCD");
        expectBox("Добавить должника на диск № 1?", 36);
        expectForm("frmAddInDue");
        co_await click("imgButton_4");
        co_await keys("Иванов\n");
        EXPECT_EQ(shown("lblDue"), "Должник\nИванов");
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(shown("lblCDduePC"), "1");
        EXPECT_TRUE(visible("fraFindDuePC")) << "it is to be back today";

        expectForm("frmDue");
        co_await click("Список должников");
        expectBox("Удалить из списка должника 'Иванов'?", 36);
        co_await key(Qt::Key_Delete);
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(shown("lblCDduePC"), "0");
        EXPECT_FALSE(visible("fraFindDuePC"));

        program.shared.ExternalDBOpen = true;
        expectBox("qwe", 0);
        co_await click("Список должников");
        program.shared.ExternalDBOpen = false;
    });
}

TEST_F(MainWindow, AddingOpensTheCatalogueOnTheNewDiscAndIsRemembered)
{
    shelf.computer(1, "Debian");
    walk([&]() -> Script {
        co_await trigger("ID_View_Toolbars_Catalog");
        expectForm("frmAddCD");
        co_await key(Qt::Key_N, Qt::ControlModifier);
        EXPECT_EQ(shown("lblCDsCount0"), u"Добавление Аудио диска"_s) << "what nobody has chosen yet";
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(program.settings().read(u"Toolbars", u"LastAction"), QString());

        expectForm("frmAddCD");
        co_await click("cmd_ID_Catalog_AddPCCD");
        EXPECT_EQ(shown("txtNumber"), u"2"_s);
        expectForm("frmAddInCataloguePC");
        co_await key(Qt::Key_Return);
        expectForm("frmCataloguePCCD");
        co_await type("txtName", "Словари");
        co_await click("imgButton_0");
        EXPECT_EQ(windowName(), u"frmCataloguePCCD"_s);
        EXPECT_EQ(shown("txtNumber"), u"2"_s);
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(shown("lblCDsPC"), u"2"_s);
        EXPECT_EQ(program.settings().read(u"Toolbars", u"LastAction"), u"2"_s);

        expectForm("frmAddCD");
        co_await key(Qt::Key_N, Qt::ControlModifier);
        co_await key(Qt::Key_Escape);
        program.settings().write(u"Toolbars", u"LastAction", u"9"_s);
        co_await trigger("ID_AddCD");
        EXPECT_EQ(windowName(), u"frmMain"_s) << "an unknown action does nothing";
    });
}

TEST_F(MainWindow, LeavesOnlyAfterAQuestionAndKeepsItsLooks)
{
    walk([&]() -> Script {
        co_await trigger("ID_Panel");
        EXPECT_FALSE(visible("SSListBar"));
        control<ListBar>("SSListBar").setFoldedGroups({u"g2"_s, u"g4"_s});
        expectBox("Вы действительно хотите выйти из программы?", 36, Answer::No);
        co_await trigger("ID_Quit");
        EXPECT_EQ(windowName(), u"frmMain"_s);
        EXPECT_FALSE(QFile::exists(path(u"vinora.atb"_s)));

        expectBox("Вы действительно хотите выйти из программы?", 36, Answer::Yes);
        expectEnd();
        co_await trigger("ID_Quit");
    });
    EXPECT_EQ(program.settings().read(u"Window", u"State"), u"0"_s);

    setOption(u"ConfirmExit"_s, u"0"_s);
    setOption(u"AutoCompactDatabase"_s, u"1"_s);
    walk([&]() -> Script {
        EXPECT_FALSE(visible("SSListBar"));
        EXPECT_EQ(control<ListBar>("SSListBar").foldedGroups(), QStringList({u"g2"_s, u"g4"_s}));
        expectEnd();
        co_await closeForm();
    });
    for (const QString& left : {u"~vinora.db"_s, u"~vinora_files.db"_s, u"~vinora_tracks.db"_s})
        EXPECT_FALSE(QFile::exists(path(left)));
    EXPECT_EQ(rows(u"SELECT COUNT(*) FROM Стиль"_s), u"31\n"_s) << "the compacted database is the same";
}

TEST_F(MainWindow, CatalogueOpensFromItsLogoAndFromTheListBar)
{
    shelf.computer(1, "Debian");
    walk([&]() -> Script {
        expectPopup("ID_QuickPC", "ID_QuickPCCatalog");
        expectForm("frmCataloguePCCD");
        co_await click("imgLogoPCCD");
        co_await key(Qt::Key_Escape);
        expectPopup("ID_QuickPC", "ID_QuickPCNewCD");
        expectForm("frmAddCD");
        co_await focusOn("imgLogoPCCD");
        co_await key(Qt::Key_Return);
        co_await key(Qt::Key_Escape);
        expectPopup("ID_QuickAD", "");
        co_await click("imgLogoAD");
        expectForm("frmCataloguePCCD");
        co_await click("Компьютерные диски");
        co_await key(Qt::Key_Escape);
    });
}

TEST_F(MainWindow, TabGoesFromTheToolbarsThroughTheListBarToTheDashboard)
{
    walk([&]() -> Script {
        QStringList stops;
        co_await focusOn("ID_DB_DefaultCDDVDROM");
        while (stops.size() < 20 && focus() != u"imgShowHideoListbar"_s) {
            co_await key(Qt::Key_Tab);
            stops += focus();
        }
        EXPECT_EQ(stops.first(2).join(u' '), u"Каталоги Аудио диски"_s);
        EXPECT_EQ(stops.last(2).join(u' '), u"Запрос imgShowHideoListbar"_s);
    });
}

TEST_F(MainWindow, PanelAndToolbarsGoAndComeButTheDriveSelectorStays)
{
    const auto toolbar = [&](const QString& name) { return runner.window().findChild<QToolBar*>(name); };
    walk([&]() -> Script {
        for (const char* way : {"imgShowHideoListbar", "lblShowHideoListbar"}) {
            EXPECT_EQ(shown("lblShowHideoListbar"), u"Скрыть панель"_s);
            co_await click(way);
            EXPECT_FALSE(visible("SSListBar")) << way;
            EXPECT_FALSE(ticked(u"ID_Panel"_s)) << way;
            EXPECT_EQ(shown("lblShowHideoListbar"), u"Показать панель"_s);
            co_await click(way);
            EXPECT_TRUE(visible("SSListBar")) << way;
        }
        expectPopup("ID_View_Toolbars", "ID_View_Toolbars_DB");
        co_await rightClick("Устройство");
        EXPECT_FALSE(toolbar(u"База данных"_s)->isVisible());
        EXPECT_TRUE(toolbar(u"Устройство"_s)->isVisible());
        toolbar(u"Каталоги"_s)->hide();
        expectPopup("ID_View_Toolbars", "");
        co_await rightClick("Устройство");
        EXPECT_FALSE(ticked(u"ID_View_Toolbars_Catalog"_s)) << "the ticks tell what is in sight";
    });
}
