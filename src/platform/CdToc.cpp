#include "platform/CdToc.h"

#include "platform/Literals.h"

static int WholeSeconds(const Msf& position) { return position.minutes * 60 + position.seconds; }

int CdToc::DiscLength() const
{
    return Tracks() == 0 ? 0 : WholeSeconds(starts.constLast()) - WholeSeconds(starts.constFirst());
}

CdToc ReadToc(const MMControl& device)
{
    CdToc toc;
    const int tracks = device.Tracks();
    if (tracks > 99) throw RuntimeError(9, u"На диске больше 99 дорожек: %1."_s.arg(tracks));
    if (tracks == 0) return toc;
    for (int track = 1; track <= tracks; ++track) toc.starts += device.TrackPosition(track);
    const int lastLength = device.TrackLength(tracks).toFrames() + 1;
    toc.starts += Msf::fromFrames(toc.starts.constLast().toFrames() + lastLength);
    return toc;
}

QString PlayingTime(const CdToc& toc)
{
    const int seconds = toc.DiscLength();
    return u"%1:%2"_s.arg(seconds / 60, 2, 10, QChar(u'0')).arg(seconds % 61, 2, 10, QChar(u'0'));
}
