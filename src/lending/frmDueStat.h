#pragma once

#include "lending/BorrowerScreen.h"
#include "lending/Rating.h"
#include "lending/RatingBar.h"
#include "ui/IconLabel.h"
#include "ui/ImageButton.h"
#include "ui/ListView.h"

#include <QCheckBox>
#include <QRadioButton>

/// The borrowers, and of the current one every disc that he has had, how late he brought it back and how he is rated for
/// that.
class frmDueStat : public BorrowerScreen {
public:
    explicit frmDueStat(Program& program);

    /// Behind Load(): begins with that borrower.
    void GoTo(qint64 borrower) { goTo(borrower); }

    std::array<QRadioButton*, 4> optSorted = namedArray("optSorted"); ///< all, then in the order of AllCatalogues()
    QCheckBox* chDue = named("chDue");                                ///< only discs that are out
    ListView* lvRating = named("lvRating");
    QLabel* txtNoDue = named("txtNoDue"); ///< in the place of an empty list

    // Captions, and with index 1 what they are of.
    std::array<QLabel*, 2> lblRating = namedArray("lblRating");
    std::array<QLabel*, 2> lblTotalDays = namedArray("lblTotalDays");
    QLabel* lblDueCount = named("lblDueCount");
    IconLabel* imgGood = named("imgGood");
    RatingBar* prbRating = named("prbRating"); ///< disabled while nothing is rated
    IconLabel* imgBad = named("imgBad");
    std::array<ImageButton*, 1> imgButton = namedArray("imgButton"); ///< close

private:
    void setUpLists();
    void setUpRating();
    void connectControls();
    void build();
    QWidget* rating();
    void showBorrower() override;
    QWidget* focusWithoutRows() override { return imgButton[0]; }

    void CheckDue();
    void showRecord();
    void showNothing();
    void rate(const Standing& standing);
    void showUnrated();
    void lvRating_DblClick(int row);

    /// Null for all.
    const CatalogueKind* chosenKind() const;

    QList<RecordedLoan> m_record; ///< on view; rows hold their place in it
};
