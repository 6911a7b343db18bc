#include "harness/FileSizeLimit.h"
#include "harness/ScreenTest.h"
#include "platform/Files.h"
#include "store/DatabaseSet.h"
#include "store/Reanimator.h"
#include "store/StartUp.h"

#include <QDir>

namespace {

class Creation : public ScreenTest {
protected:
    void lose(const QString& database)
    {
        engine.Release(database);
        DeleteFile(database);
    }
    int errorOf(const QString& statement)
    {
        try {
            program.mainDatabase().Execute(statement);
            return 0;
        } catch (const RuntimeError& error) {
            return error.number();
        }
    }
    /// A list in each of the two list databases.
    void shelve()
    {
        shelf.audio(1, "Кино").list(1, "AAAA", {"Группа крови"});
        shelf.computer(1, "Debian").list(1, "CCCC", {"\\README"});
    }
    QString fileTables() { return program.filesDatabase().TableNames().join(' '); }
    QString trackTables() { return program.tracksDatabase().TableNames().join(' '); }
    static QString question(const QString& folder)
    {
        return u"Папка '%1' не существует!\n\nВосстановить путь к локальной базе данных?"_s.arg(folder);
    }
};

}

TEST_F(Creation, FillsDictionariesInOrderWithNothingChosenAsKey1)
{
    EXPECT_EQ(rows("SELECT COUNT(*), MAX(КодСтиля) FROM Стиль"), "31 | 31\n");
    EXPECT_EQ(rows("SELECT COUNT(*), MAX(КодОписания) FROM Описание"), "23 | 23\n");
    EXPECT_EQ(rows("SELECT * FROM Жанр"),
              "1 | \n2 | Боевик\n3 | Фантастика\n4 | Комедия\n5 | Мультфильм\n6 | Ужасы\n7 | Мистика\n8 | Мелодрама\n"
              "9 | Исторический\n10 | Триллер\n");
    EXPECT_EQ(rows("SELECT * FROM ФорматЗвука WHERE КодФорматЗвука = 1"), "1 | Dolby Digital 2.0\n");
    EXPECT_EQ(fileRows("SELECT * FROM Фильтр2"), ".exe | -1\n.zip | -1\n.rar | -1\n");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM _Информация"), "0\n");
    EXPECT_EQ(trackTables(), "");
}

TEST_F(Creation, GivesRowsTheirDefaultsAndRefusesWhatFieldsAndRelationsDoNotTake)
{
    const Database main = program.mainDatabase();
    for (const auto& [table, changed] :
         {std::pair{"Аудио", "2003-11-14"}, {"Компьютер", "Null"}, {"DVD", "2003-11-14"}}) {
        main.Execute(u"INSERT INTO %1 (Номер) VALUES (1)"_s.arg(table));
        EXPECT_EQ(rows(u"SELECT ДатаЗаписи, ДатаИзменения, Должник FROM %1"_s.arg(table)),
                  u"2003-11-14 | %1 | 0\n"_s.arg(changed));
    }
    main.Execute(u"INSERT INTO Должники (Категория) VALUES ('AD')");
    EXPECT_EQ(rows("SELECT Долг, ДатаВыдачи, ДатаВозврата FROM Должники"), "-1 | 2003-11-14 | Null\n");

    shelf.audio(2, "Кино").of("Rock").lent("Иванов", "2003-01-02");
    const std::pair<const char*, int> statements[] = {
        {"INSERT INTO Аудио (Альбом) VALUES ('')", 0},
        {"INSERT INTO Аудио (Название) VALUES ('')", DaoErrorNumber::EmptyTextNotAllowed},
        {"INSERT INTO DVD (Год) VALUES ('')", DaoErrorNumber::EmptyTextNotAllowed},
        {"INSERT INTO Должники (Категория) VALUES ('ABCD')", DaoErrorNumber::TextTooLong},
        {"DELETE FROM Стиль WHERE Стиль = 'Rock'", DaoErrorNumber::ReferredTo},
        {"UPDATE Стиль SET КодСтиля = 500 WHERE Стиль = 'Rock'", 0},
        {"DELETE FROM ИменаДолжников", 0}};
    for (const auto& [statement, error] : statements) EXPECT_EQ(errorOf(statement), error) << statement;
    EXPECT_EQ(rows("SELECT КодСтиля FROM Аудио WHERE Номер = 2"), "500\n");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Должники"), "1\n") << "the loan of nobody";
}

