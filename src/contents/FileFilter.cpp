#include "contents/FileFilter.h"

#include "platform/RuntimeError.h"

#include <algorithm>

FileFilter::FileFilter(const QStringList& entries, bool wanted) : m_wanted(wanted)
{
    for (const QString& entry : entries) {
        if (entry.isEmpty()) break;
        m_entries += entry.toCaseFolded();
    }
}

bool FileFilter::FindFileInFiltr(const QString& name) const
{
    const QString folded = name.toCaseFolded();
    const bool found = std::any_of(m_entries.begin(), m_entries.end(),
                                   [&](const QString& entry) { return folded.contains(entry); });
    return found != m_wanted;
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
