#pragma once

#include "platform/Profile.h"

/// The ticks of the scan dialog, as they stand, whether enabled or not.
struct ScanOptions {
    bool filesInCore = true; ///< files of the root
    bool scanDir = true;     ///< folders and subfolders
    bool scanDirOnly = false;
    bool lCase = false;
    bool hiddenFiles = false;
    bool infoMP3 = false;
    bool filter = false;
    bool wantedFiles = false; ///< the filter that takes alone, not the one that leaves out
    bool share = false;       ///< bind the catalogue row to the disc, too

    // What is open to the user follows from what is ticked.
    bool scanDirOnlyEnabled() const { return scanDir; }
    bool filterEnabled() const { return !scanDirOnly; }
    bool filterChoiceEnabled() const { return filterEnabled() && filter; }

    bool operator==(const ScanOptions&) const = default;
};

/// Section FileListOption of the settings, if they are to be kept at all (SaveFileListOption). A missing key leaves its
/// option as it was; without SaveFileListOption nothing is read or written. False when they could not be written.
void ReadScanOptions(const Profile& settings, ScanOptions& options);
bool WriteScanOptions(const Profile& settings, const ScanOptions& options);
