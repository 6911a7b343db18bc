#include "lending/frmDue.h"

#include "frame/Settings.h"
#include "frame/Text.h"
#include "lending/Borrowers.h"
#include "lending/DaysOverdue.h"
#include "lending/Ledger.h"
#include "recognition/frmSelectCategory.h"
#include "ui/FocusMoves.h"

#include <algorithm>

frmDue::frmDue(Program& program)
    : Screen(program, u"frmDue"_s, u"Список должников"_s), dcDatabase(new DataControl(this)),
      m_due(new Blinker({imgDue, lblDue}, this))
{
    dcDatabase->setObjectName(u"dcDatabase"_s);
    connect(dcDatabase, &DataControl::refreshed, this, [this] { m_listed.clear(); }); // before the grid hears of it
    setUpList();
    setUpDetails();
    setUpButtons();
    build();
    connectControls();
}

void frmDue::Form_Load()
{
    Guarded("frmDue, Form_Load()"_L1, [&] {
        program.shared.CatalogueQueryFilter.clear();
        dcDatabase->setDatabase(program.mainDatabase());
        if (const auto interval = BlinkInterval(program, u"tmrDueCatalogue")) m_due->setInterval(*interval);
        cmbCategory->addItem(QString());
        for (const CatalogueKind* kind : AllCatalogues()) cmbCategory->addItem(kind->mediumCaption);
        loadNames();

        const Profile settings = program.settings();
        const int order = int(settings.number(u"Sorted", u"DUEsorted"));
        const bool kept = settings.has(u"Sorted", u"DUEsorted") && order >= 0 && order < cmbSorted->count();
        cmbSorted->setCurrentIndex(kept ? order : 0);
        chSortedDESC->setChecked(kept && settings.number(u"Sorted", u"DUEsortedDESC") == 1);
        imgButton[WholeListButton]->setEnabled(false);
    });
    cmbSorted_Click();
}

void frmDue::Form_Activate() { focusList(); }

void frmDue::focusList()
{
    if (dcDatabase->hasRow())
        dbGrid->setFocus();
    else
        imgButton[LendButton]->setFocus();
}

void frmDue::Form_Unload()
{
    Guarded("frmDue, Form_Unload()"_L1, [&] {
        program.shared.CatalogueQueryFilter.clear();
        if (OptionIsOn(program, u"SaveSortedDueList")) {
            const Profile settings = program.settings();
            settings.write(u"Sorted", u"DUEsorted", QString::number(cmbSorted->currentIndex()));
            settings.write(u"Sorted", u"DUEsortedDESC", QString::number(int(chSortedDESC->isChecked())));
        }
        dcDatabase->close();
    });
}

void frmDue::loadNames()
{
    const QString shown = txtDueName->currentText(); // the list would show its first name in its place
    txtDueName->clear();
    txtDueName->addItems(BorrowerNames(program.mainDatabase(), NameOrder::Alphabet));
    txtDueName->setEditText(shown);
}

void frmDue::cmbSorted_Click()
{
    Guarded("frmDue, cmbSorted_Click()"_L1, [&] {
        dcDatabase->setRecordSource(
            LoanListSource(program.shared.CatalogueQueryFilter, cmbSorted->currentIndex(), chSortedDESC->isChecked()));
        dcDatabase->Refresh();
    });
}

void frmDue::filterBy(const QString& clause)
{
    program.shared.CatalogueQueryFilter = clause;
    setWindowTitle(u"Список должников - Результат запроса"_s);
    imgButton[WholeListButton]->setEnabled(true);
    cmbSorted_Click();
}

void frmDue::cmbCategory_Click()
{
    for (const CatalogueKind* kind : AllCatalogues())
        if (cmbCategory->currentText() == kind->mediumCaption) return filterBy(CategoryFilter(*kind));
    ClearDueQuery();
}

void frmDue::txtDueName_Click()
{
    const QString name = txtDueName->currentText();
    if (name.isEmpty()) return ClearDueQuery();
    cmbCategory->setCurrentIndex(0);
    const bool known = txtDueName->findText(name, Qt::MatchFixedString | Qt::MatchCaseSensitive) >= 0;
    filterBy(known ? NameFilter(name) : BorrowerFilter(name));
}

void frmDue::ClearDueQuery()
{
    program.shared.CatalogueQueryFilter.clear();
    setWindowTitle(u"Список должников"_s);
    // A button that greys under the focus hands it to its neighbour.
    if (imgButton[WholeListButton]->hasFocus()) focusList();
    imgButton[WholeListButton]->setEnabled(false);
    cmbSorted_Click();
}

/// Formats of several columns ask for the same loan.
const ListedLoan& frmDue::listed(qint64 loan)
{
    const auto known = m_listed.constFind(loan);
    return known != m_listed.cend() ? *known : *m_listed.insert(loan, LoanWithKey(program.mainDatabase(), loan));
}

