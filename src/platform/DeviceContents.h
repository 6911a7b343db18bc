#pragma once

#include "platform/CdDevice.h"
#include "platform/disc/Disc.h"

/// What the medium in an open device says of itself. All of it goes to the device and takes as long as that takes.

/// The tracks with their CD-TEXT. A medium without a table of contents, as many drives show a DVD, is one data track as
/// long as the medium. Throws DiscError when there is neither.
TableOfContents ReadDeviceContents(CdDevice& device);
/// First sector of the last session with data, 0 without sessions.
quint32 ReadLastSession(CdDevice& device);
/// Bytes of the medium's data, 0 when the kernel does not know.
qint64 ReadMediumSize(CdDevice& device);
