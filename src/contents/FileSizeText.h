#pragma once

#include "platform/Literals.h"

/// A file's size as its row stores it: kilobytes with one decimal place, half to even, grouped by thousands from 1000 on:
/// "0,1", "1 000,0". At most 11 characters: a larger number drops its group separators. Throws DiscError for a size that
/// no disc has (a petabyte), since only a damaged directory says so.
QString FileSizeText(qint64 bytes);

/// Kilobytes of a stored size; 0 for what is no number. The last comma or point is the decimal sign, earlier ones and
/// blanks of any kind group digits.
double SizeInKilobytes(QStringView text);
