#include "platform/MMControl.h"

#include "platform/Literals.h"

#include <algorithm>

/// Empty for what is no audio disc to the device: data alone, or damage.
static TableOfContents ReadAudio(Disc& disc)
{
    try {
        TableOfContents contents = disc.tableOfContents();
        if (std::ranges::any_of(contents.tracks, &DiscTrack::audio)) return contents;
    } catch (const DiscError&) {
        // The device cannot play it either; whoever asks for its tracks gets none and tells the user.
    }
    return {};
}

void MMControl::Open(QStringView drive)
{
    Close();
    Drive* found = m_drives.find(drive);
    if (!found) return;
    const std::shared_ptr<Disc> disc = found->disc();
    m_mode = disc ? Stopped : TrayOut;
    if (disc) m_contents = ReadAudio(*disc);
}

void MMControl::Close()
{
    m_mode = NotOpen;
    m_contents = {};
}

void MMControl::checkTrack(int track) const
{
    if (track < 1 || track > Tracks()) throw RuntimeError(9, u"На диске нет дорожки № %1."_s.arg(track));
}

Msf MMControl::TrackPosition(int track) const
{
    checkTrack(track);
    return m_contents.tracks[track - 1].start;
}

Msf MMControl::TrackLength(int track) const
{
    checkTrack(track);
    const bool last = track == Tracks();
    const Msf end = last ? m_contents.leadOut : m_contents.tracks[track].start;
    return Msf::fromFrames(end.toFrames() - TrackPosition(track).toFrames() - int(last));
}

QString DeviceStatus(int mode)
{
    switch (mode) {
    case MMControl::NotOpen: return u"Device is not open"_s;
    case MMControl::Stopped: return u"Device is stopped"_s;
    case MMControl::Playing: return u"Device is playing"_s;
    case MMControl::Recording: return u"Device is recording"_s;
    case MMControl::Seeking: return u"Device is seeking"_s;
    case MMControl::Paused: return u"Device is paused"_s;
    case MMControl::TrayOut: return u"Tray is out"_s;
    default: return {};
    }
}
