#include "lending/frmAddInDueFromMain.h"

#include "lending/Ledger.h"
#include "lending/frmAddInDue.h"
#include "ui/IconLabel.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

frmAddInDueFromMain::frmAddInDueFromMain(Program& program, const CatalogueKind* category)
    : DiscNumberScreen(program, u"frmAddInDueFromMain"_s, u"Управление должниками"_s)
{
    setUpControls();
    build(); // from here on the options exclude each other
    if (category) optCategory[CatalogueIndex(*category)]->setChecked(true);
}

void frmAddInDueFromMain::setUpControls()
{
    optMethod[0]->setText(u"&Добавить"_s);
    optMethod[1]->setText(u"&Удалить"_s);
    optMethod[0]->setChecked(true);
    for (QRadioButton* method : optMethod)
        connect(method, &QRadioButton::clicked, txtNumber, [this] { focusNumber(); });

    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Выдать диск должнику или принять его обратно (Enter)"_s);
    imgButton[0]->setDefault(true);
    imgButton[1]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть (Esc)"_s);
    setUpPicker(imgButton[2]);
    connect(imgButton[0], &ImageButton::clicked, this, [this] { cmdOK_Click(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { Unload(); });
    connect(imgButton[2], &ImageButton::clicked, this, [this] { cmdPickDisc(); });
}

void frmAddInDueFromMain::build()
{
    auto* sign = new IconLabel;
    sign->setIcon(u"loan"_s);
    sign->setScale(2);
    QLabel* heading = lettered(label(u"Выдать диск или принять его обратно"_s), Lettering::Heading);
    auto* number = row(label(u"Введите &номер диска:"_s, txtNumber), txtNumber, imgButton[2], stretch);
    auto* buttons = row(stretch, imgButton[0], imgButton[1]);
    for (QBoxLayout* line : {number, buttons}) line->setSpacing(Theme::Gap);
    auto* method = group(u"Выберите действие над Должником:"_s, column(optMethod[0], optMethod[1], stretch));
    auto* category = group(u"Выберите категорию диска:"_s, column(optCategory[0], optCategory[1], optCategory[2]));
    auto* choice = row(method, category);
    choice->setSpacing(Theme::Between);
    auto* all = column(row(sign, heading, stretch), choice, number, stretch, buttons);
    all->setSpacing(Theme::Between);
    setLayout(all);
}

void frmAddInDueFromMain::cmdPickDisc()
{
    Guarded("frmAddInDueFromMain, cmdPickDisc()"_L1, [&] { pickDisc(lends() ? u"add"_s : u"del"_s); });
}

void frmAddInDueFromMain::cmdOK_Click()
{
    Guarded("frmAddInDueFromMain, cmdOK_Click()"_L1, [&] {
        const auto disc = namedDisc();
        if (!disc) return;
        if (lends())
            lend(*disc);
        else
            takeBack(*disc);
    });
}

void frmAddInDueFromMain::lend(const NumberedDisc& disc)
{
    const QString number = QString::number(disc.number);
    if (disc.lent) return refuse(txtNumber, u"Диск № %1 уже находится у должника."_s.arg(number));
    const QString question = u"Подтвердите добавление должника на диск № %1:\r'%2'"_s;
    const QString title = kind().discTitle(disc.name, disc.album);
    if (MsgBox(question.arg(number, title), Box::InformationOkCancel) != Answer::Ok) return;
    txtNumber->clear();
    ShowAddInDue(program, kind(), disc.key);
    program.shared.DialogDone = false;
    txtNumber->setFocus();
}

void frmAddInDueFromMain::takeBack(const NumberedDisc& disc)
{
    const QString number = QString::number(disc.number);
    if (!disc.lent) return refuse(txtNumber, u"Диск № %1 не одалживался!"_s.arg(number));
    // The ledger's half comes before the question, whatever the answer, and a DVD is asked about as a computer disc.
    const QString borrower = getDueName(disc.key);
    const CatalogueKind& told = kind().album ? kind() : Computer();
    const QString question = u"Подтвердите удаление должника на %1 № %2:\r'%3'\rДолжник: %4"_s.arg(
        told.mediumCaption, number, kind().discTitle(disc.name, disc.album), borrower);
    if (MsgBox(question, Box::QuestionOkCancel) != Answer::Ok) return;
    MarkLent(program.mainDatabase(), kind(), disc.key, false);
    MsgBox(u"Операция успешно завершена!"_s, Box::Information);
    txtNumber->clear();
    txtNumber->setFocus();
}

/// Closes the newest loan of the disc and says whose it was.
QString frmAddInDueFromMain::getDueName(qint64 disc)
{
    QString name;
    Guarded("frmAddInDueFromMain, getDueName()"_L1,
            [&] { name = CloseLoan(program.mainDatabase(), kind(), disc, program.clock.today()); });
    return name;
}
