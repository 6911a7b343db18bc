#pragma once

#include "platform/Literals.h"

#include <QByteArray>
#include <functional>

/// Where a tag is read from, be it a file or a place inside a disc image.
struct TagSource {
    qint64 size = 0;
    std::function<QByteArray(qint64 offset, qint64 length)> read; ///< may give fewer bytes, may throw RuntimeError
};

/// Title and artist of an ID3v1 tag, which is the last 128 bytes of a file, in code page 1251:
///
///     tag = "TAG" title artist ...        ; 30 bytes each, at 3 and 33, filled with zeros or blanks
///
/// Texts come out cleaned for a table: up to the first zero, quotation marks and square brackets replaced, trimmed.
class MP3TagEditor {
public:
    /// False when reading failed; a file without a tag is no failure.
    bool read(const QString& path, const TagSource& source);

    /// Of the last file asked for.
    void setFileName(const QString& path) { m_fileName = path; }
    const QString& fileName() const { return m_fileName; }
    /// Cut or blank-filled to 30 characters.
    void setArtist(const QString& artist) { m_artist = pad(artist, FieldLength); }
    QString artist() const;
    void setTitle(const QString& title) { m_title = pad(title, FieldLength); }
    QString title() const;
    void setHasTag(bool hasTag) { m_hasTag = hasTag; }
    bool hasTag() const { return m_hasTag; }
    void reset();

    static QString pad(const QString& text, int length) { return text.leftJustified(length, u' ', true); }

private:
    static constexpr int FieldLength = 30;

    QString m_fileName;
    bool m_hasTag = false;
    QString m_title = pad({}, FieldLength), m_artist = pad({}, FieldLength);
};
