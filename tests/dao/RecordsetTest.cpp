#include "Shelf.h"

namespace {

struct Rows : Shelf {
    Database db = open();

    static std::string walk(Recordset& rows, QStringView field)
    {
        QStringList values;
        for (; !rows.AtEOF(); rows.MoveNext()) values += rows[field].isNull() ? u"-"_s : rows[field].text();
        return values.join(u' ').toStdString();
    }

    void discs(int count)
    {
        CommandScope scope(engine);
        for (int i = 1; i <= count; ++i) disc(db, i, u"Диск %1"_s.arg(i));
        scope.end();
    }
};

} // namespace

TEST_F(Rows, OpenOnTheFirstRowAndMoveWithinTheirEnds)
{
    Recordset empty = db.OpenRecordset(u"Аудио");
    EXPECT_TRUE(empty.AtBOF() && empty.AtEOF());
    EXPECT_EQ(empty.AbsolutePosition(), -1);
    EXPECT_EQ(errorOf([&] { empty.MoveFirst(); }), DaoErrorNumber::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { empty.value(u"Номер"); }), DaoErrorNumber::NoCurrentRecord);

    discs(3);
    Recordset rows = db.OpenRecordset(u"SELECT * FROM Аудио ORDER BY Номер DESC");
    EXPECT_EQ(rows.AbsolutePosition(), 0);
    EXPECT_EQ(walk(rows, u"Номер"), "3 2 1");
    EXPECT_TRUE(rows.AtEOF() && !rows.AtBOF());
    EXPECT_EQ(errorOf([&] { rows.MoveNext(); }), DaoErrorNumber::NoCurrentRecord);
    rows.MovePrevious();
    EXPECT_EQ(rows[u"номер"].toInt(), 1);
    rows.SetAbsolutePosition(1);
    EXPECT_EQ(rows[u"Аудио.Номер"].toInt(), 2);
    EXPECT_EQ(errorOf([&] { rows.SetAbsolutePosition(3); }), DaoErrorNumber::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { rows.value(u"Нечто"); }), DaoErrorNumber::NoSuchItem);
    rows.MoveFirst();
    rows.MovePrevious();
    EXPECT_TRUE(rows.AtBOF() && !rows.AtEOF());
    rows.Close();
    EXPECT_EQ(errorOf([&] { rows.MoveFirst(); }), DaoErrorNumber::Closed);
}

TEST_F(Rows, ACounterIsKnownFromAddNewOnAndNeverGivenTwice)
{
    Recordset rows = db.OpenRecordset(u"Стиль"), others = db.OpenRecordset(u"Стиль");
    rows.AddNew();
    others.AddNew();
    EXPECT_EQ(rows[u"КодСтиля"].toInt(), 1);
    EXPECT_EQ(others[u"КодСтиля"].toInt(), 2);
    others.Update();
    rows.Update();
    EXPECT_EQ(style(db, u"Jazz"_s), 3);
    db.Execute(u"DELETE FROM Стиль WHERE КодСтиля = 3");
    rows.AddNew();
    rows.CancelUpdate();
    EXPECT_GE(style(db, u"Rock"_s), 4);

    // Keys can be told, as copies of a table do; numbering goes on behind them.
    rows.AddNew();
    rows[u"КодСтиля"] = 70;
    rows.Update();
    EXPECT_EQ(style(db, u"Pop"_s), 71);

    db.Execute(u"DELETE FROM Стиль");
    for (Recordset* each : {&rows, &others}) each->Close();
    db.Close();
    engine.Release(path);
    EXPECT_EQ(style(open(), u"Folk"_s), 72);
}

TEST_F(Rows, ANewRowHasItsDefaultsAndJoinsAtTheEnd)
{
    discs(2);
    Recordset rows = db.OpenRecordset(u"SELECT * FROM Аудио ORDER BY Номер");
    clock.moment = QDateTime(QDate(2004, 2, 29), QTime(23, 59));
    rows.AddNew();
    EXPECT_EQ(rows[u"ДатаЗаписи"].date(), QDate(2004, 2, 29));
    EXPECT_TRUE(rows[u"ДатаИзменения"].isNull());
    EXPECT_EQ(Value(rows[u"Должник"]), Value(false));
    rows[u"Номер"] = -7;
    rows.Update();
    EXPECT_EQ(rows.AbsolutePosition(), 0);
    EXPECT_EQ(rows[u"Номер"].toInt(), 1); // the row before is current again
    EXPECT_EQ(walk(rows, u"Номер"), "1 2 -7");

    db.Execute(u"INSERT INTO Аудио (Номер) VALUES (8)");
    EXPECT_EQ(all(db, u"SELECT ДатаЗаписи, ДатаИзменения, Должник FROM Аудио WHERE Номер = 8"), "2004-02-29 - 0");

    Recordset loans = db.OpenRecordset(u"Должники");
    loans.AddNew();
    EXPECT_TRUE(loans[u"Долг"].toBool());
    loans[u"Долг"] = false;
    loans.Update();
    EXPECT_EQ(all(db, u"SELECT Долг FROM Должники"), "0");
}

