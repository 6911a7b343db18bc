#pragma once

#include "platform/Drives.h"

/// The CD-audio device of a drive, opened for one command and closed behind it. What it tells is as it was at the opening.
/// A medium without audio tracks has no tracks for it, nor has one that cannot be read.
class MMControl {
public:
    /// By the numbers that media devices have always reported.
    enum Mode { NotOpen = 524, Stopped, Playing, Recording, Seeking, Paused, TrayOut };

    explicit MMControl(Drives& drives) : m_drives(drives) {}

    /// The device of the drive "D:\"; it stays closed when there is no such drive. Touches the medium.
    void Open(QStringView drive);
    void Close();

    Mode mode() const { return m_mode; }
    /// What was read: CD-TEXT, and which tracks are audio.
    const TableOfContents& contents() const { return m_contents; }
    int Tracks() const { return int(m_contents.tracks.size()); }
    /// Start of track 1 to Tracks(), from the disc's absolute time zero on. Throws error 9 for others, as TrackLength does.
    Msf TrackPosition(int track) const;
    /// Of the last track one frame short, as these devices report it.
    Msf TrackLength(int track) const;

private:
    void checkTrack(int track) const;

    Drives& m_drives;
    Mode m_mode = NotOpen;
    TableOfContents m_contents;
};

/// What is told of a device in this mode, "Device is stopped"; empty for any other number.
QString DeviceStatus(int mode);
