#include "catalogue/frmChangeNumber.h"

#include "frame/Text.h"
#include "ui/Icons.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <QKeyEvent>
#include <algorithm>

frmChangeNumber::frmChangeNumber(Program& program) : Screen(program, u"frmChangeNumber"_s, u"Изменение номера диска"_s)
{
    for (std::size_t i = 0; i < optCategory.size(); ++i) {
        const CatalogueKind& category = *AllCatalogues()[i];
        optCategory[i]->setText(u'&' + category.mediumCaption); // their first letters differ
        optCategory[i]->setIcon(catalogueIcon(category.icon, category.accent));
        connect(optCategory[i], &QRadioButton::toggled, this, [this] { tellDiscs(); });
    }
    for (QLineEdit* box : {txtNumberOld, txtNumberNew}) {
        box->setMaxLength(5);
        box->setFixedWidth(fontMetrics().horizontalAdvance(u"0000000000"_s));
        DigitKeys(box);
        connect(box, &QLineEdit::textChanged, this, [this] { tellDiscs(); });
    }
    for (ElidedLabel* disc : {lblNumberOld, lblNumberNew}) {
        lettered(disc, Lettering::Caption);
        disc->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    }
    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Изменить номер"_s);
    imgButton[0]->setDefault(true);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть (Esc)"_s);
    auto* numbers = grid({{label(u"&Номер диска:"_s, txtNumberOld), txtNumberOld, lblNumberOld},
                          {label(u"Но&вый номер:"_s, txtNumberNew), txtNumberNew, lblNumberNew}});
    numbers->setSpacing(Theme::Gap);
    auto* all = column(group(QString(), row(optCategory[0], optCategory[1], optCategory[2], stretch)), numbers, stretch,
                       row(stretch, imgButton[0], imgButton[1]));
    all->setSpacing(Theme::Between);
    setLayout(all);

    connect(txtNumberOld, &QLineEdit::returnPressed, this, [this] {
        txtNumberNew->setFocus();
        txtNumberNew->selectAll();
    });
    connect(txtNumberNew, &QLineEdit::returnPressed, this, [this] { cmdOK(); });
    connect(imgButton[0], &ImageButton::clicked, this, [this] { cmdOK(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { Unload(); });
}

void frmChangeNumber::Form_Load()
{
    optCategory[0]->setChecked(true);
    txtNumberOld->setFocus();
}

/// OK is the default button for the eye: Enter in a box moves on.
void frmChangeNumber::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && qobject_cast<QLineEdit*>(focusWidget())) return;
    Screen::keyPressEvent(event);
}

const CatalogueKind& frmChangeNumber::kind() const
{
    const auto chosen = std::ranges::find_if(optCategory, &QRadioButton::isChecked);
    return *AllCatalogues()[std::size_t(chosen - optCategory.begin()) % optCategory.size()];
}

void frmChangeNumber::tellDiscs()
{
    Guarded("frmChangeNumber, tellDiscs()"_L1, [&] {
        tellDisc(lblNumberOld, txtNumberOld->text(), u"нет в каталоге"_s);
        tellDisc(lblNumberNew, txtNumberNew->text(), u"свободен"_s);
    });
}

void frmChangeNumber::tellDisc(ElidedLabel* place, const QString& number, const QString& without)
{
    const int told = DiscNumber(number);
    if (told == 0) return place->clear();
    const auto disc = DiscNumbered(program.mainDatabase(), kind(), told);
    place->setText(disc ? titleOf(*disc) : without);
}

void frmChangeNumber::cmdOK()
{
    Guarded("frmChangeNumber, cmdOK()"_L1, [&] {
        const int old = DiscNumber(txtNumberOld->text()), number = DiscNumber(txtNumberNew->text());
        if (old == 0) return refuse(txtNumberOld, u"Указан не верный номер диска для изменения. Повторите ввод."_s);
        if (number == 0) return refuse(txtNumberNew, u"Указан не верный новый номер диска. Повторите ввод."_s);
        txtNumberOld->setText(QString::number(old));
        txtNumberNew->setText(QString::number(number));

        const Database main = program.mainDatabase();
        const auto disc = DiscNumbered(main, kind(), old);
        if (!disc) return refuse(txtNumberOld, u"Диск № %1 отсутствует в каталоге."_s.arg(old));
        const auto other = DiscNumbered(main, kind(), number);
        if (!confirmed(*disc, other, number)) return;
        if (other)
            SwapNumbers(program, kind(), *disc, *other);
        else
            ChangeNumber(program, kind(), *disc, number);
        MsgBox(u"Диск № %1 был успешно изменен на № %2."_s.arg(old).arg(number), Box::Information);
        txtNumberOld->clear();
        txtNumberNew->clear();
        txtNumberOld->setFocus();
    });
}

bool frmChangeNumber::confirmed(const NumberedDisc& disc, const std::optional<NumberedDisc>& other, int number)
{
    const QString old = QString::number(disc.number), wanted = QString::number(number);
    if (other)
        return Ask(
            u"Поменять местами диск № %1:\r'%2' и № %3:\r'%4'?"_s.arg(old, titleOf(disc), wanted, titleOf(*other)));
    const QString question = u"Подтвердите изменение диска № %1:\r'%2' на № %3."_s.arg(old, titleOf(disc), wanted);
    return MsgBox(question, Box::InformationOkCancel) == Answer::Ok;
}
