#include "search/QueryShortcut.h"

#include "harness/ScreenTest.h"

namespace {

class QueryShortcuts : public ScreenTest {
protected:
    Profile queries = program.queries();

    StoredQuery query(const QString& name, const QString& value) const
    {
        return {name, "AD", {QueryCondition{"Название", "=", value}}};
    }
    QString read(const QString& section, const QString& key) const { return queries.read(section, key); }
};

}

TEST_F(QueryShortcuts, FragmentsAreBuiltOfTheFieldAndTakenApartAgain)
{
    const std::pair<QueryCondition, QString> cases[] = {
        {{"Номер", "<", "10"}, "And Номер < 10"},
        {{"Номер", "LIKE", "1"}, "And Номер LIKE 1"},
        {{"Название", "LIKE", "abc"}, "And Название LIKE '*abc*'"},
        {{"Название", "=", "два слова "}, "And Название = 'два слова '"},
        {{"Стиль", "LIKE", "Rock & Roll"}, "And Стиль LIKE '*Rock & Roll*'"},
        {{"Жанр", "=", "Drum'n'Bass"}, "And Жанр = 'Drum''n''Bass'"},
        {{"Описание", "LIKE", "'n*"}, "And Описание LIKE '*''n**'"},
    };
    for (const auto& [condition, fragment] : cases) {
        EXPECT_EQ(QueryFragment(condition), fragment);
        EXPECT_EQ(SplitQueryFragment(fragment), condition) << qPrintable(fragment);
    }
    EXPECT_EQ(QueryFragment({"Альбом", "=", "[\"x\"]"}), "And Альбом = '(''x'')'");
    EXPECT_EQ(SplitQueryFragment("And Название = 'it's'"), (QueryCondition{"Название", "=", "its"}));
    for (const QString broken : {"", "And", "And Номер", "And Номер ="}) EXPECT_FALSE(SplitQueryFragment(broken));
}

TEST_F(QueryShortcuts, AnyValueMakesAStatementThatTheCatalogueCanRun)
{
    shelf.audio(12, "it's \"Best\"");
    shelf.audio(3, "other").of("Drum'n'Bass");
    const auto found = [&](const QueryCondition& condition) {
        return rows("SELECT Номер FROM Аудио, Стиль WHERE Аудио.КодСтиля = Стиль.КодСтиля " + QueryFragment(condition));
    };
    EXPECT_EQ(found({"Название", "LIKE", "it's"}), "12\n");
    EXPECT_EQ(found({"Стиль", "=", "drum'n'bass"}), "3\n");
    EXPECT_EQ(found({"Номер", "LIKE", "12"}), "12\n");
    for (const QString text : {"'", "''", "\"", "[", "]", "[a", "*", "' Or '1'='1", "--", ";"})
        for (const QString comparison : {"=", "LIKE"})
            EXPECT_NO_THROW(found({"Название", comparison, text})) << qPrintable(text);
}

TEST_F(QueryShortcuts, AreNumberedFromOneAndReplacedInTheirPlace)
{
    EXPECT_EQ(NewQueryName(queries), "Запрос1");
    ASSERT_TRUE(StoreQuery(queries, query("Запрос2", "a")));
    EXPECT_EQ(read("Query", "Count") + read("1", "Name") + read("Запрос2", "Num"), "1Запрос21");
    EXPECT_EQ(NewQueryName(queries), "Запрос3");
    StoredQuery second = query("Второй", "b");
    second.conditions[2] = QueryCondition{"Номер", ">", "5"};
    ASSERT_TRUE(StoreQuery(queries, second));
    EXPECT_EQ(ReadStoredQuery(queries, "Второй"), second);
    EXPECT_EQ(read("Второй", "Query1") + '|' + read("Второй", "Query2"), "And Название = 'b'|");

    ASSERT_TRUE(StoreQuery(queries, query("Первый", "c"), "Запрос2"));
    EXPECT_EQ(read("Query", "Count") + read("1", "Name") + read("2", "Name"), "2ПервыйВторой");
    EXPECT_FALSE(ReadStoredQuery(queries, "Запрос2"));
    EXPECT_EQ(ReadStoredQuery(queries, "Первый"), query("Первый", "c"));
}

TEST_F(QueryShortcuts, NamesAreFreeWhenNeitherAShortcutNorTheFileNeedsThem)
{
    ASSERT_TRUE(StoreQuery(queries, query("Рок", "a")));
    for (const QString taken : {"Рок", "рОК", "Query", "query", "1", "27"})
        EXPECT_TRUE(QueryNameTaken(queries, taken)) << qPrintable(taken);
    EXPECT_FALSE(QueryNameTaken(queries, "рок", "Рок"));
    EXPECT_FALSE(QueryNameTaken(queries, "Рок 2"));
    for (const QString entered : {" \"Лучшее\" ", "[a]=b;", "日本 'x'", ";x"}) {
        const QString name = QueryName(entered);
        ASSERT_TRUE(StoreQuery(queries, query(name, "a")));
        EXPECT_EQ(read(read("Query", "Count"), "Name"), name);
        EXPECT_TRUE(ReadStoredQuery(queries, name)) << qPrintable(name);
    }
}
