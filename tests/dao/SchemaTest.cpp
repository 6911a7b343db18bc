#include "Shelf.h"

#include <limits>

namespace {

struct Limits : Shelf {
    Database db = open();

    /// The error of storing a value in a new row of Аудио; what others see is unchanged then.
    int storing(QStringView field, const Value& value)
    {
        Recordset rows = db.OpenRecordset(u"Аудио");
        rows.AddNew();
        return errorOf([&] {
            rows.setValue(field, value);
            rows.Update();
        });
    }
};

} // namespace

TEST_F(Limits, EachFieldRefusesWhatItCannotHold)
{
    EXPECT_EQ(storing(u"Номер", 32767), 0);
    EXPECT_EQ(storing(u"Номер", -32768), 0);
    EXPECT_EQ(storing(u"Номер", 32768), DaoErrorNumber::OutOfRange);
    EXPECT_EQ(storing(u"Номер", u" 12 "), 0);
    EXPECT_EQ(storing(u"Номер", u"twelve"), DaoErrorNumber::WrongType);
    EXPECT_EQ(storing(u"Номер", 1e300), DaoErrorNumber::OutOfRange);
    EXPECT_EQ(storing(u"КодАудиоДиск", std::numeric_limits<qint64>::max()), DaoErrorNumber::OutOfRange);
    EXPECT_EQ(storing(u"Название", u"десятьбукв"), 0);
    EXPECT_EQ(storing(u"Название", u"десятьбукв1"), DaoErrorNumber::TextTooLong);
    EXPECT_EQ(storing(u"Название", u""), DaoErrorNumber::EmptyTextNotAllowed);
    EXPECT_EQ(storing(u"Название", {}), 0);
    EXPECT_EQ(storing(u"Альбом", u""), 0);
    EXPECT_EQ(storing(u"ДатаЗаписи", u"someday"), DaoErrorNumber::WrongType);
    EXPECT_EQ(storing(u"ДатаЗаписи", u"2003-02-28"), 0);
    EXPECT_EQ(storing(u"Должник", {}), 0);
    EXPECT_EQ(storing(u"КодСтиля", 99), DaoErrorNumber::NothingReferredTo);
    EXPECT_EQ(all(db, u"SELECT Номер FROM Аудио WHERE Номер IS NOT NULL ORDER BY КодАудиоДиск"), "32767|-32768|12");
    EXPECT_EQ(db.Scalar(u"SELECT Count(*) FROM Аудио WHERE Должник = False").toInt(), 8);
    EXPECT_EQ(errorOf([&] { db.Execute(u"UPDATE Аудио SET Номер = Номер + 1"); }), DaoErrorNumber::OutOfRange);
}

TEST_F(Limits, ARefusalNamesTableAndField)
{
    Recordset rows = db.OpenRecordset(u"Аудио");
    rows.AddNew();
    rows[u"Название"] = u"";
    try {
        rows.Update();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.description().contains(u"Аудио.Название")) << error.what();
    }
    rows[u"Название"] = u"x"; // the row is still in the making
    rows.Update();
    EXPECT_EQ(all(db, u"SELECT Название FROM Аудио"), "x");
}

TEST_F(Limits, DatesKeepTheirTimeAndCompareWithToday)
{
    ASSERT_EQ(storing(u"ДатаИзменения", clock.moment), 0);
    const Value stored = db.Scalar(u"SELECT ДатаИзменения FROM Аудио");
    EXPECT_EQ(stored.moment(), clock.moment);
    EXPECT_EQ(stored.text(), u"2003-05-17 10:20:30"_s);
    EXPECT_EQ(Value(QDate(2003, 5, 17)).text(), u"2003-05-17"_s);
    EXPECT_TRUE(Value(QDate()).isNull());
    EXPECT_TRUE(db.Scalar(u"SELECT ДатаИзменения > Date() FROM Аудио").toBool());
}

TEST_F(Limits, RelationsCascadeOrRefuse)
{
    const qint64 rock = style(db, u"Rock"_s);
    disc(db, 1, u"Кино"_s);
    db.Execute(u"UPDATE Аудио SET КодСтиля = ?", {rock});
    Recordset styles = db.OpenRecordset(u"Стиль");
    EXPECT_EQ(errorOf([&] { styles.Delete(); }), DaoErrorNumber::ReferredTo);
    EXPECT_EQ(styles.RecordCount(), 1);
    styles.Edit();
    styles[u"КодСтиля"] = 50;
    styles.Update();
    EXPECT_EQ(all(db, u"SELECT КодСтиля FROM Аудио"), "50");

    Recordset names = db.OpenRecordset(u"ИменаДолжников");
    names.AddNew();
    names[u"Имя"] = u"Иванов";
    names.Update();
    db.Execute(u"INSERT INTO Должники (КодИмяДолжника) VALUES (1)");
    EXPECT_EQ(errorOf([&] { db.Execute(u"UPDATE ИменаДолжников SET КодИмени = 2"); }), DaoErrorNumber::ReferredTo);
    db.Execute(u"DELETE FROM ИменаДолжников");
    EXPECT_EQ(db.Scalar(u"SELECT Count(*) FROM Должники").toInt(), 0);
}

TEST_F(Limits, TablesComeAndGoUnderAnyName)
{
    const QStringList before = db.TableNames();
    EXPECT_EQ(before, (QStringList{u"Аудио"_s, u"Стиль"_s, u"ИменаДолжников"_s, u"Должники"_s}));
    const QString odd = u"4\"7' ];--"_s;
    for (const QString& name : {u"12345"_s, u"1A"_s, odd}) db.CreateTable(table(name, {{u"Имя"_s, FieldType::Text}}));
    EXPECT_EQ(errorOf([&] {
                  db.CreateTable(table(u"1a"_s, {{u"x"_s, FieldType::Long}}));
              }),
              DaoErrorNumber::TableExists);
    EXPECT_EQ(errorOf([&] {
                  db.CreateTable(table(u"СТИЛЬ"_s, {{u"x"_s, FieldType::Long}}));
              }),
              DaoErrorNumber::TableExists);
    EXPECT_EQ(errorOf([&] {
                  db.CreateTable(table(u"sqlite_x"_s, {{u"x"_s, FieldType::Long}}));
              }),
              DaoErrorNumber::NotAName);
    EXPECT_EQ(db.TableNames(), before + (QStringList{u"12345"_s, u"1A"_s, odd}));

    // An open recordset does not hinder another table's end, nor its own.
    Recordset rows = db.OpenRecordset(odd), styles = db.OpenRecordset(u"Стиль");
    EXPECT_EQ(rows.RecordCount(), 0);
    for (const QString& name : {u"12345"_s, u"1a"_s, odd}) db.DropTable(name);
    EXPECT_FALSE(db.HasTable(u"1A"_s));
    EXPECT_EQ(errorOf([&] { db.DropTable(u"1A"_s); }), DaoErrorNumber::NoSuchItem);
    EXPECT_EQ(db.TableNames(), before);

    // Fields of a table are those of today, whatever a table of the same name had.
    db.CreateTable(table(u"1A"_s, {{u"Путь"_s, FieldType::Text}, {u"n"_s, FieldType::Long}}));
    EXPECT_EQ(db.OpenRecordset(u"1A").FieldNames(), (QStringList{u"Путь"_s, u"n"_s}));
}
