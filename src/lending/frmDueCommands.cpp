#include "frame/Settings.h"
#include "lending/Borrowers.h"
#include "lending/Ledger.h"
#include "lending/frmAddInDue.h"
#include "lending/frmAddInDueFromMain.h"
#include "lending/frmDue.h"
#include "lending/frmDueStat.h"

void frmDue::rowDoubleClicked()
{
    imgButton[OptionIsOn(program, u"DblClickDue") ? StatisticsButton : TermButton]->click();
}

void frmDue::lendAnother()
{
    Guarded("frmDue, imgButton_Click()"_L1, [&] {
        const QString filter = program.shared.CatalogueQueryFilter; // the picker has a use of its own for it
        const auto newestLoan = [this] {
            return program.mainDatabase().Scalar(u"SELECT MAX(КодДолжника) FROM Должники").toLong();
        };
        const qint64 before = newestLoan();
        frmAddInDueFromMain(program).ShowModal(this);
        program.shared.CatalogueQueryFilter = filter;
        loadNames(); // somebody may have borrowed for the first time
        dcDatabase->RefreshInPlace();
        const qint64 newest = newestLoan();
        if (newest > before) dcDatabase->FindFirst(u"КодДолжника = ?"_s, {newest});
        focusList();
    });
}

void frmDue::cmdDelete()
{
    Guarded("frmDue, cmdDelete()"_L1, [&] {
        if (!Ask(u"Удалить из списка должника '%1'?"_s.arg(borrower()))) return;
        const ListedLoan loan = currentLoan();
        const int position = dcDatabase->position();
        if (loan.kind)
            TakeBack(program.mainDatabase(), *loan.kind, loan.discKey, program.clock.today(), Closes::NewestOpen);
        else
            CloseLoan(program.mainDatabase(), dcDatabase->value(u"КодДолжника").toLong(), program.clock.today());
        dcDatabase->Refresh();
        dcDatabase->MoveTo(position);
        focusList();
    });
}

void frmDue::cmdChange()
{
    Guarded("frmDue, cmdChange()"_L1, [&] {
        const ListedLoan loan = currentLoan();
        if (!loan.kind) return;
        frmAddInDue dialog(program);
        dialog.ChangeTermOf(loan, borrower());
        dialog.ShowModal(this);
        if (!std::exchange(program.shared.DialogDone, false)) return;
        dcDatabase->RefreshInPlace();
        dbGrid->setFocus();
    });
}

void frmDue::cmdMakeChange_Click()
{
    Guarded("frmDue, cmdMakeChange_Click()"_L1, [&] { StorePhone(program, *dcDatabase, *txtTelephone); });
}

void frmDue::ShowBorrowerStat()
{
    Guarded("frmDue, ShowBorrowerStat()"_L1, [&] {
        frmDueStat statistics(program);
        statistics.Load();
        const auto named = FindBorrower(program.mainDatabase(), txtDueName->currentText());
        if (dcDatabase->hasRow())
            statistics.GoTo(dcDatabase->value(u"КодИмени").toLong());
        else if (named)
            statistics.GoTo(*named);
        statistics.ShowModal(this);
    });
}
