#include "catalogue/SoundFormats.h"

#include "platform/Literals.h"

#include <algorithm>

SoundFormats::SoundFormats(const Database& main)
{
    const Recordset rows = main.OpenRecordset(u"SELECT * FROM ФорматЗвука ORDER BY КодФорматЗвука"_s);
    for (int position = 0; position < rows.RecordCount(); ++position) {
        const QList<Value> row = rows.row(position);
        m_formats.append({.code = row[0].toInt(), .name = row[1].text()});
    }
}

QStringList SoundFormats::names() const
{
    QStringList names;
    for (const Format& format : m_formats) names += format.name;
    return names;
}

QStringList SoundFormats::namesOf(const QString& field) const
{
    QStringList names;
    for (const QChar character : field)
        for (const Format& format : m_formats)
            if (format.code == character.digitValue()) names += format.name;
    return names;
}

int SoundFormats::GetSoundFormatID(const QString& name) const
{
    return std::ranges::find(m_formats, name, &Format::name)->code;
}

QString SoundFormats::fieldOf(const QStringList& names) const
{
    QString field;
    for (const QString& name : names) field += QString::number(GetSoundFormatID(name)) + u',';
    return field;
}
