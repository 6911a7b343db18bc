#pragma once

#include "platform/disc/DiscLayout.h"

/// Finds what the sheet at `sheetPath` names: as it stands there, relative to the sheet's folder; else the same file name
/// beside the sheet, in whatever case; else the sheet's own base name with the extension of the name. Sheets travel with
/// their files and keep the paths of another machine, so an absolute path counts by its last part only.
FindSectorFile FilesBeside(const QString& sheetPath);

/// Frames that the sound of a WAVE (RIFF) or FLAC file lasts, rounded down, by its header; nothing for any other file.
std::optional<qint64> FramesOfSound(SectorSource& file);