TEST_F(Rows, AMoveOrCloseDropsTheRowInTheMaking)
{
    discs(2);
    Recordset rows = db.OpenRecordset(u"Аудио");
    rows.AddNew();
    rows[u"Номер"] = 9;
    rows.MoveNext();
    EXPECT_EQ(errorOf([&] { rows.Update(); }), DaoErrorNumber::NotEditing);
    EXPECT_EQ(errorOf([&] { rows[u"Номер"] = 9; }), DaoErrorNumber::NotEditing);
    rows.Edit();
    rows[u"Номер"] = 9;
    EXPECT_EQ(rows[u"Номер"].toInt(), 9);
    rows.CancelUpdate();
    EXPECT_EQ(rows[u"Номер"].toInt(), 2);
    rows.AddNew();
    rows.Close();
    EXPECT_EQ(all(db, u"SELECT Номер FROM Аудио"), "1|2");
}

TEST_F(Rows, EditsKeepTheOrderOfTheKeysThroughAWalk)
{
    discs(200);
    Recordset rows = db.OpenRecordset(u"SELECT * FROM Аудио ORDER BY Номер");
    CommandScope scope(engine);
    for (; !rows.AtEOF(); rows.MoveNext()) {
        rows.Edit();
        rows[u"Номер"] = rows[u"Номер"].toInt() + 1;
        rows.Update();
        // Only this row is another by now, in every recordset.
        EXPECT_EQ(rows[u"Номер"].toInt(), rows.AbsolutePosition() + 2);
        if (rows.AbsolutePosition() + 1 < 200) {
            EXPECT_EQ(rows.row(rows.AbsolutePosition() + 1)[1].toInt(), rows.AbsolutePosition() + 2);
        }
    }
    EXPECT_EQ(db.Scalar(u"SELECT Sum(Номер) FROM Аудио").toInt(), 200 * 201 / 2 + 200);
    for (int position = 199; position >= 0; --position) EXPECT_EQ(rows.row(position)[1].toInt(), position + 2);
}

TEST_F(Rows, ADeletedRowIsAGapUntilTheNextMove)
{
    discs(3);
    Recordset rows = db.OpenRecordset(u"Аудио");
    rows.MoveNext();
    rows.Delete();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_TRUE(rows[u"Номер"].isNull());
    EXPECT_FALSE(rows.AtEOF());
    EXPECT_EQ(errorOf([&] { rows.Edit(); }), DaoErrorNumber::NoCurrentRecord);
    rows.MoveNext();
    EXPECT_EQ(rows[u"Номер"].toInt(), 3);
    rows.Delete();
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEOF());
    rows.MovePrevious();
    EXPECT_EQ(rows[u"Номер"].toInt(), 1);
    rows.Delete();
    rows.MoveNext();
    EXPECT_TRUE(rows.AtBOF() && rows.AtEOF());
}

TEST_F(Rows, ARowThatVanishedReadsAsBlankAndStaysCounted)
{
    discs(100);
    Recordset rows = db.OpenRecordset(u"SELECT * FROM Аудио ORDER BY Номер");
    EXPECT_EQ(rows.row(1)[1].toInt(), 2);
    db.Execute(u"DELETE FROM Аудио WHERE Номер = 1 OR Номер = 2");
    EXPECT_EQ(rows.RecordCount(), 100);
    EXPECT_TRUE(rows[u"Номер"].isNull());
    EXPECT_TRUE(rows.row(1)[1].isNull());
    EXPECT_EQ(rows.row(2)[1].toInt(), 3);
    rows.Edit();
    rows[u"Номер"] = 5;
    EXPECT_EQ(errorOf([&] { rows.Update(); }), DaoErrorNumber::NoCurrentRecord);
    disc(db, 500, u"x"_s);
    rows.FindFirst(u"Номер > 99");
    EXPECT_EQ(rows[u"Номер"].toInt(), 100);
    rows.FindNext(u"Номер > 99");
    EXPECT_TRUE(rows.NoMatch()); // what others add is not among these rows
}

