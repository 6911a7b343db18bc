#include "store/TrackLists.h"

#include "store/Schema.h"

bool CreateTrackTable(const Database& tracks, const Database& main, const QString& id)
{
    return CreateList(tracks, main, Audio(), id);
}

TrackListWriter::TrackListWriter(const Database& tracks, const QString& id)
    : m_list(tracks.OpenRecordset(u"SELECT * FROM [%1]"_s.arg(id)))
{}

void TrackListWriter::add(const QString& name)
{
    m_list.AddNew();
    m_list[u"Номер"] = ++m_number;
    m_list[u"Название"] = name.isEmpty() ? Value() : Value(name.left(FieldLength::TrackName));
    m_list.Update();
}

void ImportTrackList(const Database& tracks, const QString& id, const QStringList& names)
{
    TrackListWriter list(tracks, id);
    for (const QString& name : names) list.add(name.isEmpty() ? u"- нет -"_s : name);
}

void CreateLinkDiskID(const Database& main, DiscOfRow disc, const QString& id, int tracks, const QString& time)
{
    QHash<QString, Value> fields{{CatalogueKind::listField(disc.disc), id}, {u"Записей%1"_s.arg(disc.disc), tracks}};
    if (!time.isEmpty() && time.size() <= FieldLength::PlayingTime) fields[u"Время%1"_s.arg(disc.disc)] = time;
    SetFields(main, Audio(), disc.key, fields);
}

QString TrackListSource(const QString& id) { return u"SELECT * FROM [%1] ORDER BY Номер"_s.arg(id); }

bool TrackListIsReadable(const Database& tracks, const QString& id)
{
    if (!tracks.HasTable(id)) return false;
    const QStringList fields = tracks.OpenRecordset(u"SELECT * FROM [%1] WHERE False"_s.arg(id)).FieldNames();
    return std::ranges::all_of(TrackTable(id).fields,
                               [&](const FieldDef& field) { return fields.contains(field.name, Qt::CaseInsensitive); });
}

QStringList TrackNames(const Database& tracks, const QString& id)
{
    QStringList names;
    Recordset rows = tracks.OpenRecordset(u"SELECT * FROM [%1]"_s.arg(id));
    for (; !rows.AtEOF(); rows.MoveNext()) names += rows[u"Название"].text();
    return names;
}
