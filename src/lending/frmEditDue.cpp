#include "lending/frmEditDue.h"

#include "frame/Text.h"
#include "lending/Borrowers.h"
#include "ui/IconLabel.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

frmEditDue::frmEditDue(Program& program) : BorrowerScreen(program, u"frmEditDue"_s, u"Редактирование имен должников"_s)
{
    setUpControls();
    build();
    connectControls();
}

void frmEditDue::setUpControls()
{
    dbGrid->setMinimumSize(fontMetrics().averageCharWidth() * 44, fontMetrics().height() * 12);
    lettered(lblNoNames, Lettering::Empty)->setText(u"Имён ещё нет.\nНажмите «Добавить», чтобы внести первое."_s);
    cmdMakeChange->setup(u"save"_s, {}, u"Записать телефон должника (Enter)"_s);
    imgButton[0]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть (Esc)"_s);
    imgButton[1]->setup(u"person-add"_s, u"&Добавить…"_s, u"Добавить имя (Insert)"_s);
    imgButton[2]->setup(u"delete"_s, u"&Удалить"_s, u"Удалить должника вместе с его историей (Delete)"_s);
    imgButton[3]->setup(u"person-edit"_s, u"&Изменить…"_s, u"Изменить имя"_s, Qt::Key_F2);
}

void frmEditDue::build()
{
    auto* sign = new IconLabel;
    sign->setIcon(u"people"_s);
    sign->setScale(2);
    QLabel* heading = lettered(label(u"Имена и телефоны должников"_s), Lettering::Heading);
    auto* commands = column(imgButton[1], imgButton[3], imgButton[2], stretch);
    auto* telephone = row(label(u"&Телефон:"_s, txtTelephone), txtTelephone, cmdMakeChange, stretch);
    auto* counter = row(label(u"Всего:"_s), lblCount, stretch, imgButton[0]);
    for (QBoxLayout* line : {commands, telephone, counter}) line->setSpacing(Theme::Gap);
    auto* list = row(stack(dbGrid, lblNoNames), commands);
    list->setStretch(0, 1);
    auto* all = column(row(sign, heading, stretch), list, telephone, counter);
    all->setStretch(1, 1);
    all->setSpacing(Theme::Between);
    setLayout(all);
    resize(fontMetrics().horizontalAdvance(u'0') * 72, fontMetrics().height() * 30);
}

void frmEditDue::connectControls()
{
    connect(imgButton[0], &ImageButton::clicked, this, [this] { Unload(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { cmdAddName(); });
    connect(imgButton[2], &ImageButton::clicked, this, [this] { cmdDelete(); });
    connect(imgButton[3], &ImageButton::clicked, this, [this] { cmdChangeName(); });
    connect(cmdMakeChange, &ImageButton::clicked, this, [this] { cmdMakeChange_Click(); });
    connect(txtTelephone, &QLineEdit::returnPressed, this, [this] { cmdMakeChange_Click(); });
    connect(dbGrid, &DBGrid::insertPressed, this, [this] { cmdAddName(); });
    connect(dbGrid, &DBGrid::deletePressed, this, [this] { cmdDelete(); });
    connect(dbGrid, &DBGrid::rowDoubleClicked, this, [this] { cmdChangeName(); });
}

void frmEditDue::showBorrower()
{
    const bool any = dcDatabase->hasRow();
    dbGrid->setVisible(any);
    lblNoNames->setVisible(!any);
    for (QWidget* control : std::initializer_list<QWidget*>{imgButton[2], imgButton[3], cmdMakeChange, txtTelephone})
        control->setEnabled(any);
    lblCount->setText(QString::number(dcDatabase->recordCount()));
    txtTelephone->setText(dcDatabase->value(u"Телефон").text());
}

QString frmEditDue::askName(const QString& prompt, const QString& title, const QString& present)
{
    QString offered = present;
    for (;;) {
        const QString name = CleanText(program.dialogs.InputBox(prompt, title, offered).trimmed());
        if (name.isEmpty()) return {};
        offered = name;
        if (name.size() > LongestName) {
            MsgBox(u"Имя должника не должно быть длинее 50 символов!"_s);
            continue;
        }
        // A name in other letters is the same name, also where it is his own.
        if (!FindBorrower(program.mainDatabase(), name)) return name;
        if (!Ask(u"Должник с именем '%1' уже существует. Ввести другое?"_s.arg(name))) return {};
    }
}

void frmEditDue::standOn(qint64 borrower)
{
    dcDatabase->Refresh();
    goTo(borrower);
    focusList();
}

void frmEditDue::cmdAddName()
{
    Guarded("frmEditDue, cmdAddName()"_L1, [&] {
        const QString name = askName(u"Введите имя должника:"_s, u"Добавление нового имени"_s);
        if (!name.isEmpty()) standOn(AddBorrower(program.mainDatabase(), name));
    });
}

void frmEditDue::cmdChangeName()
{
    Guarded("frmEditDue, cmdChangeName()"_L1, [&] {
        if (!dcDatabase->hasRow()) return;
        const qint64 borrower = currentKey();
        const QString name = askName(u"Измените имя должника:"_s, u"Изменение имени должника"_s, currentName());
        if (name.isEmpty()) return;
        RenameBorrower(program.mainDatabase(), borrower, name);
        standOn(borrower);
    });
}

void frmEditDue::cmdMakeChange_Click()
{
    Guarded("frmEditDue, cmdMakeChange_Click()"_L1, [&] { StorePhone(program, *dcDatabase, *txtTelephone); });
}

void frmEditDue::cmdDelete()
{
    Guarded("frmEditDue, cmdDelete()"_L1, [&] {
        if (!dcDatabase->hasRow()) return;
        const QString name = currentName();
        const QString question = u"Вы действительно хотите удалить должника '%1'?\r"
                                 "Статистическая информация будет также удалена."_s;
        if (!Ask(question.arg(name), Box::Question | Box::SafeDefault)) return;
        const int position = dcDatabase->position();
        if (!DeleteBorrower(program.mainDatabase(), currentKey())) {
            MsgBox(u"Должник '%1' не может быть удален, т.к. за ним числится один или более долгов."_s.arg(name));
            return;
        }
        dcDatabase->Refresh();
        dcDatabase->MoveTo(position);
        focusList();
    });
}
