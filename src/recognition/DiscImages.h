#pragma once

#include "frame/Program.h"

/// Puts a disc image into the virtual drive and makes that drive the default one; where nobody has ever decided whether
/// drives are watched, they are from now on. The image's place is remembered for the next start. Throws FileError or
/// DiscError, and then nothing has changed.
void InsertImage(Program& program, const QString& path);
/// Empties the virtual drive, also for the next start.
void EjectImage(Program& program);
/// Puts back the image of the last run. One that is not there just now leaves the drive empty until it is back.
void RestoreImage(Program& program);

/// What the choosers of images offer, as Dialogs::OpenFile takes it.
QString ImageFilter();
/// Of files that were dropped together the one that is the image, by their names: a sheet, which tells what the others
/// are, else the first image. Empty without one.
QString ImageAmong(const QStringList& paths);
