#pragma once

#include "platform/Profile.h"

class QWidget;

/// The window's place is kept in section Window of the settings in twips, 1440 to an inch, of which a device-independent
/// pixel has 15.
inline constexpr int TwipsPerPixel = 15;

/// State, Left, Top, Height, Width, each by itself; a missing key leaves the property as it is. Nothing is checked against
/// the screen, but no number goes beyond what window systems can hold.
void LoadWinPos(QWidget& window, const Profile& settings);
/// State always; the place only of a window that is neither minimised nor maximised.
void SaveWinPos(const QWidget& window, const Profile& settings);
