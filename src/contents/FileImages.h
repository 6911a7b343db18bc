#pragma once

#include "platform/Literals.h"

/// Number of a file's picture, 1 to 12, by the first text of a fixed table that occurs anywhere in its name: 1 any file,
/// 2 program, 3 zip archive, 4 bitmap, 5 settings, 6 film, 7 sound, 8 rar archive, 9 text, 10 gif, 11 photograph, 12 page.
int FileImage(const QString& name);
/// The icon of a picture's number, by its name in the icon set.
QString FileImageIcon(int image);
