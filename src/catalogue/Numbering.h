#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

inline constexpr int LastNumber = 32767;

/// The smallest number above `after` that no disc of the catalogue has: gaps are filled before the end is extended.
/// LastNumber + 1 when all are taken.
int FirstFreeNumber(const Database& main, const CatalogueKind& kind, int after = 0);

/// Whether all numbers from `start` on can move up by one.
bool CanMoveNumbers(const Database& main, const CatalogueKind& kind, int start);
/// Told when they cannot.
QString CannotMoveMessage(int start);

/// Moves the numbers from `start` on up by one, in one group of writes, and covers with them. The covers that move are
/// those of the DVD catalogue, whichever catalogue is renumbered, and only up to the count of rows: a user's covers have
/// always been numbered by this rule. When a number would pass LastNumber the user is told, nothing moves, and the
/// result is false. `start` is 0 afterwards, however it ends.
bool MoveNumbers(Program& program, const CatalogueKind& kind, int& start);
