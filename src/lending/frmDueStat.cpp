#include "lending/frmDueStat.h"

#include "store/NumberedDisc.h"
#include "ui/Card.h"
#include "ui/Icons.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <algorithm>

frmDueStat::frmDueStat(Program& program) : BorrowerScreen(program, u"frmDueStat"_s, u"Статистика должников"_s)
{
    setUpLists();
    setUpRating();
    build();
    connectControls();
}

void frmDueStat::setUpLists()
{
    dbGrid->setMinimumWidth(fontMetrics().averageCharWidth() * 40);

    const std::array captions{u"&Все"_s, u"&Аудио"_s, u"&Компьютерные"_s, u"&DVD"_s};
    for (std::size_t i = 0; i < captions.size(); ++i) optSorted[i]->setText(captions[i]);
    optSorted[0]->setChecked(true);
    chDue->setText(u"Д&олги"_s);
    chDue->setToolTip(u"Только диски, которые ещё не вернулись"_s);
    lvRating->setColumns(
        {{u"Категория диска"_s}, {u"№"_s, 7, Qt::AlignRight}, {u"Задержка (дн.)"_s, 14, Qt::AlignRight}});
    lvRating->setSortable(true);
    lvRating->setAccessibleName(u"Диски должника"_s);
    lvRating->setMinimumSize(fontMetrics().averageCharWidth() * 50, fontMetrics().height() * 9);
    lettered(txtNoDue, Lettering::Empty);
    setTag({dbGrid, optSorted[0], optSorted[1], optSorted[2], optSorted[3], chDue, lvRating}, u"MyGroup"_s);
    imgButton[0]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть (Esc)"_s);
}

void frmDueStat::setUpRating()
{
    lblRating[0]->setText(u"Рейтинг:"_s);
    lblTotalDays[0]->setText(u"Общее количество дней задержки:"_s);
    for (QLabel* value : {lblRating[1], lblTotalDays[1], lblDueCount}) lettered(value, Lettering::Heading);
    prbRating->setAccessibleName(u"Рейтинг"_s);
    imgGood->setIcon(u"face-good"_s);
    imgGood->setAccent(1);
    imgBad->setIcon(u"face-bad"_s, Theme::danger(palette()));
    for (IconLabel* end : {imgGood, imgBad}) end->setScale(1.7);
}

void frmDueStat::connectControls()
{
    for (QRadioButton* option : optSorted) connect(option, &QRadioButton::clicked, this, [this] { CheckDue(); });
    connect(chDue, &QCheckBox::clicked, this, [this] { CheckDue(); });
    connect(lvRating, &ListView::rowActivated, this, [this](int row) { lvRating_DblClick(row); });
    connect(imgButton[0], &ImageButton::clicked, this, [this] { Unload(); });
}

QWidget* frmDueStat::rating()
{
    auto* scale = row(imgGood, prbRating, imgBad);
    scale->setSpacing(Theme::Gap);
    auto* figures = grid(
        {{lblRating[0], lblRating[1]}, {lblTotalDays[0], lblTotalDays[1]}, {label(u"Долгов:"_s), lblDueCount}});
    auto* all = column(scale, figures);
    all->setSpacing(Theme::Gap);
    auto* card = new Card;
    card->setLayout(all);
    return card;
}

void frmDueStat::build()
{
    auto* options = row(optSorted[0], optSorted[1], optSorted[2], optSorted[3], stretch, chDue);
    options->setSpacing(Theme::Gap);
    auto* record = column(options, stack(lvRating, txtNoDue), rating());
    record->setStretch(1, 1);
    record->setSpacing(Theme::Gap);
    auto* both = row();
    both->setSpacing(Theme::Between);
    both->addWidget(dbGrid, 2);
    both->addLayout(record, 3);
    auto* all = column(both, row(stretch, imgButton[0]));
    all->setStretch(0, 1);
    all->setSpacing(Theme::Between);
    setLayout(all);
    setMaximizable();
    resize(fontMetrics().horizontalAdvance(u'0') * 116, fontMetrics().height() * 34);
}

void frmDueStat::showBorrower()
{
    setWindowTitle(u"Статистика должников (всего: %1)"_s.arg(dcDatabase->recordCount()));
    setEnabledByTag(u"MyGroup", dcDatabase->hasRow());
    if (dcDatabase->hasRow())
        CheckDue();
    else
        showNothing();
}

const CatalogueKind* frmDueStat::chosenKind() const
{
    for (std::size_t i = 0; i < AllCatalogues().size(); ++i)
        if (optSorted[i + 1]->isChecked()) return AllCatalogues()[i];
    return nullptr;
}

void frmDueStat::CheckDue()
{
    Guarded("frmDueStat, CheckDue()"_L1, [&] {
        const Hourglass hourglass;
        m_record = RecordOf(program.mainDatabase(), currentKey(), program.clock.today(), chosenKind(),
                            chDue->isChecked());
        if (m_record.isEmpty()) return showNothing();
        showRecord();
        const Standing standing = StandingOf(m_record);
        if (chDue->isChecked())
            showUnrated(); // who has brought nothing back yet
        else
            rate(standing);
        lblDueCount->setText(standing.out > 0 ? QString::number(standing.out) : u"нет"_s);
    });
}

void frmDueStat::showRecord()
{
    QList<ListView::Row> rows;
    for (const RecordedLoan& loan : m_record) {
        const QString late = loan.out ? u"?"_s : loan.daysLate > 0 ? QString::number(loan.daysLate) : u"нет"_s;
        rows += {.texts = {loan.kind->mediumCaption, loan.number > 0 ? QString::number(loan.number) : u"-"_s, late},
                 .icon = catalogueIcon(loan.kind->icon, loan.kind->accent),
                 .data = rows.size()};
    }
    lvRating->setRows(rows);
    lvRating->show();
    txtNoDue->hide();
}

void frmDueStat::showNothing()
{
    m_record.clear();
    lvRating->clear();
    lvRating->hide();
    const bool limited = chDue->isChecked() || chosenKind();
    txtNoDue->setText(!dcDatabase->hasRow() ? u"Дисков ещё никто не брал."_s
                      : limited             ? u"Таких дисков за этим должником нет."_s
                                            : u"Этот должник дисков ещё не брал."_s);
    txtNoDue->show();
    showUnrated();
    lblDueCount->setText(u"-"_s);
}

void frmDueStat::rate(const Standing& standing)
{
    lblRating[1]->setText(RatingWord(standing.rating));
    lblTotalDays[1]->setText(QString::number(standing.totalDays));
    prbRating->setEnabled(true);
    prbRating->setValue(standing.rating);
    prbRating->setAccessibleDescription(lblRating[1]->text());
}

void frmDueStat::showUnrated()
{
    for (QLabel* value : {lblRating[1], lblTotalDays[1]}) value->setText(u"-"_s);
    prbRating->setEnabled(false);
    prbRating->setValue(0);
    prbRating->setAccessibleDescription({});
}

void frmDueStat::lvRating_DblClick(int row)
{
    Guarded("frmDueStat, lvRating_DblClick()"_L1, [&] {
        const RecordedLoan loan = m_record.at(lvRating->row(row).data.toInt());
        const auto disc = DiscWithKey(program.mainDatabase(), *loan.kind, loan.disc);
        if (!disc) {
            MsgBox(u"Этот диск был удален из каталога."_s);
            return;
        }
        MsgBox(u"%1 № %2:\r'%3'"_s.arg(loan.kind->mediumCaption, QString::number(disc->number),
                                       loan.kind->discTitle(disc->name, disc->album)));
    });
}
