// What the main window does with databases that cannot be written, vanish, or are given up to a full disk.
#include "harness/ScreenTest.h"
#include "mainwindow/frmMain.h"
#include "platform/CodePage1251.h"
#include "platform/Files.h"
#include "store/DatabaseSet.h"
#include "store/StartUp.h"

#include <QDir>
#include <QFile>

class DatabaseFaults : public ScreenTest {
protected:
    /// As the program starts.
    template<class Body> void start(const Body& body)
    {
        play(
            [&] {
                SetFilePaths(program);
                PrepareDatabases(program);
                frmMain window(program);
                window.Load();
                runner.show(window);
            },
            body);
    }
    void startWithoutAnEvent()
    {
        start([]() -> Script { co_return; });
    }
    void expectReadOnlyTold()
    {
        for (int database = 0; database < 3; ++database)
            expectBox("Папка '/sys' доступна только для чтения!"); // where not even root can create a file
    }
    void expectReadOnlyQuestion(const QString& folder, Answer answer)
    {
        expectBox(u"Папка '%1' доступна только для чтения! Локальная работа с базой данных не возможна!\n\n"
                  u"Восстановить путь к локальной базе данных?"_s.arg(folder),
                  Box::Warning, answer);
    }
    /// A journal that leads nowhere keeps even root from writing the main database of a folder.
    static void makeReadOnly(const QString& folder)
    {
        ASSERT_TRUE(QFile::link(u"/none/such"_s, folder + u"/vinora.db-journal"_s));
    }
    QString log()
    {
        QFile file(path("bugreport.log"));
        return file.open(QFile::ReadOnly) ? DecodeCp1251(file.readAll()) : QString();
    }
};

TEST_F(DatabaseFaults, AReadOnlyFolderWithoutDatabasesIsGivenUpForTheApplicationFolderOrTheProgramEnds)
{
    if (NewFileError("/sys") == 0) GTEST_SKIP() << "/sys, where not even root can create a file, is not mounted";
    shelf.computer(1, "Debian");
    ASSERT_TRUE(WritePathLocalDB(program, "/sys"));
    expectReadOnlyTold();
    expectReadOnlyQuestion("/sys", Answer::No);
    expectEnd();
    startWithoutAnEvent();
    EXPECT_EQ(ReadPathLocalDB(program), "/sys");

    program.shared = {};
    expectReadOnlyTold();
    expectReadOnlyQuestion("/sys", Answer::Yes);
    start([&]() -> Script {
        EXPECT_EQ(shown("lblCDsPC"), "1");
        co_return;
    });
    EXPECT_EQ(ReadPathLocalDB(program), folder.path());
}

TEST_F(DatabaseFaults, AReadOnlyFolderWithDatabasesIsAskedAboutUntilOneCanBeWritten)
{
    engine.ReleaseAll();
    QDir(folder.path()).mkdir("ro");
    for (const QString& name : {u"vinora.db"_s, u"vinora_files.db"_s, u"vinora_tracks.db"_s})
        ASSERT_TRUE(QFile::copy(path(name), path(u"ro/"_s + name)));
    makeReadOnly(path("ro"));
    makeReadOnly(folder.path());
    ASSERT_TRUE(WritePathLocalDB(program, path("ro")));
    expectReadOnlyQuestion(path("ro"), Answer::Yes);
    expectReadOnlyQuestion(folder.path(), Answer::No);
    expectEnd();
    startWithoutAnEvent();
    EXPECT_EQ(ReadPathLocalDB(program), folder.path());
}

TEST_F(DatabaseFaults, ADatabaseThatIsReplacedMeanwhileIsTakenAndOneThatIsGoneIsAFault)
{
    shelf.computer(1, "Debian");
    engine.ReleaseAll();
    ASSERT_TRUE(QFile::copy(path("vinora.db"), path("other.db")));
    shelf.computer(2, "Словари");
    start([&]() -> Script {
        EXPECT_EQ(shown("lblCDsPC"), "2");
        expectForm("frmAddCD");
        co_await trigger("ID_Catalog_AddPCCD");
        QFile::remove(path("vinora.db"));
        QFile::rename(path("other.db"), path("vinora.db"));
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(shown("lblCDsPC"), "1");

        expectForm("frmAddCD");
        co_await trigger("ID_Catalog_AddPCCD");
        QFile::remove(path("vinora.db"));
        expectFault("frmMain, LoadData()");
        co_await key(Qt::Key_Escape);
    });
    EXPECT_TRUE(log().endsWith("(Код: 3024) frmMain, LoadData()\r\n")) << log().toStdString();
}

TEST_F(DatabaseFaults, ADatabaseThatIsReplacedUnderAnOpenCatalogueIsNotWritten)
{
    shelf.computer(1, "Debian");
    engine.ReleaseAll();
    ASSERT_TRUE(QFile::copy(path("vinora.db"), path("other.db")));
    start([&]() -> Script {
        expectForm("frmCataloguePCCD");
        co_await trigger("ID_Catalog_PCCD");
        QFile::remove(path("vinora.db"));
        QFile::rename(path("other.db"), path("vinora.db"));
        expectBox("Вы действительно хотите удалить диск № 1?\rСтруктура файлов этого диска будет также удалена.", 36);
        expectFault("frmCataloguePCCD, cmdDelete()");
        co_await click("imgButton_2");
    });
    EXPECT_TRUE(log().endsWith("(Код: 3045) frmCataloguePCCD, cmdDelete()\r\n")) << log().toStdString();
    EXPECT_EQ(rows("SELECT Номер FROM Компьютер"), "1\n");
}

TEST_F(DatabaseFaults, WhatWasDoneInAnOpenCatalogueOutlivesALaterFailure)
{
    shelf.computer(1, "Debian");
    shelf.computer(2, "Словари");
    start([&]() -> Script {
        expectForm("frmCataloguePCCD");
        co_await trigger("ID_Catalog_PCCD");
        co_await focusOn("DBGrid");
        expectBox("Вы действительно хотите удалить диск № 1?\rСтруктура файлов этого диска будет также удалена.", 36);
        co_await key(Qt::Key_Delete);
        engine.Rollback();
        EXPECT_EQ(rows("SELECT Номер FROM Компьютер"), "2\n");
        co_await key(Qt::Key_Escape);
        EXPECT_EQ(shown("lblCDsPC"), "1");
    });
}