TEST_F(Rows, FindsGoByPositionAndForgetWhenSomethingIsWritten)
{
    for (const int number : {5, 3, 5, 1, 5}) disc(db, number, u"x"_s);
    Recordset rows = db.OpenRecordset(u"SELECT * FROM Аудио ORDER BY Номер DESC, КодАудиоДиск DESC");
    rows.FindLast(u"Номер = 5");
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    EXPECT_EQ(rows[u"КодАудиоДиск"].toInt(), 1);
    rows.FindNext(u"Номер = 5");
    EXPECT_TRUE(rows.NoMatch());
    EXPECT_EQ(rows.AbsolutePosition(), 2); // a miss stays
    rows.FindFirst(u"Номер = ?", {5});
    EXPECT_EQ(rows.AbsolutePosition(), 0);
    rows.FindNext(u"Номер = ?", {3});
    EXPECT_EQ(rows.AbsolutePosition(), 3);

    rows.FindFirst(u"Номер = 5");
    db.Execute(u"UPDATE Аудио SET Номер = 6 WHERE КодАудиоДиск = 3");
    rows.FindNext(u"Номер = 5");
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    rows.FindFirst(u"Номер = 5");
    {
        CommandScope scope(engine);
        db.Execute(u"UPDATE Аудио SET Номер = 5");
        rows.FindLast(u"Номер = 5");
        EXPECT_EQ(rows.AbsolutePosition(), 4);
        engine.Rollback();
    }
    rows.FindLast(u"Номер = 5");
    EXPECT_EQ(rows.AbsolutePosition(), 2);

    Recordset whole = db.OpenRecordset(u"Аудио");
    whole.FindFirst(u"Номер = 77");
    EXPECT_TRUE(whole.NoMatch());
    EXPECT_EQ(whole[u"КодАудиоДиск"].toInt(), 1);
}

TEST_F(Rows, AJoinAnswersByTheFirstTablesFieldAndFindsByKey)
{
    const qint64 rock = style(db, u"Rock"_s), jazz = style(db, u"Jazz"_s);
    discs(6);
    db.Execute(u"UPDATE Аудио SET КодСтиля = ? WHERE Номер < 5", {rock});
    db.Execute(u"UPDATE Аудио SET КодСтиля = ? WHERE Номер = 5", {jazz});
    Recordset rows = db.OpenRecordset(u"SELECT * FROM Аудио, Стиль WHERE Аудио.КодСтиля = Стиль.КодСтиля "
                                      u"AND Название LIKE \"*диск*\" ORDER BY Стиль, Номер DESC");
    EXPECT_EQ(walk(rows, u"Номер"), "5 4 3 2 1");
    rows.FindFirst(u"КодСтиля = ? AND Номер < 3", {rock});
    EXPECT_EQ(rows.AbsolutePosition(), 3);
    rows.FindNext(u"Стиль = \"ROCK\"");
    EXPECT_EQ(rows.AbsolutePosition(), 4);
    EXPECT_EQ(rows[u"Стиль"].text(), u"Rock"_s);
    EXPECT_EQ(errorOf([&] { rows.Edit(); }), DaoErrorNumber::NotUpdatable);

    const QList<qint64> third = rows.key(2);
    EXPECT_EQ(third, (QList<qint64>{3, rock}));
    EXPECT_TRUE(rows.FindKey(third));
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    EXPECT_FALSE(rows.FindKey({3, jazz}));
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    EXPECT_EQ(all(db, u"SELECT a.Номер, b.Номер FROM Аудио AS a, Аудио b WHERE a.Номер + 1 = b.Номер AND b.Номер = 3"),
              "2 3");
}

TEST_F(Rows, AKeyThatIsChangedIsFoundAgain)
{
    style(db, u"Rock"_s);
    style(db, u"Jazz"_s);
    Recordset rows = db.OpenRecordset(u"Стиль");
    rows.Edit();
    rows[u"КодСтиля"] = 9;
    rows.Update();
    EXPECT_EQ(rows[u"Стиль"].text(), u"Rock"_s);
    EXPECT_TRUE(rows.FindKey({9}));
    rows.FindFirst(u"КодСтиля = 9");
    EXPECT_EQ(rows.AbsolutePosition(), 0);
}
