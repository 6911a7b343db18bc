// The switch to an external database and back.
#include "mainwindow/MainWindowTest.h"
#include "store/DatabaseSet.h"
#include "ui/ListBar.h"

#include <QDir>
#include <QFile>

class ExternalMode : public MainWindow {
protected:
    /// A friend's database with two computer discs, beside a local one with a disc that is overdue.
    void SetUp() override
    {
        shelf.computer(7, "Редкости");
        shelf.computer(8, "Игры");
        engine.ReleaseAll();
        QDir(folder.path()).mkdir(u"friend"_s);
        ASSERT_TRUE(QFile::copy(path(u"vinora.db"_s), friends));
        program.mainDatabase().Execute(u"DELETE FROM Компьютер WHERE Номер = 8");
        shelf.computer(1, "Debian").lent("Иванов", "2003-10-01", {}, "2003-11-01").bound(1, "1A2B3C4D");
        shelf.dvd(1, "Солярис");
        program.queries().write(u"Query", u"Count", u"1"_s);
        program.queries().write(u"1"_s, u"Name", u"Новинки"_s);
        program.queries().write(u"Новинки"_s, u"Category", u"PC"_s);
        putIn();
        watch();
    }
    void expectChoice(const QString& path) { expectOpenFile("Открытие базы данных vinora", path); }
    void expectRefused()
    {
        expectBox("ОШИБКА!\r\n\r\nБаза данных имеет атрибут 'только чтение', повреждена или имеет не верный формат.",
                  16);
    }
    QString groups() { return listBar().items(u"g1"_s).join(u','); }
    ListBar& listBar() { return control<ListBar>("SSListBar"); }
    /// Tools that can be used, of all that the modes tell apart.
    QStringList usable()
    {
        QStringList ids;
        for (const char* id : {"ID_Catalog_PCCD", "ID_Catalog_AddPCCD", "ID_AddCD", "ID_Catalog_ChangeCategory",
                               "ID_QuickPCCatalog", "ID_QuickPCNewCD", "ID_DB_Open", "ID_DB_OpenLocal", "ID_Due_List"})
            if (commandEnabled(id)) ids += QString::fromLatin1(id);
        return ids;
    }

    const QString friends = path(u"friend/vinora.db"_s);
};

TEST_F(ExternalMode, ShowsTheOtherDatabaseReadOnlyAndComesBackWhole)
{
    QStringList before;
    walk([&]() -> Script {
        co_await advance(1000);
        EXPECT_TRUE(visible("lblNewPC"));
        EXPECT_TRUE(visible("fraFindDuePC"));
        before = usable();
        EXPECT_FALSE(before.contains(u"ID_DB_OpenLocal"_s));
        listBar().setFoldedGroups({u"g3"_s});

        expectChoice({});
        co_await trigger("ID_DB_Open");
        expectChoice(path(u"VINORA.db"_s));
        expectBox("База данных 'VINORA.db' уже открыта.", 64);
        co_await trigger("ID_DB_Open");
        EXPECT_EQ(usable(), before);

        expectChoice(friends);
        co_await trigger("ID_DB_Open");
        EXPECT_EQ(dialogs.lastFilter(), u"База данных vinora (*.db)|*.db|Все файлы (*.*)|*.*"_s);
        EXPECT_EQ(shown("lblCDsPC"), u"2"_s);
        EXPECT_EQ(shown("lblCDsPCUpdate"), u"-"_s);
        EXPECT_EQ(shown("lblCDduePC"), u"-"_s);
        EXPECT_EQ(shown("lblCDsDVD"), u"1"_s) << "the counters of DVD stay those of the local database";
        EXPECT_EQ(shown("StatusBar_1"), u"База данных - внешняя (файл: 'vinora.db')"_s);
        EXPECT_EQ(usable(),
                  QStringList({u"ID_Catalog_PCCD"_s, u"ID_QuickPCCatalog"_s, u"ID_DB_Open"_s, u"ID_DB_OpenLocal"_s}));
        EXPECT_FALSE(enabled("ID_DB_DefaultCDDVDROM"));
        EXPECT_EQ(listBar().groupCount(), 1);
        co_await advance(3000);
        for (const char* sign : {"lblNewPC", "imgNewPC", "fraFindDuePC", "lblFindDuePC", "lblSharePC"})
            EXPECT_FALSE(visible(sign)) << sign;
        co_await picture("external");

        expectForm("frmCataloguePCCD");
        co_await trigger("ID_Catalog_PCCD");
        EXPECT_EQ(shown("lblCDsCount1"), u"2"_s);
        co_await key(Qt::Key_Escape);

        expectChoice(path(u"vinora.db"_s));
        expectBox("Открыть локальную базу данных?", 36, Answer::No);
        co_await trigger("ID_DB_Open");
        EXPECT_EQ(program.shared.MainDBPath, friends);
        co_await trigger("ID_DB_OpenLocal");
        EXPECT_FALSE(program.shared.ExternalDBOpen);
        EXPECT_EQ(shown("StatusBar_1"), u"База данных - локальная"_s);
        EXPECT_EQ(shown("lblCDduePC"), u"1"_s);
        EXPECT_TRUE(visible("fraFindDuePC"));
        EXPECT_EQ(usable(), before);
        EXPECT_TRUE(enabled("ID_DB_DefaultCDDVDROM"));
        EXPECT_EQ(listBar().groupCount(), 4);
        EXPECT_EQ(listBar().items(u"g1"_s).size(), 3) << "the catalogues are not there twice";
        EXPECT_EQ(listBar().items(u"g4"_s), QStringList(u"Новинки"_s));
        EXPECT_EQ(listBar().foldedGroups(), QStringList(u"g3"_s));
        co_await advance(1000);
        EXPECT_TRUE(visible("lblNewPC"));
    });
}

