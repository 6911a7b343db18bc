#include "frame/Text.h"
#include "lending/Borrowers.h"
#include "lending/frmDue.h"
#include "ui/DeliberateChoice.h"
#include "ui/Icons.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

void frmDue::setUpList()
{
    const auto day = [](const Value& value) { return FormatDate(value.date(), u"dd.MM.yyyy"_s); };
    const auto disc = [this](const Value& loan) { return listed(loan.toLong()).discText(); };
    const auto picture = [this](const Value& loan) {
        const CatalogueKind* kind = listed(loan.toLong()).kind;
        return kind ? catalogueIcon(kind->icon, kind->accent) : QIcon();
    };
    const auto today = [this] { return this->program.clock.today(); };
    const auto isToday = [=, this](const Value& loan) { return listed(loan.toLong()).due == today(); };
    const auto due = [=, this](const Value& loan) { return TermText(listed(loan.toLong()).due, today()); };
    const auto late = [=, this](const Value& loan) { return LatenessText(listed(loan.toLong()).due, today()); };
    const auto always = [](const Value&) { return true; };
    const QString loan = u"КодДолжника"_s;
    dbGrid->setColumns({
        {.field = u"Имя"_s, .caption = u"Должник"_s},
        {.field = loan, .caption = u"Диск"_s, .format = disc, .icon = picture},
        {.field = u"ДатаВыдачи"_s, .caption = u"Выдан"_s, .format = day, .width = 10},
        {.field = loan, .caption = u"Вернуть"_s, .format = due, .width = 10, .danger = isToday},
        {.field = loan, .caption = u"Опоздание"_s, .format = late, .width = 11, .danger = always},
    });
    dbGrid->setDataControl(dcDatabase);
    dbGrid->setAccessibleName(u"Список должников"_s);
    for (const SortOrder& order : LoanListOrders()) cmbSorted->addItem(order.item);
    chSortedDESC->setText(u"в об&ратном порядке"_s);
    dbGrid->setMinimumHeight(fontMetrics().height() * 10);
    lblSorted->setText(u"&Сортировка:"_s);
    lblSorted->setBuddy(cmbSorted);
    cmbSorted->setAccessibleName(u"Сортировка"_s);
    setTag({lblSorted, cmbSorted, chSortedDESC, TabStrip}, u"ListGroup"_s);
}

void frmDue::setUpDetails()
{
    lettered(TabStrip, Lettering::Heading)->setText(u"Выбранный долг"_s);
    txtNumber->setMaxLength(5);
    DigitKeys(txtNumber);
    for (QLineEdit* box : {txtName, txtDaysDue}) box->setReadOnly(true);
    lblDescriptionCD->setTextFormat(Qt::PlainText);
    for (QComboBox* list : {cmbCategory, txtDueName}) {
        ChooseDeliberately(list);
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(18);
    }
    txtDueName->setEditable(true);
    txtDueName->setCompleter(nullptr);
    txtDueName->setInsertPolicy(QComboBox::NoInsert);
    txtDueName->lineEdit()->setMaxLength(LongestName);
    imgDue->setIcon(u"loan-warning"_s, Theme::danger(palette()));
    lettered(lettered(lblDue, Lettering::Heading), Lettering::Danger);
    cmdMakeChange->setup(u"save"_s, {}, u"Записать телефон должника (Enter)"_s);
    setTag({txtNumber, cmbCategory, txtName, txtDueName, txtDaysDue}, u"MyGroup"_s);
}

void frmDue::setUpButtons()
{
    imgButton[CloseButton]->setup(u"close"_s, u"Закрыть"_s, u"Закрыть список (Esc)"_s);
    imgButton[LendButton]->setup(u"loan"_s, u"Выдать диск"_s, u"Выдать диск новому должнику (Insert)"_s);
    imgButton[ReturnButton]->setup(u"loan-return"_s, u"Вернул"_s,
                                   u"Диск вернулся: удалить должника из списка (Delete)"_s);
    imgButton[TermButton]->setup(u"calendar"_s, u"Изменить срок"_s, u"Изменить срок возврата"_s, Qt::Key_F2);
    imgButton[StatisticsButton]->setup(u"statistics"_s, u"Статистика"_s, u"Статистика этого должника"_s);
    imgButton[WholeListButton]->setup(u"list-all"_s, u"Весь список"_s, u"Показать весь список"_s, Qt::Key_F5);
}

