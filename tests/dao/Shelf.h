#pragma once

#include "dao/DBEngine.h"
#include "platform/Clock.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// A clock that stands where a test puts it.
struct FixedClock final : Clock {
    QDateTime moment{QDate(2003, 5, 17), QTime(10, 20, 30)};
    QDateTime now() const override { return moment; }
};

/// An engine with one database: styles, discs that refer to them, borrowers whose loans go with them.
struct Shelf : testing::Test {
    QTemporaryDir folder;
    FixedClock clock;
    DBEngine engine{clock};
    QString path = folder.filePath(u"vinora.db"_s);

    Shelf() { engine.CreateDatabase(path); }

    static TableDef table(const QString& name, QList<FieldDef> fields, const QString& key = {},
                          QList<Relation> relations = {})
    {
        return {name, std::move(fields), key, std::move(relations)};
    }

    /// Стиль, Аудио, ИменаДолжников, Должники and Track without any constraint.
    Database open()
    {
        Database db = engine.OpenDatabase(path);
        if (db.HasTable(u"Стиль"_s)) return db;
        CommandScope scope(engine);
        db.CreateTable(table(u"Аудио"_s,
                             {{u"КодАудиоДиск"_s, FieldType::Long, 0, true},
                              {u"Номер"_s, FieldType::Integer},
                              {u"Название"_s, FieldType::Text, 10},
                              {u"Альбом"_s, FieldType::Text, 60, false, true},
                              {u"КодСтиля"_s, FieldType::Long},
                              {u"ДатаЗаписи"_s, FieldType::Date, 0, false, false, FieldDefault::Today},
                              {u"ДатаИзменения"_s, FieldType::Date},
                              {u"Должник"_s, FieldType::Boolean}},
                             u"КодАудиоДиск"_s,
                             {{u"АудиоСтиль"_s, u"Стиль"_s, u"КодСтиля"_s, u"Аудио"_s, u"КодСтиля"_s, true, false}}));
        db.CreateTable(table(
            u"Стиль"_s, {{u"КодСтиля"_s, FieldType::Long, 0, true}, {u"Стиль"_s, FieldType::Text, 50, false, true}},
            u"КодСтиля"_s));
        db.CreateTable(table(u"ИменаДолжников"_s,
                             {{u"КодИмени"_s, FieldType::Long, 0, true}, {u"Имя"_s, FieldType::Text, 50}},
                             u"КодИмени"_s));
        db.CreateTable(table(
            u"Должники"_s,
            {{u"КодДолжника"_s, FieldType::Long, 0, true},
             {u"КодИмяДолжника"_s, FieldType::Long},
             {u"ДатаВозврата"_s, FieldType::Date},
             {u"Долг"_s, FieldType::Boolean, 0, false, false, FieldDefault::True}},
            u"КодДолжника"_s,
            {{u"Должники"_s, u"ИменаДолжников"_s, u"КодИмени"_s, u"Должники"_s, u"КодИмяДолжника"_s, false, true}}));
        scope.end();
        return db;
    }

    /// A row of Стиль; its key.
    static qint64 style(const Database& db, const QString& name)
    {
        Recordset rows = db.OpenRecordset(u"Стиль");
        rows.AddNew();
        rows[u"Стиль"] = name;
        const qint64 key = Value(rows[u"КодСтиля"]).toLong();
        rows.Update();
        return key;
    }

    /// A row of Аудио without a style.
    static qint64 disc(const Database& db, int number, const QString& title)
    {
        Recordset rows = db.OpenRecordset(u"Аудио");
        rows.AddNew();
        rows[u"Номер"] = number;
        rows[u"Название"] = title;
        const qint64 key = Value(rows[u"КодАудиоДиск"]).toLong();
        rows.Update();
        return key;
    }

    /// All rows as one text: fields parted by blanks, rows by "|", Null as "-".
    static std::string all(const Database& db, QStringView select, const QList<Value>& parameters = {})
    {
        const Recordset rows = db.OpenRecordset(select, parameters);
        QStringList lines;
        for (int i = 0; i < rows.RecordCount(); ++i) {
            QStringList values;
            for (const Value& value : rows.row(i)) values += value.isNull() ? u"-"_s : value.text();
            lines += values.join(u' ');
        }
        return lines.join(u'|').toStdString();
    }
};

/// The number of the RuntimeError that an action throws, 0 without one.
template<class Action> int errorOf(Action action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}