void frmDue::dcDatabase_Reposition()
{
    Guarded("frmDue, dcDatabase_Reposition()"_L1, [&] {
        lblCDsCount0->setText(filtered() ? u"Должников удовлетворяющих запросу:"_s : u"Должников в списке:"_s);
        lblCDsCount1->setText(QString::number(dcDatabase->recordCount()));
        const bool any = dcDatabase->hasRow();
        // An empty list leaves nothing to look for; an empty result leaves the filters to be changed.
        setEnabledByTag(u"MyGroup", any || filtered());
        setVisibleByTag(u"ListGroup", any || filtered());
        for (QWidget* control : std::initializer_list<QWidget*>{imgButton[ReturnButton], imgButton[TermButton],
                                                                txtTelephone, cmdMakeChange})
            control->setEnabled(any);
        // Who has brought everything back is known by his name alone.
        imgButton[StatisticsButton]->setEnabled(any || filtered());
        if (any)
            showLoan(currentLoan());
        else
            showNoRow();
    });
}

void frmDue::showNoRow()
{
    m_due->setOn(false);
    for (QLineEdit* box : {txtNumber, txtName, txtDaysDue, static_cast<QLineEdit*>(txtTelephone)}) box->clear();
    cmbCategory->setCurrentIndex(0);
    // The name stays that was asked for, not that of the row which has gone.
    const QString& filter = program.shared.CatalogueQueryFilter;
    if (filter.isEmpty() || IsCategoryFilter(filter)) txtDueName->setCurrentIndex(-1);
    lblDescriptionCD->setText(u"Группа/Исполнитель - Альбом/Название"_s);
    dbGrid->setEmptyText(filtered() ? u"По этому запросу никого нет."_s : u"Все диски на месте: должников нет."_s);
}

void frmDue::showLoan(const ListedLoan& loan)
{
    lblDescriptionCD->setText(loan.titleCaption());
    cmbCategory->setCurrentText(loan.kind ? loan.kind->mediumCaption : QString());
    txtNumber->setText(loan.disc ? QString::number(loan.disc->number) : QString());
    txtName->setText(loan.title());
    txtName->setToolTip(loan.title()); // longer than the box, often
    txtName->setCursorPosition(0);
    showBorrower();
    txtTelephone->setText(dcDatabase->value(u"Телефон").text());
    showDays(loan.due);
    imgButton[TermButton]->setEnabled(loan.kind);
}

void frmDue::showBorrower()
{
    const QString name = borrower();
    // With its item the list takes the text for chosen already and does not choose it when it is left.
    txtDueName->setCurrentIndex(txtDueName->findText(name));
    txtDueName->setEditText(name);
    txtDueName->lineEdit()->setCursorPosition(0);
}

/// What was typed in a box and led nowhere goes when the box is left.
bool frmDue::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && FocusMoves(*static_cast<QFocusEvent*>(event)) && dcDatabase->hasRow()) {
        Guarded("frmDue, Control_LostFocus()"_L1, [&] {
            if (watched == txtDueName) showBorrower();
            if (watched == txtNumber && txtNumber->isModified()) showLoan(currentLoan());
        });
    }
    return Screen::eventFilter(watched, event);
}

void frmDue::showDays(QDate due)
{
    const QDate today = program.clock.today();
    m_due->setOn(IsDue(due, today));
    lblDue->setText(IsDue(due, today) ? u"Забрать"_s : QString());
    txtDaysDue->setText(DaysOverdueText(DaysOverdue(due, today)));
}

void frmDue::txtNumber_KeyPress()
{
    Guarded("frmDue, txtNumber_KeyPress()"_L1, [&] {
        const int number = DiscNumber(txtNumber->text());
        if (number == 0) return refuse(txtNumber, u"Указан не верный номер диска. Повторите ввод."_s);
        const QList<DiscOut> out = DiscsOut(program.mainDatabase(), number);
        const DiscOut* disc = out.size() > 1 ? choose(out, number) : out.isEmpty() ? nullptr : &out.first();
        if (!disc && !out.isEmpty()) return txtNumber->selectAll();
        // What is only marked as lent is not in the list either.
        if (!disc || !HasOpenLoan(program.mainDatabase(), *disc->kind, disc->disc))
            return refuse(txtNumber, u"Диска № %1 нет в списке должников!"_s.arg(number));
        if (goTo(*disc)) return;
        ClearDueQuery(); // it is behind the filter
        goTo(*disc);
    });
}

/// Numbers repeat across catalogues. Null when the user does not say which one he means.
const DiscOut* frmDue::choose(const QList<DiscOut>& out, int number)
{
    frmSelectCategory dialog(program);
    dialog.Load();
    std::array<bool, 3> offered{};
    for (const DiscOut& disc : out) offered[CatalogueIndex(*disc.kind)] = true;
    dialog.ask(u"Какая категория диска № %1 Вас интересует?"_s.arg(number), offered);
    dialog.ShowModal(this);
    if (!std::exchange(program.shared.DialogDone, false)) return nullptr;
    const CatalogueKind* chosen = AllCatalogues()[std::size_t(dialog.choice())];
    const auto disc = std::ranges::find(out, chosen, &DiscOut::kind);
    return disc == out.end() ? nullptr : &*disc;
}

bool frmDue::goTo(const DiscOut& disc)
{
    return dcDatabase->FindFirst(u"КодДиска = ? AND Категория = ?"_s, {disc.disc, disc.kind->code});
}
