#pragma once

#include "catalogue/CatalogueScreen.h"
#include "catalogue/DiscRecord.h"
#include "catalogue/UpDown.h"
#include "ui/ImageButton.h"
#include "ui/PrefixCompletion.h"

/// Enters a disc under a number chosen beforehand, or changes one that there is. The forms of the catalogues lay it out
/// and add the fields that are theirs.
///
/// A saved disc leaves DialogDone and LastSavedNumber for the opener.
class frmAddInCatalogue : public CatalogueScreen {
public:
    frmAddInCatalogue(Program& program, const CatalogueKind& kind);

    /// One of the two, before ShowModal(). A change takes OldDiscCount from the record.
    void AddUnder(int number);
    void Change(const DiscRecord& record);

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
    /// The form's picture, from top to bottom; `extras` stand below the common fields.
    void build(QLayout* extras);
    /// Enter goes from box to box; in the last one it is OK.
    void moveOnByEnter(const QList<QLineEdit*>& boxes);
    bool adding() const { return lblCDsCount0->text() == kind.addCaption; }
    int discs() const;

    virtual void showExtras(const QHash<QString, Value>& extra) = 0;
    virtual QHash<QString, Value> extras() const = 0;

    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cmdAdd();
    bool accepts();
    bool reduced(const Database& main);
    void txtCDs_Change();

    qint64 m_key = 0;
    int m_number = 0;
    PrefixCompletion* m_names;
    PrefixCompletion* m_dictionary;
};
