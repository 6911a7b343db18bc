#pragma once

#include "platform/disc/Disc.h"

#include <optional>

inline constexpr qint64 LargestSheet = 1 << 20; ///< bytes; a larger one is refused

/// Text of a sheet or of CD-TEXT: UTF-8 when it is that, else code page 1251, which Russian discs are written in.
QString DecodeDiscText(QByteArrayView bytes);

/// Frames of "mm:ss:ff", seconds under 60 and frames under 75; minutes may have up to four digits.
std::optional<int> FramesOfMsf(QStringView text);

/// "Строка 3: ..."
DiscError SheetError(int line, const QString& what);
