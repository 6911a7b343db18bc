#pragma once

#include "dao/Database.h"

#include <bitset>

/// A filter holds this many entries in force at most.
inline constexpr int MaximumFilterEntries = 50;

/// A file-name filter: plain texts looked for anywhere in a name, without regard to case. An empty entry ends the list.
class FileFilter {
public:
    /// `wanted`: only what matches is taken; otherwise what matches is left out.
    FileFilter(const QStringList& entries, bool wanted);

    /// True for a file to be skipped.
    bool FindFileInFiltr(const QString& name) const;

private:
    static constexpr std::size_t Pairs = 4096;
    static std::size_t pair(QChar first, QChar second) { return (first.unicode() * 31U + second.unicode()) % Pairs; }
    bool contained(QStringView folded) const;

    // Case folded.
    QStringList m_entries;           ///< of two letters and more, sorted
    QString m_letters;               ///< entries of one
    std::bitset<Pairs> m_beginnings; ///< pairs of letters that an entry may begin with
    bool m_wanted;
};

/// One of the two filters of the files database: names to leave out, and names to take alone (`wanted`).
class FilterTable {
public:
    struct Entry {
        QString text;
        bool used = true;
        bool operator==(const Entry&) const = default;
    };

    FilterTable(const Database& files, bool wanted);

    /// The entries in force. Error 9 for more than MaximumFilterEntries.
    QStringList FullArrayFileFiltr() const;
    /// All of them, in the order of their texts.
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
