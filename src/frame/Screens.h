#pragma once

#include "platform/Literals.h"

#include <functional>
#include <optional>

class Form;
struct CatalogueKind;

/// A row of a list that is shown when the list opens.
struct ListPlace {
    QString folder = {}; ///< "\\DIR\\SUB\\", files only
    QString name = {};   ///< of the file, or the track's title; empty: the folder itself
};

/// What the file browser or the track screen is opened on.
struct ListRequest {
    qint64 key = 0; ///< of the catalogue row
    int number = 0;
    QString title;
    QString album; ///< audio only
    int discs = 1; ///< in the set
    int disc = 1;  ///< shown first
    std::optional<ListPlace> place = {};
};

/// What the picker of discs gives back: one disc of the set of a catalogue row.
struct DiscChoice {
    qint64 key = 0; ///< of the row: numbers may be shared
    int number = 0;
    int disc = 1; ///< 1 to 6
};

/// Screens that subsystems open in one another. The main window implements it; the arrows between floors still point
/// down. Every call is modal: it returns when the screen has closed.
class Screens {
public:
    virtual ~Screens() = default;

    /// Whether a screen exists in this program, by its name; commands that lead to one that does not are disabled.
    virtual bool offers(QStringView screen) const = 0;

    virtual void ShowFileList(Form& opener, const ListRequest& request) = 0;
    virtual void ShowTrackList(Form& opener, const ListRequest& request) = 0;
    /// The loan dialog for one disc.
    virtual void ShowAddInDue(Form& opener, const CatalogueKind& kind, qint64 disc) = 0;
    /// The picker of discs. `mode` is "full" for all, "add" for those that can be lent or "del" for those that are out,
    /// and the catalogue behind it: "addPC". Nothing when the user gave up.
    virtual std::optional<DiscChoice> PickDisc(Form& opener, const QString& mode) = 0;
};
