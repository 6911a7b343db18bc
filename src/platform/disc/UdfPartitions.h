#pragma once

#include "platform/disc/UdfSpace.h"
#include "platform/disc/UdfVolume.h"

/// Sets up the partitions that the logical volume maps: one as it stands on the medium (ECMA-167 3/10.7.2), sparable,
/// virtual, and metadata partitions (UDF 2.50, 2.2.8 to 2.2.10; so are the sections told elsewhere). A virtual partition's table may rename the volume. Throws
/// DiscError for a map that is damaged or leads nowhere.
void MapUdfPartitions(UdfSpace& space, UdfVolume& volume);
