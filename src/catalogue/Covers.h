#pragma once

#include "frame/Program.h"

#include <QImage>

/// Where the cover of a disc lies, if it has one: box/pc_12.box in the application folder. `prefix` is that of the
/// catalogue, CatalogueKind::coverPrefix.
QString CoverPath(const Program& program, QStringView prefix, int number);
bool HasCover(const Program& program, QStringView prefix, int number);
/// A cover follows a number. What lies under the new number is replaced; without a cover nothing happens.
void MoveCover(const Program& program, QStringView prefix, int from, int to);
/// Nothing happens without a cover.
void DeleteCover(const Program& program, QStringView prefix, int number);

/// The folder of the covers. That it cannot be made is told by what wants to write into it.
void MakeBoxFolder(const Program& program);
/// Copies a picture, byte for byte, to the place of the disc's cover, which it replaces only once it is whole. Throws
/// the error of `FileError`; the old cover is then as it was.
void StoreCover(const Program& program, QStringView prefix, int number, const QString& picture);

/// Whether a file is a picture that can be shown: JPEG, GIF, PNG, BMP or WebP by its contents, whatever its name; all of
/// its first frame readable; at most 64 MB and 64 million pixels. What a header declares is judged before anything of
/// that size is reserved.
bool IsPicture(const QString& path);
/// The usual ending of the file's name, "jpg"; empty for what is no picture.
QString PictureSuffix(const QString& path);
/// The picture of a cover file, no larger than `bound` physical pixels, its proportions kept, upright. Null when the file
/// is no picture: it may be any file. For any thread.
QImage LoadCover(const QString& path, const QSize& bound);
