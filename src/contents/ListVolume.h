#pragma once

#include "dao/Database.h"

/// "~12 Мб" for the sum of all sizes in a list. Thousands are cut off from the digits of the sum, never rounded: 999 and
/// 1999 kilobytes are both "~1 Мб". A sum of seven digits or more stands as it is, in kilobytes.
QString VolumeText(double kilobytes);

/// VolumeText of the list `id`; "~0 Мб" only for one without any row.
QString ListVolume(const Database& files, const QString& id);
