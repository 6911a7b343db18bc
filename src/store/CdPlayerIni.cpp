#include "store/CdPlayerIni.h"

#include "platform/Files.h"
#include "platform/Literals.h"

#include <QDir>

/// Readers take blanks and one pair of quotation marks from the ends of a value; another pair keeps those that are its own.
static QString protectedEnds(const QString& text)
{
    if (text.isEmpty()) return text;
    const QChar first = text.front(), last = text.back();
    const bool quoted = text.size() > 1 && first == last && (first == u'"' || first == u'\'');
    return quoted || first.isSpace() || last.isSpace() ? u'"' + text + u'"' : text;
}

CdPlayerIni::CdPlayerIni() : m_file(SystemProfileFolder() + u"/cdplayer.ini"_s) {}

std::optional<CdPlayerEntry> CdPlayerIni::read(const QString& id) const
{
    const QHash<QString, QString> values = m_file.values(id);
    const QString count = values.value(u"numtracks"_s);
    if (count.isEmpty()) return {};
    CdPlayerEntry entry{values.value(u"artist"_s).trimmed(), values.value(u"title"_s).trimmed(), {}};
    const int tracks = BoundedInt(Val(count), 0, MostTracks);
    for (int i = 0; i < tracks; ++i) entry.tracks += values.value(QString::number(i)).trimmed();
    return entry;
}

bool CdPlayerIni::write(const QString& id, const CdPlayerEntry& entry) const
{
    Profile::Entries entries{{u"EntryType"_s, u"1"_s},
                             {u"artist"_s, protectedEnds(entry.artist)},
                             {u"title"_s, protectedEnds(entry.title)},
                             {u"numtracks"_s, QString::number(entry.tracks.size())}};
    for (qsizetype i = 0; i < entry.tracks.size(); ++i)
        entries.append({QString::number(i), protectedEnds(entry.tracks[i])});
    return QDir().mkpath(SystemProfileFolder()) && m_file.write(id, entries);
}
