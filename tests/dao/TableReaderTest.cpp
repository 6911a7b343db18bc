#include "dao/TableReader.h"

#include "Shelf.h"
#include "dao/Collation.h"
#include "dao/Like.h"

#include <array>
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
                    reader.read(table, Selection(Styles, criterion), [&](const TableReader::Row& row) {
                        seen += std::string(row.text(0)) + ' ';
                        return true;
                    });
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

TEST_F(Reader, EndsAtTheRowBehindWhichNoMoreAreWanted)
{
    db.CreateTable(table(u"1A"_s, {{u"Стиль"_s, FieldType::Text, 50}}));
    CommandScope scope(engine);
    db.Execute(u"INSERT INTO [1A] VALUES (\"а\")");
    for (int i = 0; i < 12; ++i) db.Execute(u"INSERT INTO [1A] SELECT * FROM [1A]"); // on more pages than one
    scope.end();
    TableReader reader(db);
    int byStatement = 0, byPages = 0;
    reader.reading([&] {
        reader.read(u"1A"_s, Selection(Styles), [&](const TableReader::Row&) { return ++byStatement < 3; });
        EXPECT_TRUE(reader.readTexts(u"1A"_s, std::array<std::string_view, 1>{"Стиль"},
                                     [&](std::span<const std::string_view>) { return ++byPages < 3; }));
    });
    EXPECT_EQ(byStatement, 3);
    EXPECT_EQ(byPages, 3);
}

namespace {

struct Pages : Reader {
    static constexpr std::array<std::string_view, 3> Asked{"b", "a", "b"};

    /// Both ways of reading must tell the same; "no" where the pages are left to a statement.
    static std::string compare(TableReader& reader, const QString& table)
    {
        std::string byPages, byStatement;
        const auto print = [](std::string& out, std::string_view text) {
            (out += text.data() ? std::string(text) : "Null") += '|';
        };
        reader.reading([&] {
            const bool read = reader.readTexts(table, Asked, [&](std::span<const std::string_view> texts) {
                for (const std::string_view text : texts) print(byPages, text);
                return true;
            });
            if (!read) byPages = "no";
            reader.read(table, Selection({u"b"_s, u"a"_s, u"b"_s}), [&](const TableReader::Row& row) {
                for (int i = 0; i < 3; ++i) print(byStatement, row.text(i));
                return true;
            });
        });
        if (byPages == "no") return byPages;
        EXPECT_EQ(byPages, byStatement);
        return byPages == byStatement ? "same" : "other";
    }
    static void run(sqlite3* raw, const char* sql)
    {
        EXPECT_EQ(sqlite3_exec(raw, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql << sqlite3_errmsg(raw);
    }
    /// Changes the file as another program would.
    void outside(const std::function<void(sqlite3*)>& change)
    {
        db.Close();
        engine.Release(path);
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &raw), SQLITE_OK);
        change(raw);
        sqlite3_close(raw);
        db = engine.OpenDatabase(path);
    }
};

} // namespace

TEST_F(Pages, TellWhatAStatementTells)
{
    db.CreateTable(table(u"Список 1"_s, {{u"n"_s, FieldType::Integer},
                                         {u"a"_s, FieldType::Text, 255},
                                         {u"x, (y"_s, FieldType::Date},
                                         {u"b"_s, FieldType::Text, 255, false, true}}));
    TableReader reader(db);
    EXPECT_EQ(compare(reader, u"Список 1"_s), "same");
    std::mt19937 random(5);
    for (int round = 0; round < 3; ++round) {
        const CommandScope scope(engine);
        for (int i = 0; i < 4000; ++i) {
            const auto text = [&](int most) -> Value {
                if (random() % 9 == 0) return {};
                return QString(int(random() % unsigned(most)) + 1, QChar(char16_t(u'а' + random() % 32)));
            };
            const Value b = random() % 9 == 0 ? Value(QString(u""_s)) : text(100);
            db.Execute(u"INSERT INTO [Список 1] (n, a, b) VALUES (?, ?, ?)",
                       {int(random() % 60000) - 30000, text(250), b});
        }
        db.Execute(u"DELETE FROM [Список 1] WHERE n > ?", {15000 - round * 10000});
    }
    EXPECT_EQ(compare(reader, u"Список 1"_s), "same");
}

