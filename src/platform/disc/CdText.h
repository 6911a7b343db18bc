#pragma once

#include "platform/disc/Disc.h"

/// text = *( pack )                        ; READ TOC/PMA/ATIP format 0101b (MMC-3, annex J)
/// pack = type track sequence block-and-position 12*OCTET crc
///
/// Titles (type 80h) and performers (81h) of the first block, each text ended by a zero and running on from pack to pack;
/// text 0 is the disc's, a lone tab repeats the text before it. Fills the empty texts of `contents`. Packs whose CRC is
/// wrong, whole blocks of two-byte characters, and whatever else is no text are passed over: some drives answer with
/// something else altogether.
void ReadCdText(QByteArrayView packs, TableOfContents& contents);

/// The check of a pack's first 16 bytes: CRC-CCITT, all bits inverted.
quint16 CdTextCrc(QByteArrayView bytes);
