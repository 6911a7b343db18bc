#include "Shelf.h"

namespace {

struct Dialect : Shelf {
    Database db = open();

    Dialect()
    {
        disc(db, 1, u"Кино"_s);
        disc(db, 2, u"Abba"_s);
        disc(db, 10, u"Ёлка 5"_s);
    }

    std::string numbers(QStringView criterion, const QList<Value>& parameters = {})
    {
        return all(db, u"SELECT Номер FROM Аудио WHERE %1 ORDER BY Номер"_s.arg(criterion), parameters);
    }
};

} // namespace

TEST_F(Dialect, TextInEitherQuotationMarkIsTextEvenWhenAFieldIsCalledSo)
{
    EXPECT_EQ(numbers(u"Название = \"кино\""), "1");
    EXPECT_EQ(numbers(u"Название = 'КИНО'"), "1");
    EXPECT_EQ(numbers(u"Название = \"Название\""), "");
    EXPECT_EQ(numbers(u"\"abc\" = 'ABC' AND Номер < 3"), "1|2");
    db.Execute(u"UPDATE Аудио SET Альбом = \"say \"\"hi\"\" it's\" WHERE Номер = 1");
    EXPECT_EQ(numbers(u"Альбом = 'SAY \"hi\" it''s'"), "1");
}

TEST_F(Dialect, NamesInAnyCaseAndInBracketsAreTheRealOnes)
{
    EXPECT_EQ(numbers(u"[название] like 'К*' and аудио.НОМЕР = 1"), "1");
    EXPECT_EQ(all(db, u"select count(*) from аудио;"), "3");
    EXPECT_EQ(errorOf([&] { numbers(u"Нечто = 1"); }), DaoErrorNumber::NoSuchParameter);
    EXPECT_EQ(errorOf([&] { db.OpenRecordset(u"SELECT * FROM Нечто"); }), DaoErrorNumber::TableNotFound);
    for (const auto name : {u"sqlite_schema", u"a b"})
        EXPECT_EQ(errorOf([&] { db.OpenRecordset(name); }), DaoErrorNumber::TableNotFound);
}

TEST_F(Dialect, ATableNameMayBeginWithADigitOrBeANumber)
{
    for (const QString& name : {u"1A2B3C4D"_s, u"12345"_s, u"1E5"_s}) {
        db.CreateTable(table(name, {{u"Размер"_s, FieldType::Text, 11}}));
        db.Execute(u"INSERT INTO %1 (Размер) VALUES ('7')"_s.arg(name));
        EXPECT_EQ(all(db, u"Select Размер From "_s + name), "7");
        EXPECT_EQ(all(db, u"SELECT * FROM ["_s + name + u"] ORDER BY Размер"_s), "7");
        EXPECT_EQ(all(db, u"SELECT * FROM Аудио, %1 WHERE %1.Размер = '7' AND Номер = 99"_s.arg(name)), "");
        EXPECT_EQ(db.OpenRecordset(name).RecordCount(), 1);
    }
}

TEST_F(Dialect, LikeKnowsItsWildcardsAndBothAlphabetsWithoutCase)
{
    const std::tuple<const char16_t*, const char16_t*, bool> cases[] = {
        {u"*КИН*", u"Группа Кино", true},
        {u"кин*", u"Кино", true},
        {u"*ино", u"КИНО", true},
        {u"к?но", u"Кино", true},
        {u"к?но", u"Кно", false},
        {u"**", u"x", true},
        {u"*", u"", true},
        {u"track ##", u"Track 07", true},
        {u"track ##", u"Track x7", false},
        {u"[а-д]*", u"Ёж", false},
        {u"[д-ж]*", u"Ёж", true},
        {u"[!a-c]bba", u"Abba", false},
        {u"[!x]bba", u"Abba", true},
        {u"a[*]b", u"a*b", true},
        {u"a[*]b", u"axb", false},
        {u"*[z*", u"a[Zb", true},
        {u"*a*b*c*", u"xAyBzC", true},
        {u"*a*b*c*", u"xAyCzB", false},
        {u"*рр*", u"Ѐ", false},
        {u"*аба*", u"абабвАБА", true},
        {u"ё*", u"Елка", false},
        {u"*ООК*", u"Сообок", false},
        {u"*анна*", u"панана АННА", true},
        {u"100%", u"100%", true},
        {u"1__", u"1ab", false},
        {u"*ß", u"Straß", true},
        {u"*ΑΣ*", u"λασ", true},
    };
    for (const auto& [pattern, text, expected] : cases)
        EXPECT_EQ(db.Scalar(u"SELECT ? LIKE ?", {text, pattern}).toBool(), expected)
            << QString::fromUtf16(pattern).toStdString() << " ~ " << QString::fromUtf16(text).toStdString();
    EXPECT_EQ(numbers(u"Номер LIKE 1"), "1");
    EXPECT_EQ(numbers(u"Номер LIKE '1*'"), "1|10");
    EXPECT_EQ(numbers(u"Альбом LIKE '*'"), ""); // Null is like nothing
}