TEST_F(Pages, LeaveWhatIsOutOfTheOrdinaryToAStatement)
{
    const std::pair<const char*, const char*> cases[] = {
        {"CREATE TABLE t (\"a\" TEXT, \"b\" TEXT); INSERT INTO t VALUES ('1', '2'), (NULL, '')", "same"},
        {"CREATE TABLE t (\"c\" INTEGER PRIMARY KEY, \"b\" TEXT, \"a\" TEXT); INSERT INTO t VALUES (7, '1', '2')",
         "same"},
        {"CREATE TABLE t (\"b\" TEXT, \"a\" TEXT, CONSTRAINT x UNIQUE (\"a\")); INSERT INTO t VALUES ('1', '2')",
         "same"},
        {"CREATE TABLE t (a TEXT, b TEXT); INSERT INTO t VALUES ('1', '2')", "no"},
        {"CREATE TABLE t (\"a\", \"b\"); INSERT INTO t VALUES ('1', '2'), ('3', 4)", "no"},
        {"CREATE TABLE t (\"a\", \"b\"); INSERT INTO t VALUES ('1', '2'), ('3', x'31')", "no"},
        {"CREATE TABLE t (\"a\" TEXT, \"b\" TEXT); INSERT INTO t VALUES ('1', printf('%9000d', 1))", "no"},
        {"CREATE TABLE t (\"a\" TEXT, \"c\" TEXT AS ('x') VIRTUAL, \"b\" TEXT); INSERT INTO t VALUES ('1', '2')", "no"},
        {"CREATE TABLE t (\"a\" TEXT PRIMARY KEY, \"b\" TEXT) WITHOUT ROWID; INSERT INTO t VALUES ('1', '2')", "no"},
        {"CREATE TABLE t (\"a\" TEXT); INSERT INTO t VALUES ('1'); ALTER TABLE t ADD COLUMN \"b\" TEXT DEFAULT 'x'",
         "no"},
    };
    for (const auto& [sql, expected] : cases) {
        outside([&](sqlite3* raw) {
            run(raw, "DROP TABLE IF EXISTS t");
            run(raw, sql);
        });
        TableReader reader(db);
        EXPECT_EQ(compare(reader, u"t"_s), expected) << sql;
    }
    TableReader reader(db);
    reader.reading([&] { EXPECT_FALSE(reader.readTexts(u"нет"_s, Pages::Asked, [](auto) { return true; })); });
}

TEST_F(Pages, DamageIsNeitherACrashNorAnEndlessWalk)
{
    outside([](sqlite3* raw) {
        run(raw, "CREATE TABLE t (\"a\" TEXT, \"b\" TEXT)");
        run(raw, "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<9000) "
                 "INSERT INTO t SELECT 'name ' || i, printf('%0100d', i) FROM n");
    });
    db.Close();
    engine.Release(path);
    QFile whole(path);
    ASSERT_TRUE(whole.open(QFile::ReadOnly));
    const QByteArray bytes = whole.readAll();
    std::mt19937 random(6);
    int decoded = 0;
    for (int round = 0; round < 150; ++round) {
        QByteArray damaged = bytes;
        for (int i = 0; i < 200; ++i) {
            // Mostly in the headers of pages and their cells.
            const qsizetype page = qsizetype(random() % unsigned(bytes.size() / 4096)) * 4096;
            const qsizetype at = page + qsizetype(random() % (random() % 2 ? 16 : 4096));
            if (at >= 100) damaged[at] = char(random());
        }
        const QString copy = folder.filePath(u"damaged.db"_s);
        QFile file(copy);
        ASSERT_TRUE(file.open(QFile::WriteOnly | QFile::Truncate));
        file.write(round % 3 ? damaged : damaged.first(qsizetype(random() % unsigned(damaged.size())) + 1));
        file.close();
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open_v2(copy.toUtf8().constData(), &raw, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
        TablePages pages;
        if (pages.open(raw, 1))
            decoded += pages.read("t", Pages::Asked, [](std::span<const std::string_view> texts) {
                for (const std::string_view text : texts) EXPECT_LT(text.size(), 65536u);
                return true;
            });
        sqlite3_close(raw);
    }
    EXPECT_LT(decoded, 150);
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
