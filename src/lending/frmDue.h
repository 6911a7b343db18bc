#pragma once

#include "frame/Screen.h"
#include "lending/LoanList.h"
#include "lending/PhoneBox.h"
#include "ui/Blinker.h"
#include "ui/DBGrid.h"
#include "ui/IconLabel.h"
#include "ui/ImageButton.h"

#include <QCheckBox>
#include <QComboBox>

/// The discs that are out: who has them, since when and how late he is; and what is done about it. The filter of the
/// moment lives in CatalogueQueryFilter, which is empty before and after.
class frmDue : public Screen {
public:
    explicit frmDue(Program& program);

    class DBGrid* dbGrid = named("DBGrid");
    QLabel* lblSorted = named("lblSorted");
    QComboBox* cmbSorted = named("cmbSorted");
    QCheckBox* chSortedDESC = named("chSortedDESC");
    QLabel* lblCDsCount0 = named("lblCDsCount0");
    QLabel* lblCDsCount1 = named("lblCDsCount1");

    QLabel* TabStrip = named("TabStrip");          ///< over the details
    QLineEdit* txtNumber = named("txtNumber");     ///< Enter goes to the loan of the disc with that number
    QComboBox* cmbCategory = named("cmbCategory"); ///< filters by what is chosen
    QLabel* lblDescriptionCD = named("lblDescriptionCD");
    QLineEdit* txtName = named("txtName");
    QComboBox* txtDueName = named("txtDueName"); ///< filters by what is chosen, or typed and entered
    PhoneBox* txtTelephone = named("txtTelephone");
    ImageButton* cmdMakeChange = named("cmdMakeChange");
    QLineEdit* txtDaysDue = named("txtDaysDue");
    IconLabel* imgDue = named("imgDue");
    QLabel* lblDue = named("lblDue");

    enum Button : std::size_t { CloseButton, LendButton, ReturnButton, TermButton, StatisticsButton, WholeListButton };
    std::array<ImageButton*, 6> imgButton = namedArray("imgButton");

private:
    void setUpList();
    void setUpDetails();
    void setUpButtons();
    void connectControls();
    void build();
    QLayout* details();
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    // Rows
    void loadNames();
    void focusList();
    void cmbSorted_Click();
    void cmbCategory_Click();
    void txtDueName_Click();
    void filterBy(const QString& clause);
    void ClearDueQuery();
    void dcDatabase_Reposition();
    void showNoRow();
    void showLoan(const ListedLoan& loan);
    void showBorrower();
    void showDays(QDate due);
    void txtNumber_KeyPress();
    const DiscOut* choose(const QList<DiscOut>& out, int number);
    bool goTo(const DiscOut& disc);
    const ListedLoan& listed(qint64 loan);

    // Commands
    void rowDoubleClicked();
    void lendAnother();
    void cmdDelete();
    void cmdChange();
    void cmdMakeChange_Click();
    void ShowBorrowerStat();

    bool filtered() const { return !program.shared.CatalogueQueryFilter.isEmpty(); }
    QString borrower() const { return dcDatabase->value(u"Имя").text(); }
    ListedLoan currentLoan() { return listed(dcDatabase->value(u"КодДолжника").toLong()); }

    DataControl* const dcDatabase;
    Blinker* m_due;
    QHash<qint64, ListedLoan> m_listed; ///< loans of rows that were painted, until the next refresh
};
