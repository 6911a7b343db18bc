#include "lending/frmDiskHistory.h"

#include "frame/Text.h"
#include "lending/DiscHistory.h"
#include "ui/Icons.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

frmDiskHistory::frmDiskHistory(Program& program) : DiscNumberScreen(program, u"frmDiskHistory"_s, u"История дисков"_s)
{
    setUpControls();
    build();
    // Another disc is about to be named: what is on view is not its history.
    for (QRadioButton* option : optCategory) connect(option, &QRadioButton::toggled, this, [this] { showNone(); });
    connect(txtNumber, &QLineEdit::textEdited, this, [this] { showNone(); });
    connect(imgButton[0], &ImageButton::clicked, this, [this] { Unload(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { cmdPickDisc(); });
    connect(imgButton[2], &ImageButton::clicked, this, [this] { cmdShow(); });
}

void frmDiskHistory::setUpControls()
{
    lvHistory->setColumns({{u"Имя должника"_s}, {u"Брал"_s, 12}, {u"Вернул"_s, 12}});
    lvHistory->setSortable(true);
    lvHistory->setAccessibleName(u"История диска"_s);
    lvHistory->setMinimumHeight(fontMetrics().height() * 10);
    lettered(lblHistory, Lettering::Heading);
    lettered(txtNoHistory, Lettering::Empty);

    imgButton[0]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть (Esc)"_s);
    setUpPicker(imgButton[1]);
    imgButton[2]->setup(u"history"_s, u"&Показать"_s, u"Показать историю диска (Enter)"_s);
    imgButton[2]->setDefault(true);
}

void frmDiskHistory::build()
{
    QWidget* categories = group(QString(), row(optCategory[0], optCategory[1], optCategory[2], stretch));
    auto* number = row(label(u"&Номер диска:"_s, txtNumber), txtNumber, imgButton[1], imgButton[2], stretch);
    number->setSpacing(Theme::Gap);
    QWidget* list = stack(lvHistory, txtNoHistory);
    showNone();
    auto* history = column(lblHistory, list);
    history->setStretch(1, 1);
    auto* all = column(categories, number, history, row(stretch, imgButton[0]));
    all->setStretch(2, 1);
    all->setSpacing(Theme::Between);
    setLayout(all);
    setMaximizable();
    resize(fontMetrics().horizontalAdvance(u'0') * 72, fontMetrics().height() * 28);
}

void frmDiskHistory::cmdPickDisc()
{
    Guarded("frmDiskHistory, cmdPickDisc()"_L1, [&] {
        if (pickDisc(u"full"_s)) cmdShow();
    });
}

void frmDiskHistory::cmdShow()
{
    if (txtNumber->text().isEmpty()) return refuse(txtNumber, u"Введите номер диска!"_s);
    GetDiskHistory();
}

void frmDiskHistory::GetDiskHistory()
{
    Guarded("frmDiskHistory, GetDiskHistory()"_L1, [&] {
        if (const auto disc = namedDisc()) showHistory(*disc);
    });
}

void frmDiskHistory::showNone()
{
    lblHistory->setText(u"История диска"_s);
    lvHistory->clear();
    lvHistory->hide();
    txtNoHistory->setText(u"Назовите диск, и здесь появятся те, кто его брал."_s);
    txtNoHistory->show();
}

void frmDiskHistory::showHistory(const NumberedDisc& disc)
{
    const auto day = [](QDate date) { return FormatDate(date, u"dd.MM.yyyy"_s); };
    QList<ListView::Row> rows;
    for (const HistoryEntry& entry : HistoryOf(program.mainDatabase(), kind(), disc.key)) {
        const QString back = entry.returned.isValid() ? day(entry.returned) : u"нет"_s;
        rows += {.texts = {entry.borrower, day(entry.given), back}, .icon = icon(u"person"_s)};
    }
    lblHistory->setText(u"История диска № %1:"_s.arg(disc.number));
    lvHistory->setRows(rows);
    lvHistory->setVisible(!rows.isEmpty());
    txtNoHistory->setVisible(rows.isEmpty());
    txtNoHistory->setText(u"Диск № %1 не одалживался!"_s.arg(disc.number));
    txtNumber->selectAll();
}
