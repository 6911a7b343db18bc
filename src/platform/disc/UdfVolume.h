#pragma once

#include "platform/disc/SectorCache.h"
#include "platform/disc/UdfDescriptor.h"

#include <optional>
#include <vector>

/// What the volume descriptors tell of a medium (ECMA-167 3/8.4).
struct UdfVolume {
    struct Partition {
        quint16 number = 0;
        quint32 start = 0, length = 0; ///< blocks of the medium
    };

    qint64 blockSize = 0;
    QString label;
    QByteArray partitionMaps; ///< of the logical volume (3/10.7), one after the other
    quint32 partitionMapCount = 0;
    std::vector<Partition> partitions;
    UdfLongExtent fileSet;

    const Partition* partition(quint16 number) const;
};

/// Whether NSR02 or NSR03 stands in the volume recognition area of the session (3/9.1).
bool IsUdf(SectorCache& medium, quint32 session);
/// The volume that an anchor leads to, by its main or its reserve descriptors; nothing when none does.
std::optional<UdfVolume> FindUdfVolume(SectorCache& medium, quint32 session);
