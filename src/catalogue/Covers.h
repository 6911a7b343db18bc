#pragma once

#include "frame/Program.h"

#include <QPixmap>

/// Where the cover of a disc lies, if it has one: box/pc_12.box in the application folder. `prefix` is that of the
/// catalogue, CatalogueKind::coverPrefix.
QString CoverPath(const Program& program, QStringView prefix, int number);
bool HasCover(const Program& program, QStringView prefix, int number);
/// A cover follows a number. What lies under the new number is replaced; without a cover nothing happens.
void MoveCover(const Program& program, QStringView prefix, int from, int to);
/// Nothing happens without a cover.
void DeleteCover(const Program& program, QStringView prefix, int number);

/// The picture of a cover file, no larger than `bound` physical pixels, its proportions kept. Null when the file is no
/// picture or one of absurd dimensions: it may be any file.
QPixmap LoadCover(const QString& path, const QSize& bound);
