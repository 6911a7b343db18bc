#pragma once

#include "platform/disc/DiscLayout.h"

/// image   = sectors *( chunk ) footer              ; all numbers big-endian unless told
/// footer  = "NERO" offset4 / "NER5" offset8         ; version 1, version 2: where the chunks begin
/// chunk   = id4 size4 size*OCTET
/// session = [ cue ] dao "SINF" / tao "SINF"
/// dao     = "DAOI" / "DAOX"                         ; 22 bytes, byte 20 the first track, then per track ISRC12
///                                                   ; sector-size2 mode1 OCTET unknown2 pause start end
/// tao     = "ETNF" / "ETN2"                         ; per track: offset length mode4 sector4 unknown
/// cue     = "CUEX"                                  ; per index: mode1 track1(BCD) index1 OCTET sector4(signed)
/// "CDTX"                                            ; CD-TEXT packs
/// "END!"                                            ; the last chunk; all others are passed over
///
/// pause, start, end, offset and length are bytes of the file, of 4 octets in version 1 and 8 in version 2. Positions in
/// the result count from the start of the disc, two seconds of lead-in included; `path` is the image's own name in the
/// result's extents. Nothing for a file without a footer; throws DiscError for damage.
std::optional<DiscLayout> ReadNrgImage(SectorSource& file, const QString& path);
