#pragma once

#include "platform/disc/Disc.h"

/// A disc made of its table of contents and the sectors of its data tracks: a data disc when they hold a file system that
/// we know, else a disc of audio tracks.
class MediumDisc : public Disc {
public:
    /// `data` is null on a disc without data tracks. Throws DiscError when the file system is there but damaged.
    MediumDisc(TableOfContents contents, std::shared_ptr<SectorSource> data);

    /// Whether there is anything on it that somebody could see.
    bool readable() const;

    VolumeProperties volume() override;
    VolumeSize size() override;
    TableOfContents tableOfContents() override { return m_contents; }
    QList<DiscEntry> list(const QString& folder) override;
    QByteArray read(const QString& folder, const QString& name, qint64 offset, qint64 length) override;

private:
    bool hasAudio() const;

    TableOfContents m_contents;
    qint64 m_dataSize;
    std::unique_ptr<FileSystem> m_files;
};
