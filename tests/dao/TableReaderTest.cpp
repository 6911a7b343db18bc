#include "dao/TableReader.h"

#include "Shelf.h"
#include "dao/Collation.h"
#include "dao/Like.h"

#include <random>
#include <sqlite3.h>
#include <thread>

namespace {

const QStringList Styles{u"Стиль"_s};

struct Reader : Shelf {
    Database db = open();

    /// What the reader sees of the styles, on a thread of its own.
    static std::string read(TableReader& reader, QStringView criterion, const QString& table = u"Стиль"_s)
    {
        std::string seen;
        std::thread([&] {
            try {
                reader.reading([&] {
                    reader.read(table, Selection(Styles, criterion),
                                [&](const TableReader::Row& row) { seen += std::string(row.text(0)) + ' '; });
                });
            } catch (const RuntimeError& error) {
                seen = std::to_string(error.number());
            }
        }).join();
        return seen;
    }
};

} // namespace

TEST_F(Reader, SeesWhatWasWrittenBeforeItAndWhatIsCommittedLater)
{
    CommandScope scope(engine);
    for (const QString& name : {u"Рок"_s, u"Джаз"_s, u"рок-н-ролл"_s}) style(db, name);
    TableReader reader(db);
    EXPECT_EQ(read(reader, u"Стиль LIKE \"РОК*\""), "Рок рок-н-ролл ");
    EXPECT_EQ(read(reader, u"Стиль = \"РОК\""), "Рок ");
    style(db, u"Рок-опера"_s);
    EXPECT_EQ(read(reader, u"Стиль = \"Рок-опера\""), "");
    scope.end();
    EXPECT_EQ(read(reader, u"Стиль = \"Рок-опера\""), "Рок-опера ");
    db.CreateTable(table(u"1A"_s, {{u"Стиль"_s, FieldType::Text, 50}}));
    EXPECT_EQ(read(reader, {}, u"1A"_s), "");
}

TEST_F(Reader, NamesWhatIsWrongWithATable)
{
    TableReader reader(db);
    EXPECT_EQ(read(reader, {}, u"нет"_s), "3078");
    EXPECT_EQ(read(reader, {}, u"Аудио"_s), "3061");
    EXPECT_EQ(errorOf([] { Selection(Styles, u"Стиль = \"а\"б\""); }), 3077);
}

TEST_F(Reader, KeepsTheFileFromBeingReleasedAndReadsTheOneThatTookItsPlace)
{
    {
        TableReader reader(db);
        db.Close();
        EXPECT_EQ(errorOf([&] { engine.Release(path); }), 3045);
        EXPECT_EQ(read(reader, {}), "");
    }
    engine.Release(path);
}

TEST_F(Reader, VirtualTablesAndTriggersOfAForeignFileAreNotRun)
{
    db.Close();
    engine.Release(path);
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, "CREATE VIRTUAL TABLE \"1A\" USING fts5(\"Стиль\")", nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(raw);
    db = open();
    TableReader reader(db);
    EXPECT_EQ(read(reader, {}, u"1A"_s), "3075");
}

TEST_F(Reader, AReadThatTakesTooLongCanBeInterrupted)
{
    db.CreateTable(table(u"1A"_s, {{u"Стиль"_s, FieldType::Text, 50}}));
    CommandScope scope(engine);
    db.Execute(u"INSERT INTO [1A] VALUES (\"а\")");
    for (int i = 0; i < 10; ++i) db.Execute(u"INSERT INTO [1A] SELECT * FROM [1A]");
    scope.end();
    TableReader reader(db);
    int rows = 0;
    EXPECT_NE(errorOf([&] {
                  reader.reading([&] {
                      reader.read(u"1A"_s, Selection(Styles), [&](const TableReader::Row&) {
                          if (++rows == 3) std::thread([&] { reader.interrupt(); }).join();
                      });
                  });
              }),
              0);
    EXPECT_LT(rows, 1024);
    EXPECT_NE(read(reader, {}, u"1A"_s), "");
}

TEST(TextStart, NeverDecidesOtherwiseThanTheWholeTexts)
{
    std::mt19937 random(8);
    const std::u16string letters = u"aAbя ЯёЁеЕйй0-zé\u0301";
    const auto text = [&] {
        QString made;
        for (std::size_t size = random() % 12; size > 0; --size) made += QChar(letters[random() % letters.size()]);
        return made.toStdString();
    };
    const auto sign = [](int order) { return (order > 0) - (order < 0); };
    for (int i = 0; i < 20000; ++i) {
        const std::string a = text(), b = text();
        EXPECT_EQ(sign(CompareText(StartOf(a), a, StartOf(b), b)), sign(CompareText(a, b))) << a << '|' << b;
    }
}
