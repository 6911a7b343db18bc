#pragma once

#include "dao/Database.h"

/// A filter holds this many entries in force at most.
inline constexpr int MaximumFilterEntries = 50;

/// The tables of filters in the files database: names to leave out, and names to take alone.
inline QString FilterTableName(bool wanted) { return wanted ? u"Фильтр2"_s : u"Фильтр1"_s; }

/// The entries of a filter table that are in force. Error 9 for more than MaximumFilterEntries.
QStringList FullArrayFileFiltr(const Database& files, const QString& table);

/// A file-name filter: plain texts looked for anywhere in a name, without regard to case. An empty entry ends the list.
class FileFilter {
public:
    /// `wanted`: only what matches is taken; otherwise what matches is left out.
    FileFilter(const QStringList& entries, bool wanted);

    /// True for a file to be skipped.
    bool FindFileInFiltr(const QString& name) const;

private:
    QStringList m_entries; // case folded
    bool m_wanted;
};

/// What the editor of a filter table works with.
class FilterTable {
public:
    struct Entry {
        QString text;
        bool used = true;
        bool operator==(const Entry&) const = default;
    };

    FilterTable(const Database& files, bool wanted);

    /// In the order of their texts.
    QList<Entry> entries() const;
    /// Without regard to case.
    bool contains(const QString& text) const;
    void use(const QString& text, bool used) const;
    void add(const QString& text) const;
    void rename(const QString& from, const QString& to) const;
    void remove(const QString& text) const;

private:
    Database m_files;
    QString m_table;
};