TEST_F(Creation, OfTheMainDatabaseTakesTheListsWithIt)
{
    shelve();
    lose(program.shared.MainDBPath);
    PrepareDatabases(program);
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Аудио"), "0\n");
    EXPECT_EQ(fileTables(), "Фильтр1 Фильтр2");
    EXPECT_EQ(trackTables(), "");
}

TEST_F(Creation, OfOneListDatabaseTouchesNoOther)
{
    shelve();
    EXPECT_FALSE(Reanimator(program, 1));
    EXPECT_EQ(fileTables(), "Фильтр1 Фильтр2");
    EXPECT_EQ(trackTables(), "AAAA");

    shelf.computer(2, "Slackware").list(1, "DDDD", {"\\README"});
    lose(program.shared.TracksDBPath);
    PrepareDatabases(program);
    EXPECT_EQ(fileTables(), "Фильтр1 Фильтр2 DDDD");
    EXPECT_EQ(trackTables(), "");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Аудио"), "1\n");
}

TEST_F(Creation, OverAnExistingMainDatabaseIsAFaultThatCostsNothing)
{
    shelve();
    expectFault("vinoraModule, Reanimator()");
    play([&] { Reanimator(program, 0); });
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Аудио"), "1\n");
    EXPECT_EQ(fileTables(), "Фильтр1 Фильтр2 CCCC");
}

TEST_F(Creation, InAReadOnlyFolderIsToldAndGivenBack)
{
    if (NewFileError("/sys") == 0) GTEST_SKIP() << "/sys, where not even root can create a file, is not mounted";
    UseDatabaseFolder(program, "/sys");
    bool readOnly = false;
    expectBox("Папка '/sys' доступна только для чтения!");
    play([&] { readOnly = Reanimator(program, 0); });
    EXPECT_TRUE(readOnly);
}

TEST_F(Creation, OnAFullDiskLeavesNoHalfMadeDatabase)
{
    lose(program.shared.MainDBPath);
    expectFault("vinoraModule, Reanimator()");
    {
        const FileSizeLimit limit(16 << 10);
        play([&] { PrepareDatabases(program); });
    }
    EXPECT_FALSE(FileExists(program.shared.MainDBPath));
}

TEST_F(Creation, AtTheFirstStartHappensInTheUsersFolder)
{
    QDir(folder.path()).mkdir("базы");
    ASSERT_TRUE(WritePathLocalDB(program, path("базы")));
    SetFilePaths(program);
    PrepareDatabases(program);
    EXPECT_EQ(program.shared.MainDBPath, path("базы/vinora.db"));
    EXPECT_EQ(QDir(path("базы")).entryList({"*.db"}, QDir::Files, QDir::Name).join(' '),
              "vinora.db vinora_files.db vinora_tracks.db");
}

TEST_F(Creation, InAnUnreachableFolderAsksAndGoesOnInTheApplicationFolderOrEnds)
{
    shelf.dvd(1, "Солярис");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        ASSERT_TRUE(WritePathLocalDB(program, path("нет")));
        SetFilePaths(program);
        expectBox(question(path("нет")), Box::Warning, answer);
        if (answer == Answer::No) expectEnd();
        play([&] { PrepareDatabases(program); });
        EXPECT_EQ(ReadPathLocalDB(program), answer == Answer::No ? path("нет") : folder.path());
    }
    lose(program.shared.TracksDBPath);
    UseDatabaseFolder(program, path("нет"));
    expectBox(question(path("нет")), Box::Warning, Answer::Yes);
    play([&] { EXPECT_FALSE(Reanimator(program, 0)); });
    EXPECT_EQ(program.shared.MainDBPath, path("vinora.db"));
    EXPECT_EQ(rows("SELECT COUNT(*) FROM DVD"), "1\n");
    EXPECT_EQ(trackTables(), "");

    // The application folder may be out of reach as well.
    ASSERT_TRUE(WritePathLocalDB(program, path("нет")));
    SetFilePaths(program);
    ASSERT_TRUE(QDir(folder.path()).removeRecursively());
    expectBox(question(path("нет")), Box::Warning, Answer::Yes);
    expectBox(question(folder.path()), Box::Warning, Answer::No);
    expectEnd();
    play([&] { PrepareDatabases(program); });
}
