#pragma once

#include "frame/Program.h"

/// Upper-case hexadecimal without leading zeros; empty for 0.
QString SerialToID(quint32 serial);
/// The user's correction for a disc: "AD", "PC", "DVD", "n/a", or empty.
QString ReadSkipCD(const Program& program, const QString& id);
/// Letters of all drives, "DEV".
QString GetCDDrives(const Program& program);

/// Whether a question may be put to the user, or the drive asked afresh: commands do both, the watch neither.
enum class Asking { Command, Watch };

/// The medium's kind by its properties and the user's corrections: "AudioCD", "PcCD", "DVD", empty for no usable medium,
/// and "?" when only the user can tell (the watch then waits, a command asks with AskCategory).
QString KindOfVolume(const VolumeProperties& volume, const QString& correction);

/// Kind of the disc in a drive ("E:\"). May open the category dialog. Faults go to the fault routine.
QString GetDiskIDcheck(Program& program, const QString& drive);
/// Its identifier, empty without a usable medium. Does not touch CurrentDiscID.
QString GetDiskID(Program& program, const QString& drive);

/// Asks the user which category the disc belongs to and stores the answer in skipcd.ini. Kind word, empty for none.
QString AskCategory(Program& program, const QString& id);
/// The command that corrects a category by hand, without the timer's part: true when the category was asked for.
bool ChangeCategory(Program& program, const QString& drive);
