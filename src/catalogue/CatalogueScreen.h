#pragma once

#include "frame/Screen.h"
#include "store/CatalogueKind.h"
#include "ui/DataControl.h"

#include <QComboBox>

/// A screen that works on one catalogue, `kind`.
class CatalogueScreen : public Screen {
public:
    CatalogueScreen(Program& program, const CatalogueKind& kind, const QString& screenName, const QString& title)
        : Screen(program, screenName, title), kind(kind)
    {}

protected:
    /// Tag of the controls that a screen enables or shows together.
    static inline const QString MyGroup = u"MyGroup"_s;

    /// The catalogue's picture in its accent.
    QWidget* sign() const;
    /// The top of a dialog: the sign and, as its heading, the caption that says what is done.
    QBoxLayout* head(QLabel* caption) const;
    /// Fills a list with the drives, the default one or else the first chosen. False without drives: it shows "---" then
    /// and is disabled.
    bool loadDrives(QComboBox* drives) const;
    /// Fills a list with the discs of a set, "1" to "6", the first one chosen; it is disabled for a single disc.
    static void fillSet(QComboBox* list, int discs);

    /// What was typed in a box of free text, which then holds it cleaned: see CleanText.
    static QString cleanTyped(QLineEdit* box);
    /// Enter in the number box of a list: the list goes to that disc, or the user is told.
    void jumpToNumber(QLineEdit* box, DataControl& list);

    const CatalogueKind& kind;
};
