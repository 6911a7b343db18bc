#include "platform/disc/MediumDisc.h"

#include "platform/disc/AudioDisc.h"

#include <algorithm>
#include <cerrno>

namespace {
void RequireRoot(const QString& folder)
{
    if (folder != u'\\') throw FileError(ENOTDIR, folder);
}
}

MediumDisc::MediumDisc(TableOfContents contents, std::shared_ptr<SectorSource> data)
    : m_contents(std::move(contents)), m_dataSize(data ? data->size() : 0),
      m_files(data ? OpenFileSystem(std::move(data)) : nullptr)
{}

bool MediumDisc::hasAudio() const
{
    const auto audio = [](const DiscTrack& track) { return track.audio; };
    return std::any_of(m_contents.tracks.begin(), m_contents.tracks.end(), audio);
}

bool MediumDisc::readable() const { return m_files || hasAudio(); }

VolumeProperties MediumDisc::volume()
{
    if (m_files) return m_files->volume();
    return readable() ? AudioVolume(m_contents) : VolumeProperties();
}

/// Some descriptors count the audio tracks in.
VolumeSize MediumDisc::size()
{
    if (!m_files || hasAudio()) return {};
    return {m_files->claimedSize(), m_dataSize};
}

QList<DiscEntry> MediumDisc::list(const QString& folder)
{
    if (m_files) return m_files->list(folder);
    RequireRoot(folder);
    return AudioTrackFiles(m_contents);
}

QByteArray MediumDisc::read(const QString& folder, const QString& name, qint64 offset, qint64 length)
{
    if (m_files) return m_files->read(folder, name, offset, length);
    RequireRoot(folder);
    return AudioTrackFile(m_contents, name).mid(std::max<qint64>(0, offset), std::max<qint64>(0, length));
}
