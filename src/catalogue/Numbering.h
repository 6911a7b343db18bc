#pragma once

#include "frame/Program.h"
#include "store/NumberedDisc.h"

#include <optional>

inline constexpr int LastNumber = 32767;

/// The smallest number above `after` that no disc of the catalogue has: gaps are filled before the end is extended. None
/// when all are taken.
std::optional<int> FirstFreeNumber(const Database& main, const CatalogueKind& kind, int after = 0);
/// The free number that a search offers when the one it offered before, `refused`, is not taken; 0 at its beginning. None
/// when it gives up: all are taken, or the refusal brings it to the kind's searchEnd.
std::optional<int> NextOffer(const Database& main, const CatalogueKind& kind, int refused);

/// Whether numbers can move up by one: the last one is not taken.
bool CanMoveNumbers(const Database& main, const CatalogueKind& kind);
/// Told when those from `start` on cannot.
QString CannotMoveMessage(int start);

/// Moves the numbers from `start` on up by one and commits them, and then the covers with them. The covers that move are
/// those of the DVD catalogue, whichever catalogue is renumbered, and only up to the count of rows: a user's covers have
/// always been numbered by this rule. `start` is 0 afterwards, also after a fault.
/// False, with nothing done and `start` as it was, unless CanMoveNumbers.
bool MoveNumbers(Program& program, const CatalogueKind& kind, int& start);
