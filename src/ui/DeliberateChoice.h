#pragma once

class QComboBox;

/// For a list whose choice acts at once: only an entry of the open list is chosen. The wheel over the closed one does
/// nothing, and the arrow keys open it, where they would choose each entry on the way to the one that is meant.
void ChooseDeliberately(QComboBox* list);
