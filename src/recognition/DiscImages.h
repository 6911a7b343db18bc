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
/// Whether a file's name says that it is an image; for what is dropped on the window.
bool LooksLikeImage(const QString& path);
