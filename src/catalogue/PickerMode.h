#pragma once

#include "store/CatalogueKind.h"

/// Which discs the picker shows: those of a catalogue, or of these only the ones that can be lent or that are out on loan.
struct PickerMode {
    const CatalogueKind& kind;
    QString condition; ///< on a row, empty for all

    /// The SELECT behind the list; with `text` only discs that have it in their names. The text has been through CleanText;
    /// * ? # in it are wildcards.
    QString source(const QString& text = {}) const;
};

/// The mode that a word tells: "full", "add" or "del" and the code of a catalogue, as in "addPC". Any other word is error 5.
PickerMode PickerModeOf(QStringView word);
