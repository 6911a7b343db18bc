#include "lending/frmAddInDue.h"

#include "frame/Text.h"
#include "lending/Borrowers.h"
#include "lending/Ledger.h"
#include "lending/Rating.h"
#include "store/NumberedDisc.h"
#include "ui/Lettering.h"
#include "ui/PrefixCompletion.h"
#include "ui/Theme.h"

/// What comes and goes in the layout leaves the rest where it is.
static void keepPlace(QWidget* widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

frmAddInDue::frmAddInDue(Program& program) : Screen(program, u"frmAddInDue"_s, u"Добавление должника"_s)
{
    setUpControls();
    build();
    connect(txtFIO, &QComboBox::editTextChanged, this, [this] { CheckDue(); });
    connect(chDueNonStop, &QCheckBox::toggled, this, [this] { chDueNonStop_Click(); });
    connect(imgButton[0], &ImageButton::clicked, this, [this] { cmdAdd(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { Unload(); });
}

void frmAddInDue::setUpControls()
{
    lblHeader->setText(u"Добавление в список нового должника"_s);
    lettered(lblHeader, Lettering::Heading);
    lettered(lblNumber, Lettering::Heading);
    imgLogo->setScale(2);
    for (QLineEdit* box : {txtCategory, txtName}) box->setReadOnly(true);
    txtName->setMinimumWidth(fontMetrics().averageCharWidth() * 48);

    txtFIO->setEditable(true);
    txtFIO->setCompleter(nullptr);
    txtFIO->setInsertPolicy(QComboBox::NoInsert);
    txtFIO->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    txtFIO->setMaxVisibleItems(12);
    txtFIO->lineEdit()->setMaxLength(LongestName);

    lblDueDay->setText(u"&Сроком до"_s);
    lblDueDay->setBuddy(dtpBackDate);
    dtpBackDate->setAccessibleName(u"Сроком до"_s);
    keepPlace(dtpBackDate);
    chDueNonStop->setText(u"&бессрочный  долг"_s);
    lblDoNewBackDate->hide();

    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Записать в список должников"_s);
    imgButton[0]->setDefault(true);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть, ничего не записывая"_s);
}

QWidget* frmAddInDue::warning()
{
    lblRating1->setText(u"Внимание!"_s);
    lettered(lettered(lblRating1, Lettering::Heading), Lettering::Danger);
    lblRating2->setText(u"Рейтинг этого должника:"_s);
    lettered(lettered(lblRating3, Lettering::Heading), Lettering::Danger);
    lblRating3->setMinimumWidth(lblRating3->fontMetrics().horizontalAdvance(RatingWord(LargestRating)));
    auto* sign = new IconLabel;
    sign->setIcon(u"warning"_s, Theme::danger(palette()));
    sign->setScale(2);
    auto* rating = row(lblRating2, lblRating3);
    auto* words = column(lblRating1, rating);
    words->setSpacing(2);
    auto* all = row(sign, words);
    for (QBoxLayout* line : {rating, all}) line->setSpacing(Theme::Gap);
    all->setContentsMargins(Theme::Gap, Theme::Gap, Theme::Gap, Theme::Gap);
    fraRating->setLayout(all);
    for (QWidget* part : ratingParts()) {
        keepPlace(part);
        part->hide();
    }
    return fraRating;
}

std::array<QWidget*, 4> frmAddInDue::ratingParts() const { return {fraRating, lblRating1, lblRating2, lblRating3}; }

void frmAddInDue::build()
{
    auto* head = row(imgLogo, lblHeader, stretch, label(u"Диск №"_s), lblNumber);
    QWidget* const nothing = nullptr;
    auto* fields = grid({
        {label(u"Категория"_s, txtCategory), txtCategory},
        {lblDescription, txtName},
        {label(u"&Имя должника"_s, txtFIO), txtFIO},
        {nothing, lblDoNewBackDate},
        {lblDueDay, row(dtpBackDate, chDueNonStop, stretch)},
    });
    // The warning stands where the hand goes next, and its place is no hole while there is none.
    auto* end = row(warning(), stretch, imgButton[0], imgButton[1]);
    auto* all = column(head, fields, stretch, end);
    for (QBoxLayout* line : {all, end}) line->setSpacing(Theme::Between);
    setLayout(all);
}

void frmAddInDue::Form_Load()
{
    Guarded("frmAddInDue, Form_Load()"_L1, [&] {
        const Database main = program.mainDatabase();
        auto* completion = new PrefixCompletion(txtFIO->lineEdit(), this);
        completion->setTypedOnly();
        completion->setItems(BorrowerNames(main));
        txtFIO->addItems(BorrowerNames(main, NameOrder::Alphabet));
        txtFIO->setCurrentIndex(-1);
        dtpBackDate->setFirstDay(program.clock.today());
    });
}

void frmAddInDue::Form_Activate()
{
    if (txtFIO->isEnabled())
        txtFIO->setFocus();
    else if (dtpBackDate->isEnabled())
        dtpBackDate->setFocus();
    else
        chDueNonStop->setFocus();
}

void frmAddInDue::LendDisc(const CatalogueKind& kind, qint64 disc)
{
    Load();
    m_kind = &kind;
    m_disc = disc;
    const auto found = DiscWithKey(program.mainDatabase(), kind, disc);
    imgLogo->setIcon(kind.icon);
    imgLogo->setAccent(kind.accent);
    lblNumber->setText(found ? QString::number(found->number) : u"-"_s);
    txtCategory->setText(kind.mediumCaption);
    showTitle(kind.nameHeading(), found ? found->name : u"-"_s);
}

void frmAddInDue::Form_Unload() { program.shared.DueDateChange = false; }

void frmAddInDue::showTitle(const QString& caption, const QString& title)
{
    lblDescription->setText(caption);
    txtName->setAccessibleName(caption);
    txtName->setText(title);
    txtName->setToolTip(title); // longer than the box, often
    txtName->setCursorPosition(0);
}

void frmAddInDue::ChangeTermOf(const ListedLoan& loan, const QString& borrower)
{
    LendDisc(*loan.kind, loan.discKey);
    program.shared.DueDateChange = true;
    showTitle(loan.titleCaption(), loan.title());
    setWindowTitle(u"Изменение срока"_s);
    lblHeader->setText(u"Изменение срока возврата"_s);
    const QString before = loan.due.isValid() ? FormatDate(loan.due, u"d MMMM yyyy г."_s) : u"бессрочный долг"_s;
    lblDoNewBackDate->setText(u"Ранее установленная дата возврата:\n"_s + before);
    lblDoNewBackDate->show();
    {
        const QSignalBlocker noWarning(txtFIO->lineEdit()); // he has the disc already
        txtFIO->setEditText(borrower);
    }
    txtFIO->setEnabled(false);
    if (loan.due.isValid()) return;
    dtpBackDate->hide(); // until there is a term again
    chDueNonStop->setChecked(true);
}

void frmAddInDue::chDueNonStop_Click()
{
    const bool term = !chDueNonStop->isChecked();
    lblDueDay->setEnabled(term);
    dtpBackDate->setEnabled(term);
    if (term) dtpBackDate->show();
}

void frmAddInDue::CheckDue()
{
    Guarded("frmAddInDue, CheckDue()"_L1, [&] {
        // A completed letter is a change of its own besides the typed one.
        if (std::exchange(m_rated, txtFIO->currentText()) == txtFIO->currentText()) return;
        const Hourglass hourglass;
        const QString word = WarningAbout(program.mainDatabase(), name(), program.clock.today());
        lblRating3->setText(word);
        for (QWidget* part : ratingParts()) part->setVisible(!word.isEmpty());
        // For those who do not see it.
        txtFIO->setAccessibleDescription(
            word.isEmpty() ? QString() : u"%1 %2 %3"_s.arg(lblRating1->text(), lblRating2->text(), word));
    });
}

/// A name that somebody has stays as it is, whatever it holds; a new one becomes what may be written.
QString frmAddInDue::name() const
{
    const QString typed = txtFIO->currentText();
    return FindBorrower(program.mainDatabase(), typed) ? typed : CleanText(typed.trimmed());
}

void frmAddInDue::cmdAdd()
{
    Guarded("frmAddInDue, cmdAdd()"_L1, [&] {
        if (name().isEmpty()) {
            txtFIO->setEditText({});
            return refuse(txtFIO->lineEdit(), u"Введите или выберите из списка имя должника.\r"
                                              "Данное поле является обязательным для заполнения."_s);
        }
        if (save()) program.shared.DialogDone = true;
        Unload();
    });
}

/// False when it cannot be done any more; the user has been told then.
bool frmAddInDue::save()
{
    const Database main = program.mainDatabase();
    const QDate due = chDueNonStop->isChecked() ? QDate() : dtpBackDate->date();
    if (program.shared.DueDateChange) {
        if (ChangeTerm(main, *m_kind, m_disc, due)) return true;
        MsgBox(u"Диск № %1 не одалживался!"_s.arg(lblNumber->text()));
        return false;
    }
    const auto disc = DiscWithKey(main, *m_kind, m_disc);
    if (disc && !disc->lent) return IssueDisc(main, *m_kind, m_disc, FindOrAddBorrower(main, name()), due);
    MsgBox((disc ? u"Диск № %1 уже находится у должника."_s : u"Диск № %1 отсутствует в каталоге."_s)
               .arg(lblNumber->text()));
    return false;
}

void ShowAddInDue(Program& program, const CatalogueKind& kind, qint64 disc, QWidget* opener)
{
    frmAddInDue dialog(program);
    {
        const Hourglass hourglass;
        dialog.LendDisc(kind, disc);
    }
    dialog.ShowModal(opener);
}
