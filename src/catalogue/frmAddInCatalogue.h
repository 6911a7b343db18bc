#pragma once

#include "catalogue/CatalogueScreen.h"
#include "catalogue/DiscRecord.h"
#include "catalogue/UpDown.h"
#include "ui/ImageButton.h"
#include "ui/PrefixCompletion.h"

/// Enters a disc under a number chosen beforehand, or changes one that there is. The forms of the catalogues lay it out
/// and add the fields that are theirs.
///
/// A saved disc leaves saved(), DialogDone and LastSavedNumber for the opener.
class frmAddInCatalogue : public CatalogueScreen {
public:
    frmAddInCatalogue(Program& program, const CatalogueKind& kind);

    /// One of the two, before ShowModal(). A change takes OldDiscCount from the record.
    /// The title is offered: typing replaces it.
    void AddUnder(int number, const OfferedTitle& offered = {});
    void Change(const DiscRecord& record);

    /// Key of the disc that was saved.
    std::optional<qint64> saved() const { return m_saved; }

    QLabel* lblCDsCount0 = named("lblCDsCount0"); ///< its text says whether a disc is added or changed
    QLabel* lblNumber = named("lblNumber");
    QLineEdit* txtName = named("txtName");
    QLineEdit* txtYear = named("txtYear");
    UpDown* udYear = named("udYear");
    QLineEdit* txtCDs = named("txtCDs");
    UpDown* udCDs = named("udCDs");
    QLineEdit* txtDictionary; ///< txtStyle, txtDescription, txtGenre
    std::array<ImageButton*, 2> imgButton = namedArray("imgButton");

protected:
    /// What a catalogue has beside the common fields; null where it has nothing.
    struct OwnFields {
        QWidget *titleCaption = nullptr, *title = nullptr; ///< a row behind the title
        QLayout* behindYear = nullptr;                     ///< in one row with year and count, between them
        QLayout* behindCount = nullptr;
        QWidget* lastCaption = nullptr; ///< a row behind the dictionary
        QLayout* last = nullptr;
        QLayout* below = nullptr; ///< all of these
    };
    /// The form's picture.
    void build(const OwnFields& own);
    /// The box completes from the titles of the catalogue and is cleaned when the disc is saved, as txtName is.
    void completeTitles(QLineEdit* box);
    /// Enter goes from control to control, in the order of the picture; in the last one it is OK. Line boxes and lists.
    void moveOnByEnter(const QList<QWidget*>& order);
    bool adding() const { return lblCDsCount0->text() == kind.addCaption; }
    int discs() const;
    /// The count of discs is another one, or the same again.
    virtual void discsChanged() {}

    virtual void showExtras(const QHash<QString, Value>& extra) = 0;
    virtual QHash<QString, Value> extras() const = 0;

    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cmdAdd();
    bool complain();
    bool shiftNumbers();
    void moveOn(QWidget* from);
    void txtCDs_Change();
    PrefixCompletion* completion(QLineEdit* box);

    qint64 m_key = 0;
    int m_number = 0;
    bool m_offering = false; ///< what the boxes get is not typed, and is not to be completed
    std::optional<qint64> m_saved;
    PrefixCompletion* m_dictionary = nullptr;
    QList<PrefixCompletion*> m_titles;
    QList<QLineEdit*> m_freeTexts; ///< boxes that are cleaned
    QList<QWidget*> m_order;       ///< of Enter
};