TEST_F(ExternalMode, WhatCannotBeShownLandsInTheLocalDatabase)
{
    QFile text(path(u"text.db"_s));
    ASSERT_TRUE(text.open(QFile::WriteOnly));
    text.write("no database");
    text.close();
    walk([&]() -> Script {
        for (const bool fromExternal : {false, true}) {
            if (fromExternal) {
                expectChoice(friends);
                co_await trigger("ID_DB_Open");
            }
            expectChoice(path(u"text.db"_s));
            expectRefused();
            co_await trigger("ID_DB_Open");
            EXPECT_EQ(program.shared.MainDBPath, path(u"vinora.db"_s));
            EXPECT_EQ(shown("StatusBar_1"), u"База данных - локальная"_s);
            EXPECT_TRUE(commandEnabled("ID_AddCD"));
        }
        // Gone or changed after it came on view.
        expectChoice(friends);
        co_await trigger("ID_DB_Open");
        QFile::remove(friends);
        expectBox(u"Этот каталог внешней базы данных не открывается.\r\n\r\nФайл «%1» не найден."_s.arg(friends), 48);
        co_await trigger("ID_Catalog_PCCD");
        QFile::rename(path(u"vinora_files.db"_s), path(u"lost.db"_s));
        expectBox("ОШИБКА.\r\n\r\nФайл базы данных не найден. Запуск программы невозможен.", 16);
        expectEnd();
        co_await trigger("ID_DB_OpenLocal");
    });
}

TEST_F(ExternalMode, TheProgramLeavesByWayOfTheLocalDatabase)
{
    setOption(u"ConfirmExit"_s, u"0"_s);
    setOption(u"AutoCompactDatabase"_s, u"1"_s);
    QFile file(friends);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray before = file.readAll();
    walk([&]() -> Script {
        listBar().setFoldedGroups({u"g2"_s});
        expectChoice(friends);
        co_await trigger("ID_DB_Open");
        expectEnd();
        co_await trigger("ID_Quit");
    });
    EXPECT_EQ(program.shared.MainDBPath, path(u"vinora.db"_s));
    file.seek(0);
    EXPECT_EQ(file.readAll(), before) << "it is the local one that was compacted";
    walk([&]() -> Script {
        EXPECT_EQ(listBar().foldedGroups(), QStringList(u"g2"_s));
        co_return;
    });
}
