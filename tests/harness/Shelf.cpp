#include "harness/Shelf.h"

#include "store/DiscTables.h"
#include "store/Schema.h"

namespace {
/// The key of the row whose name it is; added with `more` when there is none.
qint64 keyOf(const Database& database, const QString& table, const QString& key, const QString& field,
             const QString& name, const QList<std::pair<QString, Value>>& more = {})
{
    const Value known = database.Scalar(u"SELECT %1 FROM %2 WHERE %3 = ?"_s.arg(key, table, field), {name});
    if (!known.isNull()) return known.toLong();
    Recordset rows = database.OpenRecordset(table);
    rows.AddNew();
    rows[field] = name;
    for (const auto& [other, value] : more) rows[other] = value;
    const qint64 added = rows.value(key).toLong();
    rows.Update();
    return added;
}

Value textOrNull(const QString& text) { return text.isEmpty() ? Value() : Value(text); }
Value dateOrNull(const QString& iso) { return iso.isEmpty() ? Value() : Value(QDate::fromString(iso, Qt::ISODate)); }

QString part(const QString& line, int index) { return line.section(u'|', index, index).trimmed(); }
}

int ShelfDisc::number() const
{
    return m_program.mainDatabase()
        .Scalar(u"SELECT Номер FROM %1 WHERE %2 = ?"_s.arg(m_kind.table, m_kind.key), {m_key})
        .toInt();
}

ShelfDisc& ShelfDisc::set(const QString& field, const Value& value)
{
    m_program.mainDatabase().Execute(u"UPDATE %1 SET %2 = ? WHERE %3 = ?"_s.arg(m_kind.table, field, m_kind.key),
                                     {value, m_key});
    return *this;
}

ShelfDisc& ShelfDisc::of(const QString& name)
{
    const DictionaryKind& dictionary = m_kind.dictionary;
    return set(dictionary.key,
               keyOf(m_program.mainDatabase(), dictionary.table, dictionary.key, dictionary.table, name));
}

ShelfDisc& ShelfDisc::playing(int disc, int tracks, const QString& time)
{
    return set(u"Записей%1"_s.arg(disc), tracks).set(u"Время%1"_s.arg(disc), time);
}

ShelfDisc& ShelfDisc::list(int disc, const QString& id, const QStringList& lines)
{
    const bool files = m_kind.list->contents == ListKind::Files;
    const Database database = ListDatabase(m_program, m_kind);
    database.CreateTable(files ? FileTable(id) : TrackTable(id));
    Recordset rows = database.OpenRecordset(id);
    int track = 0;
    for (const QString& line : lines) {
        rows.AddNew();
        if (files) {
            const QString path = part(line, 0);
            const bool folder = path.endsWith(u'\\');
            const qsizetype cut = path.lastIndexOf(u'\\') + 1;
            rows[u"Путь"] = path.first(cut);
            rows[u"Имя"] = folder ? path : path.sliced(cut);
            rows[u"Размер"] = part(line, 1).isEmpty() ? u"0"_s : part(line, 1);
            rows[u"Комментарий"] = textOrNull(part(line, 2));
        } else {
            rows[u"Номер"] = ++track;
            rows[u"Название"] = textOrNull(part(line, 0));
            rows[u"Комментарий"] = textOrNull(part(line, 1));
        }
        rows.Update();
    }
    return set(CatalogueKind::listField(disc), id);
}

ShelfDisc& ShelfDisc::lent(const QString& borrower, const QString& given, const QString& returned, const QString& due)
{
    const Value person = Shelf(m_program).borrower(borrower);
    Recordset loans = m_program.mainDatabase().OpenRecordset(u"Должники");
    loans.AddNew();
    loans[u"КодИмяДолжника"] = person;
    loans[u"КодДиска"] = m_key;
    loans[u"Категория"] = m_kind.code;
    loans[u"ДатаВыдачи"] = dateOrNull(given);
    loans[u"ДатаВозврата"] = dateOrNull(due);
    loans[u"ДатаВозвратаРеальная"] = dateOrNull(returned);
    loans[u"Долг"] = returned.isEmpty();
    loans.Update();
    return set(u"Должник"_s, returned.isEmpty());
}

ShelfDisc Shelf::audio(int number, const QString& name, const QString& album)
{
    return disc(Audio(), number, name).set(u"Альбом"_s, album);
}

ShelfDisc Shelf::computer(int number, const QString& name) { return disc(Computer(), number, name); }
ShelfDisc Shelf::dvd(int number, const QString& name) { return disc(Dvd(), number, name); }

ShelfDisc Shelf::disc(const CatalogueKind& kind, int number, const QString& name)
{
    Recordset rows = m_program.mainDatabase().OpenRecordset(kind.table);
    rows.AddNew();
    rows[u"Номер"] = number;
    rows[u"Название"] = name;
    rows[u"Дисков"] = 1;
    rows[kind.dictionary.key] = 1; // nothing chosen
    const qint64 key = rows.value(kind.key).toLong();
    rows.Update();
    return {m_program, kind, key};
}

qint64 Shelf::borrower(const QString& name, const QString& phone)
{
    return keyOf(m_program.mainDatabase(), u"ИменаДолжников"_s, u"КодИмени"_s, u"Имя"_s, name,
                 {{u"Телефон"_s, textOrNull(phone)}});
}