TEST_F(Dialect, TrueIsMinusOneAndDateIsTheProgramsToday)
{
    db.Execute(u"UPDATE Аудио SET Должник = True, ДатаИзменения = Date() WHERE Номер = 2");
    EXPECT_EQ(all(db, u"SELECT Должник, ДатаИзменения FROM Аудио WHERE Должник = True"), "-1 2003-05-17");
    EXPECT_EQ(numbers(u"Должник = False"), "1|10");
    EXPECT_EQ(numbers(u"NOT Должник AND Номер > 1"), "10");
    clock.moment = clock.moment.addDays(1);
    EXPECT_EQ(numbers(u"ДатаИзменения < Date()"), "2");
}

TEST_F(Dialect, DistinctAndAggregatesAreHeldAsValues)
{
    disc(db, 3, u"КИНО"_s);
    EXPECT_EQ(all(db, u"SELECT DISTINCT(Название) FROM Аудио ORDER BY Название"), "Abba|Ёлка 5|Кино");
    EXPECT_EQ(all(db, u"SELECT Max(Номер), Count(*) FROM Аудио"), "10 4");
    Recordset values = db.OpenRecordset(u"SELECT DISTINCT(Номер), Должник FROM Аудио ORDER BY Номер");
    EXPECT_EQ(values.FieldNames(), (QStringList{u"Номер"_s, u"Должник"_s}));
    EXPECT_EQ(errorOf([&] { values.Edit(); }), DaoErrorNumber::NotUpdatable);
    EXPECT_EQ(db.Scalar(u"SELECT ДатаЗаписи FROM Аудио WHERE Номер = ?", {1}).date(), QDate(2003, 5, 17));
    EXPECT_TRUE(db.Scalar(u"SELECT Номер FROM Аудио WHERE Номер = 77").isNull());
}

TEST_F(Dialect, ParametersAreValuesWhateverTheyHold)
{
    disc(db, 4, u"a\"'?;--"_s);
    EXPECT_EQ(numbers(u"Название = ?", {u"A\"'?;--"}), "4");
    EXPECT_EQ(numbers(u"Название = '?' OR Номер = ?", {2}), "2");
    EXPECT_EQ(numbers(u"ДатаЗаписи = ? AND Должник = ? AND Номер = 1", {QDate(2003, 5, 17), false}), "1");
    EXPECT_EQ(errorOf([&] { numbers(u"Номер = ?"); }), DaoErrorNumber::NoSuchParameter);
    EXPECT_EQ(errorOf([&] { numbers(u"Номер = ?", {1, 2}); }), DaoErrorNumber::NoSuchParameter);
}

TEST_F(Dialect, MalformedTextIsRefusedBeforeItDoesAnything)
{
    for (QStringView select :
         {u"SELECT * FROM", u"SELECT * FROM Аудио WHERE Название = \"a\"b\"", u"SELECT * FROM Аудио WHERE (Номер = 1",
          u"SELECT * FROM Аудио; DELETE FROM Аудио", u"SELECT * FROM [Аудио", u"SELECT * FROM Аудио #"})
        EXPECT_EQ(errorOf([&] { db.OpenRecordset(select); }), DaoErrorNumber::MalformedStatement)
            << select.toString().toStdString();
    for (QStringView statement : {u"DROP TABLE Аудио", u"UPDATE", u"PRAGMA user_version = 5", u"", u"SELECT 1"})
        EXPECT_EQ(errorOf([&] { db.Execute(statement); }), DaoErrorNumber::MalformedStatement)
            << statement.toString().toStdString();
    Recordset rows = db.OpenRecordset(u"Аудио");
    for (QStringView criterion : {u"", u"Название = \"a\"b\"", u"Номер = 1) OR (1 = 1", u"Номер =", u"Номер = 1; x",
                                  u"Номер = 1 ORDER BY Номер", u"Номер = 1 UNION SELECT 1"})
        EXPECT_EQ(errorOf([&] { rows.FindFirst(criterion); }), DaoErrorNumber::MalformedCriterion)
            << criterion.toString().toStdString();
    EXPECT_EQ(errorOf([&] { rows.FindFirst(u"load_extension('x')"); }), DaoErrorNumber::UndefinedFunction);
    EXPECT_EQ(rows.RecordCount(), 3);
}

TEST_F(Dialect, TextIsOrderedLatinBeforeCyrillicWithoutCaseAndЁBesideЕ)
{
    db.Execute(u"DELETE FROM Аудио");
    const QStringList order{u"!x"_s,   u"1"_s,   u"2"_s,   u"abba"_s, u"Beatles"_s, u"café"_s, u"ZZ Top"_s, u"елка"_s,
                            u"Ёлка"_s, u"ель"_s, u"Жук"_s, u"икар"_s, u"Йод"_s,     u"КИНО"_s, u"кино 2"_s, u"Якорь"_s};
    for (int i = 0; i < order.size(); ++i) disc(db, (i * 7) % 16, order[i]);
    EXPECT_EQ(all(db, u"SELECT Название FROM Аудио ORDER BY Название"), order.join(u'|').toStdString());
    EXPECT_EQ(numbers(u"Название = 'йод'"), numbers(u"Название = 'ЙОД'"));
    EXPECT_EQ(numbers(u"Название > 'якорь' OR Название < '1'"), "0");
    EXPECT_EQ(numbers(u"Название = 'cafe'"), "");
}
