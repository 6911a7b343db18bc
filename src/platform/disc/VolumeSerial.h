#pragma once

#include <QByteArrayView>

/// The 32-bit serial of a medium, the same number that other systems show for it. It is a checksum of what the medium
/// says of itself, so two pressings of one master share it. That of an audio disc
/// is in AudioDisc.h.

/// Over the 2048 bytes of the volume descriptor whose names are in use.
quint32 IsoSerial(QByteArrayView descriptor);
/// Over the first 512 bytes of the file set descriptor.
quint32 UdfSerial(QByteArrayView fileSetDescriptor);
