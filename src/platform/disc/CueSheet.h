#pragma once

#include "platform/disc/DiscLayout.h"

/// sheet = *( line )
/// line  = "FILE" name type                    ; the following positions count from its start
///       / "TRACK" nn mode                     ; nn ascending, 01 to 99
///       / "INDEX" nn mm:ss:ff                 ; 01 is where the track begins, 00 the pause before it
///       / "PREGAP" mm:ss:ff / "POSTGAP" mm:ss:ff  ; silence that no file holds
///       / "TITLE" text / "PERFORMER" text     ; of the disc before the first track, of the track behind it
///       / "REM" "SESSION" nn                  ; a new session, with the gap that lies between two
///       / anything else                       ; passed over
/// name  = a text in quotation marks, or all up to the last word of the line
///
/// A pause may end one file and its track begin the next. The lead-in's own two seconds are sometimes written down as the
/// PREGAP of a first data track; they are not counted twice. Positions in the result count from the start of the disc,
/// two seconds of lead-in included. Throws DiscError with the line number.
DiscLayout ReadCueSheet(QByteArrayView sheet, const FindSectorFile& find);
