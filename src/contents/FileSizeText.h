#pragma once

#include "platform/Literals.h"

/// A file's size as its row stores it: kilobytes with one decimal place, half to even, grouped by thousands from 1000 on:
/// "0,1", "1 000,0". At most 11 characters: a larger number drops its group separators. Throws DiscError for a size that
/// no disc has (a petabyte), since only a damaged directory says so.
QString FileSizeText(qint64 bytes);

/// Kilobytes of a stored size, written with any of blank, no-break blank, comma and point; 0 for what is no number.
double SizeInKilobytes(QStringView text);
