#pragma once

#include "platform/disc/Disc.h"

#include <functional>
#include <optional>

/// How sectors of one kind lie in an image file.
struct SectorFormat {
    int size = 2048;
    int user = 0; ///< byte of a sector where its 2048 bytes of user data begin
    bool audio = false;
};

inline constexpr int RawSectorSize = 2352; ///< also what a frame of audio takes

/// A run of data sectors in a file.
struct DataExtent {
    int frame = 0;   ///< of its first sector on the disc, lead-in counted
    int sectors = 0; ///< all of them in the file
    QString path;
    qint64 offset = 0; ///< byte of the first one
    SectorFormat format;
};

/// What an image says of its disc.
struct DiscLayout {
    TableOfContents contents;
    QList<DataExtent> data; ///< ascending, none overlapping
    int lastSession = 0;    ///< frame of the first data track of the last session that has one; 0 without data
};

/// The last thing that every decoder does. Throws DiscError unless there are tracks, numbered in ascending order from 1 to
/// 99, each beginning behind the one before it and all before the lead-out, and the extents lie as told above.
DiscLayout Checked(DiscLayout layout);

/// Frames of a disc are counted in 32 bits; a file that claims more throws DiscError.
int BoundedFrames(qint64 frames);

/// A file that a sheet names: where its sectors begin and how many bytes of them it holds. For a sound file that is what
/// its audio comes to at 2352 bytes a frame; nothing is ever read from those.
struct SectorFile {
    QString path;
    qint64 offset = 0;
    qint64 length = 0;
    bool sound = false;
};
/// Finds the file by the name that stands in a sheet; nothing when there is none.
using FindSectorFile = std::function<std::optional<SectorFile>(const QString& name)>;
