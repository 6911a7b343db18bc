#pragma once

#include "frame/Program.h"

#include <optional>

// Readers of vinora.ini, section "Option". Each call goes to the file.

/// A boolean that is off when it is missing: whether its number is 1.
bool OptionIsOn(const Program& program, QStringView key);
/// The drive for recognition and scanning, "E:\"; empty when none was ever chosen.
QString DefaultDrive(const Program& program);
/// Milliseconds of a blinking sign from "tmrDue", "tmrCD" or "tmrDueCatalogue": 1 for a steady one, else a tenth of the
/// value; none when the key is missing. 0 means steady too.
std::optional<int> BlinkInterval(const Program& program, QStringView key);

/// A path as it is stored under a key that is the program's own: percent-encoded is what a settings file would hurt, that is
/// characters outside of its code page, control characters, blanks and quotation marks at the ends, and a percent sign
/// that reads like an encoded byte.
QString EncodePath(const QString& path);
QString DecodePath(const QString& text);
/// The folder in which the last file chooser ended; empty at first.
QString LastFolder(const Profile& settings);
void KeepLastFolder(const Profile& settings, const QString& path);