void frmDue::connectControls()
{
    connect(dcDatabase, &DataControl::Reposition, this, [this] { dcDatabase_Reposition(); });
    connect(cmbSorted, &QComboBox::activated, this, [this] { cmbSorted_Click(); });
    connect(chSortedDESC, &QCheckBox::clicked, this, [this] { cmbSorted_Click(); });
    connect(cmbCategory, &QComboBox::activated, this, [this] { cmbCategory_Click(); });
    connect(txtDueName, &QComboBox::activated, this, [this] { txtDueName_Click(); });
    connect(txtDueName->lineEdit(), &QLineEdit::returnPressed, this, [this] { txtDueName_Click(); });
    connect(txtNumber, &QLineEdit::returnPressed, this, [this] { txtNumber_KeyPress(); });
    txtNumber->installEventFilter(this);
    txtDueName->installEventFilter(this);
    connect(txtTelephone, &QLineEdit::returnPressed, this, [this] { cmdMakeChange_Click(); });
    connect(cmdMakeChange, &ImageButton::clicked, this, [this] { cmdMakeChange_Click(); });
    connect(dbGrid, &DBGrid::rowDoubleClicked, this, [this] { rowDoubleClicked(); });
    connect(dbGrid, &DBGrid::deletePressed, this, [this] { imgButton[ReturnButton]->click(); });
    connect(dbGrid, &DBGrid::insertPressed, this, [this] { imgButton[LendButton]->click(); });
    connect(imgButton[CloseButton], &ImageButton::clicked, this, [this] { Unload(); });
    connect(imgButton[LendButton], &ImageButton::clicked, this, [this] { lendAnother(); });
    connect(imgButton[ReturnButton], &ImageButton::clicked, this, [this] { cmdDelete(); });
    connect(imgButton[TermButton], &ImageButton::clicked, this, [this] { cmdChange(); });
    connect(imgButton[StatisticsButton], &ImageButton::clicked, this, [this] { ShowBorrowerStat(); });
    connect(imgButton[WholeListButton], &ImageButton::clicked, this, [this] { ClearDueQuery(); });
}

QLayout* frmDue::details()
{
    txtNumber->setFixedWidth(fontMetrics().horizontalAdvance(u"0000000000"_s));
    // In two lines, always: the fields beside it keep their place.
    lblDescriptionCD->setWordWrap(true);
    lblDescriptionCD->setFixedWidth(fontMetrics().horizontalAdvance(u"Группа/Исполнитель - "_s));
    lblDescriptionCD->setMinimumHeight(2 * fontMetrics().lineSpacing());
    txtName->setAccessibleName(u"Диск"_s);
    txtDaysDue->setMinimumWidth(fontMetrics().horizontalAdvance(u"1000 дней0000"_s));
    auto* person = grid({
        {label(u"&Должник [запрос]"_s, txtDueName), txtDueName},
        {label(u"&Телефон"_s, txtTelephone), row(txtTelephone, cmdMakeChange)},
        {label(u"&Опоздание"_s, txtDaysDue), row(txtDaysDue, imgDue, lblDue, stretch)},
    });
    auto* disc = grid({
        {label(u"&Категория [запрос]"_s, cmbCategory), cmbCategory},
        {label(u"&Номер диска"_s, txtNumber), row(txtNumber, stretch)},
        {lblDescriptionCD, txtName},
    });
    auto* both = row();
    both->setSpacing(Theme::Between);
    both->addLayout(person, 1);
    both->addLayout(disc, 1);
    return column(TabStrip, both);
}

void frmDue::build()
{
    auto* sign = new IconLabel;
    sign->setIcon(u"people"_s);
    sign->setScale(2);
    auto* buttons = row(sign, imgButton[LendButton], imgButton[ReturnButton], imgButton[TermButton],
                        imgButton[StatisticsButton], stretch, imgButton[WholeListButton], imgButton[CloseButton]);
    buttons->setSpacing(Theme::Gap);
    auto* counter = row(lblSorted, cmbSorted, chSortedDESC, stretch, lblCDsCount0, lblCDsCount1);
    auto* list = column(counter, dbGrid);
    list->setStretch(1, 1);
    auto* all = column(buttons, list, details());
    all->setStretch(1, 1);
    all->setSpacing(Theme::Between);
    setLayout(all);
    setMaximizable();
    resize(fontMetrics().horizontalAdvance(u'0') * 120, fontMetrics().height() * 38);
}
