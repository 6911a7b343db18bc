#include "platform/disc/AudioDisc.h"

#include "platform/Literals.h"

#include <QtEndian>
#include <cerrno>

namespace {
constexpr int TrackFileSize = 44;

QString TrackFileName(int number) { return u"Track%1.cda"_s.arg(number, 2, 10, QChar(u'0')); }

void Append16(QByteArray& bytes, quint16 value)
{
    value = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

void Append32(QByteArray& bytes, quint32 value)
{
    value = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

quint32 Packed(const Msf& position)
{
    return quint32(position.minutes) << 16 | quint32(position.seconds) << 8 | quint32(position.frames);
}
}

quint32 AudioSerial(const TableOfContents& contents)
{
    if (contents.tracks.size() < 3) return Packed(contents.leadOut);
    quint32 sum = 0;
    for (const DiscTrack& track : contents.tracks) sum += Packed(track.start);
    return sum;
}

VolumeProperties AudioVolume(const TableOfContents& contents)
{
    VolumeProperties volume;
    volume.success = true;
    volume.label = u"Audio CD"_s;
    volume.serial = AudioSerial(contents);
    volume.maximumComponentLength = 221;
    volume.fileSystem = u"CDFS"_s;
    return volume;
}

QList<DiscEntry> AudioTrackFiles(const TableOfContents& contents)
{
    QList<DiscEntry> entries;
    for (const DiscTrack& track : contents.tracks)
        if (track.audio) entries.append({TrackFileName(track.number), false, false, TrackFileSize});
    return entries;
}

QByteArray AudioTrackFile(const TableOfContents& contents, const QString& name)
{
    for (qsizetype i = 0; i < contents.tracks.size(); ++i) {
        const DiscTrack& track = contents.tracks[i];
        if (!track.audio || TrackFileName(track.number).compare(name, Qt::CaseInsensitive) != 0) continue;
        const Msf end = i + 1 < contents.tracks.size() ? contents.tracks[i + 1].start : contents.leadOut;
        const int length = end.toFrames() - track.start.toFrames();
        QByteArray file = "RIFF";
        Append32(file, TrackFileSize - 8);
        file += "CDDAfmt ";
        Append32(file, 24);
        Append16(file, 1);
        Append16(file, quint16(track.number));
        Append32(file, AudioSerial(contents));
        Append32(file, quint32(track.start.toFrames() - LeadInFrames));
        Append32(file, quint32(length));
        Append32(file, Packed(track.start));
        Append32(file, Packed(Msf::fromFrames(length)));
        return file;
    }
    throw FileError(ENOENT, name);
}
