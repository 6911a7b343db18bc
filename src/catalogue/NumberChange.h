#pragma once

#include "catalogue/Numbering.h"

// Both commit the numbers, and then move the covers. Those are the covers of the DVD catalogue, whichever catalogue the
// disc is in, as with MoveNumbers. No date of a change is set.

/// The disc gets a number that is free.
void ChangeNumber(const Program& program, const CatalogueKind& kind, const NumberedDisc& disc, int number);
/// The discs change places; they may be the same one.
void SwapNumbers(const Program& program, const CatalogueKind& kind, const NumberedDisc& one, const NumberedDisc& other);
