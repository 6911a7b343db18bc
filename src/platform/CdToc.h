#pragma once

#include "platform/MMControl.h"

/// The table of contents of an audio disc as the routines around players count it.
struct CdToc {
    QList<Msf> starts; ///< of track 1 and on, and behind the last one the lead-out; empty without tracks

    int Tracks() const { return starts.isEmpty() ? 0 : int(starts.size()) - 1; }
    /// Seconds from track 1 to the lead-out, both counted in whole seconds.
    int DiscLength() const;
};

/// Of an open device. The lead-out is where the last track ends: its length, one frame more. Throws error 9 for more than
/// 99 tracks.
CdToc ReadToc(const MMControl& device);

/// "45:10" of minutes and seconds. The seconds are what is left of all of them by 61, on purpose: catalogues have always
/// been filled so. 125 seconds give "02:03".
QString PlayingTime(const CdToc& toc);
