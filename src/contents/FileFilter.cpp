#include "contents/FileFilter.h"

#include "platform/RuntimeError.h"

#include <algorithm>

/// name.toCaseFolded(), which takes longer than all the rest, for names in English and Russian letters alone.
static QString caseFolded(const QString& name)
{
    QString folded(name.size(), Qt::Uninitialized);
    QChar* to = folded.data();
    for (const QChar from : name) {
        const char16_t c = from.unicode();
        if (c >= 0x80 && (c < u'А' || c > u'я')) return name.toCaseFolded();
        const bool capital = (c >= u'A' && c <= u'Z') || (c >= u'А' && c <= u'Я');
        *to++ = capital ? QChar(c + (u'a' - u'A')) : from;
    }
    return folded;
}

FileFilter::FileFilter(const QStringList& entries, bool wanted) : m_wanted(wanted)
{
    for (const QString& entry : entries) {
        if (entry.isEmpty()) break;
        const QString folded = entry.toCaseFolded();
        if (folded.size() == 1) {
            m_letters += folded;
        } else {
            m_entries += folded;
            m_beginnings.set(pair(folded[0], folded[1]));
        }
    }
    m_entries.sort();
}

bool FileFilter::FindFileInFiltr(const QString& name) const { return contained(caseFolded(name)) != m_wanted; }

/// A disc has a hundred thousand names: each is gone through once, not once for every entry.
bool FileFilter::contained(QStringView folded) const
{
    if (std::ranges::any_of(m_letters, [&](QChar letter) { return folded.contains(letter); })) return true;
    const auto beginning = [](QStringView text) { return text.first(2); };
    for (qsizetype i = 0; i + 1 < folded.size(); ++i) {
        if (!m_beginnings[pair(folded[i], folded[i + 1])]) continue;
        const QStringView rest = folded.sliced(i);
        auto entry = std::ranges::lower_bound(m_entries, beginning(rest), {}, beginning);
        for (; entry != m_entries.end() && beginning(*entry) == beginning(rest); ++entry)
            if (rest.startsWith(*entry)) return true;
    }
    return false;
}

FilterTable::FilterTable(const Database& files, bool wanted)
    : m_files(files), m_table(wanted ? u"Фильтр2"_s : u"Фильтр1"_s)
{}

QStringList FilterTable::FullArrayFileFiltr() const
{
    const Recordset used = m_files.OpenRecordset(u"SELECT Файл FROM %1 WHERE Use = True"_s.arg(m_table));
    if (used.RecordCount() > MaximumFilterEntries)
        throw RuntimeError(9, u"В таблице «%1» отмечено больше %2 файлов."_s.arg(m_table).arg(MaximumFilterEntries));
    QStringList texts;
    for (int i = 0; i < used.RecordCount(); ++i) texts += used.row(i).first().text();
    return texts;
}

QList<FilterTable::Entry> FilterTable::entries() const
{
    Recordset rows = m_files.OpenRecordset(u"SELECT * FROM %1 ORDER BY Файл"_s.arg(m_table));
    QList<Entry> entries;
    for (; !rows.AtEOF(); rows.MoveNext()) entries.append({rows[u"Файл"].text(), rows[u"Use"].toBool()});
    return entries;
}

bool FilterTable::contains(const QString& text) const
{
    return m_files.Scalar(u"SELECT COUNT(*) FROM %1 WHERE Файл = ?"_s.arg(m_table), {text}).toInt() > 0;
}

void FilterTable::use(const QString& text, bool used) const
{
    m_files.Execute(u"UPDATE %1 SET Use = ? WHERE Файл = ?"_s.arg(m_table), {used, text});
}

void FilterTable::add(const QString& text) const
{
    m_files.Execute(u"INSERT INTO %1 (Файл, Use) VALUES (?, True)"_s.arg(m_table), {text});
}

void FilterTable::rename(const QString& from, const QString& to) const
{
    m_files.Execute(u"UPDATE %1 SET Файл = ? WHERE Файл = ?"_s.arg(m_table), {to, from});
}

void FilterTable::remove(const QString& text) const
{
    m_files.Execute(u"DELETE FROM %1 WHERE Файл = ?"_s.arg(m_table), {text});
}
