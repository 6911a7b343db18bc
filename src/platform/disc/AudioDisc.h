#pragma once

#include "platform/disc/Disc.h"

/// A disc of audio tracks alone, as a volume with one file per track.

/// The serial of the widely used desktop systems: the sum of the track starts, each packed as minutes, seconds and
/// frames in a byte of its own from the third byte down; with fewer than three tracks the lead-out packed so.
quint32 AudioSerial(const TableOfContents& contents);
VolumeProperties AudioVolume(const TableOfContents& contents);

/// "Track01.cda" and so on, one per audio track.
QList<DiscEntry> AudioTrackFiles(const TableOfContents& contents);
/// The 44 bytes of such a file, a RIFF form of type CDDA that tells the track's place; throws error 53 for another name.
QByteArray AudioTrackFile(const TableOfContents& contents, const QString& name);
