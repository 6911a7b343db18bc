#pragma once

#include "platform/RuntimeError.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <memory>

/// A medium or an image that is damaged, truncated, or not what it claims to be. Its number is negative: every reader of
/// discs counts these as a reading error of the disc, not as a fault of the program.
class DiscError : public RuntimeError {
public:
    explicit DiscError(const QString& description) : RuntimeError(-1, description) {}
};

/// What a desktop system tells of a volume. A failed query has every member zero or empty.
struct VolumeProperties {
    bool success = false;
    QString label;
    quint32 serial = 0;
    quint32 maximumComponentLength = 0; ///< 221 CD file system, 110 with short names or Joliet, 255 UDF
    quint32 flags = 0;
    QString fileSystem; ///< "CDFS" or "UDF"

    bool operator==(const VolumeProperties&) const = default;
};

/// Bytes of user data that the volume takes by its own description, and those that are there.
struct VolumeSize {
    qint64 claimed = 0; ///< 0 when the description does not tell
    qint64 present = 0;

    bool cutShort() const { return present < claimed; }
    bool operator==(const VolumeSize&) const = default;
};

struct DiscEntry {
    QString name;
    bool folder = false;
    bool hidden = false;
    qint64 size = 0; ///< bytes; 0 for a folder

    bool operator==(const DiscEntry&) const = default;
};

inline constexpr int LeadInFrames = 150;

/// A position on a CD, two seconds of lead-in counted: the first track of most discs starts at 00:02:00.
struct Msf {
    int minutes = 0, seconds = 0, frames = 0;

    static Msf fromFrames(int frames) { return {frames / 4500, frames / 75 % 60, frames % 75}; }
    int toFrames() const { return (minutes * 60 + seconds) * 75 + frames; }
    bool operator==(const Msf&) const = default;
};

struct DiscTrack {
    int number = 0; ///< 1 to 99
    bool audio = false;
    Msf start;
    QString title, performer; ///< CD-TEXT, empty without it
};

struct TableOfContents {
    QList<DiscTrack> tracks; ///< ascending
    Msf leadOut;
    QString title, performer; ///< CD-TEXT of the disc
};

/// One readable medium: an image in a file or the disc in a device. Folder paths are those of the catalogue: they begin
/// and end with a backslash, and "\" alone is the root. All of it throws DiscError for damage, 76 for a folder and 53 for
/// a file that is not there, and never reads outside the medium, recurses without end or allocates what a hostile length
/// asks for.
class Disc {
public:
    virtual ~Disc() = default;

    virtual VolumeProperties volume() = 0;
    virtual VolumeSize size() { return {}; }
    virtual TableOfContents tableOfContents() = 0;
    /// Entries of one folder in ascending order of their names, compared without regard to case; no "." or "..".
    virtual QList<DiscEntry> list(const QString& folder) = 0;
    /// At most `length` bytes of a file from `offset` on; fewer at its end.
    virtual QByteArray read(const QString& folder, const QString& name, qint64 offset, qint64 length) = 0;
};

/// The readable sectors of a medium, addressed in bytes of user data: sector s of 2048 bytes begins at s * 2048.
class SectorSource {
public:
    virtual ~SectorSource() = default;
    virtual qint64 size() const = 0;
    /// Exactly `length` bytes, or DiscError.
    virtual QByteArray read(qint64 offset, qint64 length) = 0;
    /// First sector of the last session: 0 unless the medium is multisession.
    virtual quint32 lastSession() const { return 0; }
};

/// The file system of a medium's data, or null when there is none that we know (an audio disc). UDF is preferred, then
/// Joliet of the last session, then Rock Ridge, then plain ISO 9660 names without their version.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    virtual VolumeProperties volume() = 0;
    /// Bytes from the beginning of the medium on; 0 when the file system does not tell.
    virtual qint64 claimedSize() const { return 0; }
    virtual QList<DiscEntry> list(const QString& folder) = 0;
    virtual QByteArray read(const QString& folder, const QString& name, qint64 offset, qint64 length) = 0;
};
std::unique_ptr<FileSystem> OpenFileSystem(std::shared_ptr<SectorSource> source);

/// ISO, BIN/CUE, NRG 1 and 2, cdrdao TOC; which one it is is told by what it holds and, for sheets, by its extension.
/// Throws FileError or DiscError.
std::unique_ptr<Disc> OpenDiscImage(const QString& path);
