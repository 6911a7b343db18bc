#pragma once

#include "platform/Profile.h"

#include <QStringList>
#include <optional>

/// What an audio disc can hold. Counts from files are cut to it.
inline constexpr int MostTracks = 99;

/// What cdplayer.ini knows of one disc.
struct CdPlayerEntry {
    QString artist, title;
    QStringList tracks; ///< empty where a track has no name

    bool operator==(const CdPlayerEntry&) const = default;
};

/// cdplayer.ini in SystemProfileFolder(), the file in which players of audio discs keep their names:
///
///     section = "[" disc identifier "]" *( entry )
///     entry   = "EntryType=1" / "artist=" text / "title=" text / "numtracks=" count / index "=" text
///
/// `index` counts tracks from 0. Untrusted.
class CdPlayerIni {
public:
    /// What the user is told after a write that failed.
    static inline const QString NotWritten = QStringLiteral(
        "Файл 'cdplayer.ini' не записан. Проверьте, есть ли место на диске и доступна ли папка настроек.");

    CdPlayerIni();

    /// Nothing for a disc without `numtracks`. The list has as many names as that says, at most MostTracks; a count that
    /// is no number is 0.
    std::optional<CdPlayerEntry> read(const QString& id) const;
    /// Writes all of the entry in one step. What the section holds beside stays, earlier tracks beyond the new count, too.
    /// False when the file cannot be written.
    bool write(const QString& id, const CdPlayerEntry& entry) const;

private:
    Profile m_file;
};
