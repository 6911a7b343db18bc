#pragma once

#include "frame/Program.h"

/// Upper-case hexadecimal without leading zeros; empty for 0.
QString SerialToID(quint32 serial);
/// The user's correction for a disc: "AD", "PC", "DVD", "n/a", or empty.
QString ReadSkipCD(const Program& program, const QString& id);
/// Letters of all drives, "DEV".
QString GetCDDrives(const Program& program);

/// The kind word of a medium that only the user can tell.
inline const QString UndecidedKind = u"?"_s;
/// The medium's kind by its properties and the user's corrections: "AudioCD", "PcCD", "DVD", empty for no usable medium,
/// and UndecidedKind (the watch then waits, a command asks with AskCategory).
QString KindOfVolume(const VolumeProperties& volume, const QString& correction);

/// What is known of the disc in a drive.
struct DiscInDrive {
    QString kind; ///< kind word, empty without a usable medium
    QString id;   ///< empty without a usable medium, and for a medium without a serial number
    QString label = {};
};
/// Asks the drive ("E:\") afresh, for commands. May open the category dialog. Faults go to the fault routine.
/// CurrentDiscID is left alone.
DiscInDrive ReadDisc(Program& program, const QString& drive);
/// The parts of ReadDisc for who needs one alone.
QString GetDiskIDcheck(Program& program, const QString& drive);
QString GetDiskID(Program& program, const QString& drive);

/// The medium in a drive, so that nothing of another one is taken for that of `id`, which ReadDisc has told; null when it
/// has been taken out or exchanged since, as it may have been while the user was asked for its kind.
std::shared_ptr<Disc> MediumOf(Drive& drive, const QString& id);

/// A look at a drive that touches no medium and asks nobody: under 1 ms.
struct DriveGlance {
    Drive* drive = nullptr; ///< null when there is no such drive
    VolumeProperties volume;
    DiscInDrive disc; ///< the kind may be UndecidedKind; the identifier is known then too
};
DriveGlance GlanceAt(const Program& program, const QString& drive);

/// Asks the user which category the disc belongs to and stores the answer in skipcd.ini, or for this run where the file
/// cannot be written. `kindWord` is the category offered, as far as one is known. Kind word, empty for none.
QString AskCategory(Program& program, const QString& id, const QString& kindWord = {});
/// The command that corrects a category by hand: true when the category was asked for, and the watch is to start again.
/// `stopWatch` runs once the user has agreed; without a disc in the drive the watch stays stopped.
bool ChangeCategory(Program& program, const QString& drive, const std::function<void()>& stopWatch);
