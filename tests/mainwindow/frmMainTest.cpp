#include "mainwindow/frmMain.h"
#include "harness/ScreenTest.h"

#include <QFile>
#include <QMimeData>
#include <QToolBar>
#include <QToolButton>

class MainWindow : public ScreenTest {
protected:
    MainWindow() { drives.v.images[u"/images/zima.iso"_s] = FakeDisc::data(u"ZIMA"_s, 0x1A2B3C4D); }

    template<class Body> void walk(const Body& body)
    {
        play(
            [&] {
                frmMain window(program);
                window.Load();
                runner.show(window);
            },
            body);
    }
    QToolButton::ToolButtonPopupMode addButtonPopup()
    {
        for (QToolButton* button : control<QToolBar>("Каталоги").findChildren<QToolButton*>())
            if (button->defaultAction() && button->defaultAction()->objectName() == u"ID_AddCD")
                return button->popupMode();
        ADD_FAILURE() << "there is no button to add a disc";
        return {};
    }
    void putIn() { drives.v.insert(u"/images/zima.iso"_s); }
    void watch()
    {
        setOption(u"Drive"_s, u"V:\\"_s);
        setOption(u"CheckCD"_s, u"1"_s);
        setOption(u"tmrCD"_s, u"1"_s); // a steady sign
    }
};

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
        EXPECT_FALSE(commandEnabled("ID_Catalog_AudioCD"));
        EXPECT_FALSE(commandEnabled("ID_Due_List"));
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

TEST_F(MainWindow, AnImagePutInIsSeenAndWatchedFromThenOn)
{
    drives.add(u'D');
    walk([&]() -> Script {
        EXPECT_EQ(shown("ID_DB_DefaultCDDVDROM"), u"D:\\"_s);
        EXPECT_FALSE(commandEnabled("ID_Drive_Eject"));
        expectOpenFile("Вставить образ диска", "/images/gone.iso");
        expectBox("Образ не вставлен.\r\n\r\nПапка файла '/images/gone.iso' не найдена.", 48);
        co_await trigger("ID_Drive_Insert");
        EXPECT_EQ(option(u"CheckCD"_s), QString());

        expectOpenFile("Вставить образ диска", "/images/zima.iso");
        co_await trigger("ID_Drive_Insert");
        EXPECT_EQ(shown("ID_DB_DefaultCDDVDROM"), u"V:\\"_s);
        EXPECT_EQ(option(u"Drive"_s), u"V:\\"_s);
        EXPECT_EQ(option(u"CheckCD"_s), u"1"_s);
        EXPECT_TRUE(shown("lblDriveMedium").contains(u"«ZIMA»"_s));
        co_await advance(500);
        EXPECT_TRUE(visible("lblNewPC"));
        EXPECT_EQ(shown("lblNewPC"), u"Диск (?)\nне привязан не к одному номеру в каталоге"_s);
        EXPECT_FALSE(visible("lblNewDVD"));
        EXPECT_FALSE(visible("lblSharePC")) << "discs cannot be bound yet";

        co_await trigger("ID_Drive_Eject");
        co_await advance(1000);
        EXPECT_FALSE(visible("lblNewPC"));
        EXPECT_TRUE(shown("lblDriveMedium").startsWith(u"Диска нет"_s));
        setOption(u"CheckCD"_s, u"0"_s);
        expectOpenFile("Вставить образ диска", "/images/zima.iso");
        co_await trigger("ID_Drive_Insert");
        EXPECT_EQ(option(u"CheckCD"_s), u"0"_s) << "what the user decided stays";
        co_await advance(2000);
        EXPECT_FALSE(visible("lblNewPC"));
    });
}

TEST_F(MainWindow, TheImageStaysInTheDriveOverARestart)
{
    walk([&]() -> Script {
        expectOpenFile("Вставить образ диска", "/images/zima.iso");
        co_await trigger("ID_Drive_Insert");
    });
    drives.v.eject();
    walk([&]() -> Script {
        EXPECT_EQ(drives.v.imagePath(), u"/images/zima.iso"_s);
        EXPECT_TRUE(commandEnabled("ID_Drive_Eject"));
        co_await trigger("ID_Drive_Eject");
    });
    walk([&]() -> Script {
        EXPECT_EQ(drives.v.imagePath(), QString());
        co_return;
    });
}

TEST_F(MainWindow, AKnownDiscIsNamedOnItsCard)
{
    shelf.computer(12, "Debian").discs(3).bound(2, "1A2B3C4D");
    putIn();
    watch();
    walk([&]() -> Script {
        co_await advance(1000);
        EXPECT_TRUE(visible("lblNewPC"));
        EXPECT_EQ(shown("lblNewPC"), u"Диск № 12 (CD2):\nDebian"_s);
        co_await picture("known-disc");
        drives.v.medium.reset();
        co_await advance(1000);
        EXPECT_FALSE(visible("lblNewPC"));
        EXPECT_EQ(hint("StatusBar_3"), u"Диска в устройстве нет"_s);
    });
}

TEST_F(MainWindow, AddingOpensTheCatalogueOnTheNewDiscAndIsRemembered)
{
    shelf.computer(1, "Debian");
    walk([&]() -> Script {
        EXPECT_EQ(addButtonPopup(), QToolButton::InstantPopup);
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
        co_await trigger("ID_AddCD");
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
        co_await trigger("ID_View_Toolbars_Due");
        EXPECT_FALSE(visible("Должники"));
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
        EXPECT_FALSE(visible("Должники"));
        expectEnd();
        co_await closeForm();
    });
    for (const QString& left : {u"~vinora.db"_s, u"~vinora_files.db"_s, u"~vinora_tracks.db"_s})
        EXPECT_FALSE(QFile::exists(path(left)));
    EXPECT_EQ(rows(u"SELECT COUNT(*) FROM Стиль"_s), u"31\n"_s) << "the compacted database is the same";
}

TEST_F(MainWindow, TheCorrectionOfACategoryLooksAtTheDiscAnew)
{
    putIn();
    watch();
    walk([&]() -> Script {
        const QString question =
            "Используйте эту функцию для корректировки принадлежности диска к какой-либо категории "
            "при невозможности определить ее верно в автоматическом режиме! Продолжить?";
        expectBox(question, 36);
        expectForm("frmSelectCategory");
        co_await trigger("ID_Catalog_ChangeCategory");
        co_await check("optDVD", true);
        co_await key(Qt::Key_Return);
        co_await advance(1000);
        EXPECT_TRUE(visible("lblNewDVD"));
        EXPECT_FALSE(visible("lblNewPC"));
    });
}
