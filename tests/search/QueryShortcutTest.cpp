#include "search/QueryShortcut.h"

#include "harness/ScreenTest.h"

namespace {

class QueryShortcuts : public ScreenTest {
protected:
    Profile queries = program.queries();

    StoredQuery query(const QString& name, const QString& value) const
    {
        return {name, "AD", {QueryFragment({"Название", "=", value})}};
    }
    QString read(const QString& section, const QString& key) const { return queries.read(section, key); }
};

}

TEST_F(QueryShortcuts, FragmentsAreBuiltOfTheFieldAndTakenApartAgain)
{
    const std::tuple<const CatalogueKind&, QueryCondition, QString> cases[] = {
        {Audio(), {"Номер", "<", "10"}, "And Номер < 10"},
        {Dvd(), {"Номер", "LIKE", "1"}, "And Номер LIKE 1"},
        {Audio(), {"Название", "LIKE", "abc"}, "And Название LIKE '*abc*'"},
        {Dvd(), {"Название", "=", "два слова "}, "And Название = 'два слова '"},
        {Audio(), {"Стиль", "LIKE", "Rock & Roll"}, "And Стиль LIKE '*Rock & Roll*'"},
        {Dvd(), {"Жанр", "=", "Drum'n'Bass"}, "And Жанр = 'Drum''n''Bass'"},
        {Computer(), {"Описание", "LIKE", "'n*"}, "And Описание LIKE '*''n**'"},
        {Computer(), {"Название", "=", "'"}, "And Название = ''''"},
    };
    for (const auto& [kind, condition, fragment] : cases) {
        EXPECT_EQ(QueryFragment(condition), fragment);
        EXPECT_EQ(SplitQueryFragment(kind, fragment), condition) << qPrintable(fragment);
    }
    EXPECT_EQ(QueryFragment({"Альбом", "=", "[\"x\"]"}), "And Альбом = '(''x'')'");
    EXPECT_EQ(SplitQueryFragment(Audio(), "Номер > 7"), (QueryCondition{"Номер", ">", "7"}));
    for (const QString other : {"", "And", "And Номер", "And Номер =", "And Номер = x", "And Номер > 5 Or Номер < 3",
                                "And Номер < 123456", "And Жанр = 'x'", "And Название > 'x'", "And Название = 'it's'",
                                "And Название = 'a' Or Название = 'b'", "And Название LIKE 'x*'", "And (Номер > 5)"})
        EXPECT_FALSE(SplitQueryFragment(Audio(), other)) << qPrintable(other);
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
    second.fragments[2] = "And Номер > 5";
    ASSERT_TRUE(StoreQuery(queries, second));
    EXPECT_EQ(ReadStoredQuery(queries, "Второй"), second);
    EXPECT_EQ(second.filter(), "And Название = 'b' And Номер > 5");

    ASSERT_TRUE(StoreQuery(queries, query("Первый", "c"), "Запрос2"));
    EXPECT_EQ(read("Query", "Count") + read("1", "Name") + read("2", "Name"), "2ПервыйВторой");
    EXPECT_FALSE(ReadStoredQuery(queries, "Запрос2"));
    EXPECT_EQ(ReadStoredQuery(queries, "Первый"), query("Первый", "c"));
}

TEST_F(QueryShortcuts, DeletingOneMovesTheOthersUpAlsoWhenTheFileWasEdited)
{
    const auto file = [&] {
        QStringList lines;
        for (const QString n : {"1", "2", "3"}) lines += n + ' ' + read(n, "Name") + ' ' + read(read(n, "Name"), "Num");
        return lines.join(", ");
    };
    for (const QString name : {"Новинки", "Группы", "Все"}) ASSERT_TRUE(StoreQuery(queries, query(name, "a")));
    queries.write(u"Новинки", u"Num", "99999999999999999999");
    EXPECT_TRUE(DeleteQuery(queries, "Новинки"));
    EXPECT_EQ(read("Query", "Count") + ": " + file(), "2: 1 Группы 1, 2 Все 2, 3  ");
    EXPECT_FALSE(ReadStoredQuery(queries, "Новинки"));
    EXPECT_TRUE(ReadStoredQuery(queries, "Все"));

    queries.removeSection(u"Группы");
    EXPECT_TRUE(DeleteQuery(queries, "Группы"));
    EXPECT_FALSE(DeleteQuery(queries, "Группы"));
    EXPECT_EQ(QueryNames(queries), QStringList("Все"));
    queries.write(u"Query", u"Count", "99999999999");
    queries.write(u"1000", u"Name", "Последний");
    queries.write(u"1001", u"Name", "Чужой");
    EXPECT_EQ(QueryNames(queries), QStringList({"Все", "Последний"}));
    queries.removeSection(u"Query");
    EXPECT_FALSE(DeleteQuery(queries, "Все"));
}

TEST_F(QueryShortcuts, NamesAreFreeWhenNeitherAShortcutNorTheFileNeedsThem)
{
    ASSERT_TRUE(StoreQuery(queries, query("Рок", "a")));
    for (const QString taken : {"Рок", "рОК"}) EXPECT_TRUE(QueryNameTaken(queries, taken)) << qPrintable(taken);
    for (const QString reserved : {"Query", "query", "1", "27"})
        EXPECT_TRUE(QueryNameReserved(reserved)) << qPrintable(reserved);
    EXPECT_FALSE(QueryNameTaken(queries, "рок", "Рок"));
    EXPECT_FALSE(QueryNameTaken(queries, "Рок 2") || QueryNameReserved("Рок 2"));
    for (const QString entered : {" \"Лучшее\" ", "[a]=b;", "日本 'x'", ";x"}) {
        const QString name = QueryName(entered);
        ASSERT_TRUE(StoreQuery(queries, query(name, "a")));
        EXPECT_EQ(read(read("Query", "Count"), "Name"), name);
        EXPECT_TRUE(ReadStoredQuery(queries, name)) << qPrintable(name);
    }
}
