#pragma once

#include "platform/disc/DiscLayout.h"

/// sheet  = *( "CATALOG" text / disc-type / cd-text ) *( track )
/// track  = "TRACK" mode [ "RW" / "RW_RAW" ] *( flag / "ISRC" text / cd-text / "PREGAP" length / piece / start )
/// piece  = ( "FILE" / "AUDIOFILE" ) name [ "SWAP" ] [ "#" byte ] from [ length ]
///        / "DATAFILE" name [ "#" byte ] [ length ]
///        / ( "SILENCE" / "FIFO" name ) length / "ZERO" [ mode ] [ "RW" / "RW_RAW" ] length
/// start  = "START" [ length ]               ; what lies before it is the pause; without a length all pieces so far
/// cd-text = "CD_TEXT" "{" ... "}"           ; TITLE and PERFORMER of the first language
/// length = mm:ss:ff / number                ; the number counts samples of audio, 588 a frame, or bytes of data
/// "//" begins a comment; texts stand in quotation marks with \" and \ooo inside.
///
/// The sheet of cdrdao. Positions in the result count from the start of the disc, two seconds of lead-in included. Throws
/// DiscError with the line number.
DiscLayout ReadTocSheet(QByteArrayView sheet, const FindSectorFile& find);
