#pragma once

#include "frame/Screen.h"
#include "lending/LoanList.h"
#include "lending/TermBox.h"
#include "ui/IconLabel.h"
#include "ui/ImageButton.h"
#include "ui/Notice.h"

#include <QCheckBox>
#include <QComboBox>

/// Lends one disc to somebody, or sets another term for one that is out; DueDateChange stands while it does that.
/// DialogDone tells whether it did.
class frmAddInDue : public Screen {
public:
    explicit frmAddInDue(Program& program);

    // One of the two, before ShowModal().
    void LendDisc(const CatalogueKind& kind, qint64 disc);
    /// Of a loan whose catalogue is known.
    void ChangeTermOf(const ListedLoan& loan, const QString& borrower);

    IconLabel* imgLogo = named("imgLogo");
    QLabel* lblHeader = named("lblHeader"); ///< says what is done
    QLabel* lblNumber = named("lblNumber");
    QLineEdit* txtCategory = named("txtCategory");
    QLabel* lblDescription = named("lblDescription"); ///< what txtName is
    QLineEdit* txtName = named("txtName");
    QComboBox* txtFIO = named("txtFIO"); ///< to be typed in; completes from the names in their stored order
    QLabel* lblDoNewBackDate = named("lblDoNewBackDate"); ///< the term so far, of a change
    QLabel* lblDueDay = named("lblDueDay");
    TermBox* dtpBackDate = named("dtpBackDate");
    QCheckBox* chDueNonStop = named("chDueNonStop");
    Notice* fraRating = named("fraRating"); ///< shown with the three labels in it
    QLabel* lblRating1 = named("lblRating1");
    QLabel* lblRating2 = named("lblRating2");
    QLabel* lblRating3 = named("lblRating3");                        ///< the word for the borrower
    std::array<ImageButton*, 2> imgButton = namedArray("imgButton"); ///< OK, cancel

private:
    void setUpControls();
    void build();
    QWidget* warning();
    std::array<QWidget*, 4> ratingParts() const;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

    void showTitle(const QString& caption, const QString& title);
    void chDueNonStop_Click();
    void CheckDue();
    void cmdAdd();
    QString name() const;
    bool save();

    const CatalogueKind* m_kind = nullptr;
    qint64 m_disc = 0;
    QString m_rated; ///< text of txtFIO that the warning is about
};

/// Opens it to lend a disc.
void ShowAddInDue(Program& program, const CatalogueKind& kind, qint64 disc, QWidget* opener = nullptr);
