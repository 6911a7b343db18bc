#include "catalogue/CatalogueScreen.h"

#include "frame/Settings.h"
#include "frame/Text.h"
#include "recognition/DiscIdentity.h"
#include "ui/IconLabel.h"
#include "ui/Theme.h"

QWidget* CatalogueScreen::sign() const
{
    auto* sign = new IconLabel;
    sign->setIcon(kind.icon);
    sign->setAccent(kind.accent);
    sign->setScale(2);
    return sign;
}

QBoxLayout* CatalogueScreen::head(QLabel* caption) const
{
    caption->setFont(Theme::heading(font()));
    return row(sign(), caption, stretch);
}

QString CatalogueScreen::cleanTyped(QLineEdit* box)
{
    QString clean = CleanText(box->text());
    if (clean == box->text()) return clean;
    const int caret = box->cursorPosition();
    box->setText(clean);
    box->setModified(true);
    box->setCursorPosition(caret);
    return clean;
}

void CatalogueScreen::jumpToNumber(QLineEdit* box, DataControl& list)
{
    Routine("txtNumber_KeyPress"_L1, [&] {
        const int number = DiscNumber(box->text());
        if (number == 0) return refuse(box, u"Указан не верный номер диска. Повторите ввод."_s);
        box->setText(QString::number(number));
        if (list.FindFirst(u"Номер = ?"_s, {number})) return list.showRow();
        MsgBox(u"Диск № %1 не найден."_s.arg(number));
        box->setText(list.value(u"Номер").text());
        box->selectAll();
    });
}

bool CatalogueScreen::loadDrives(QComboBox* drives) const
{
    for (const QChar letter : GetCDDrives(program)) drives->addItem(letter + u":\\"_s);
    if (drives->count() > 0) {
        drives->setCurrentIndex(qMax(0, drives->findText(DefaultDrive(program))));
        return true;
    }
    drives->addItem(u"---"_s);
    drives->setEnabled(false);
    return false;
}

void CatalogueScreen::fillSet(QComboBox* list, int discs)
{
    constexpr int LargestSet = 6; // a row has as many bindings
    list->clear();
    for (int disc = 1; disc <= qBound(1, discs, LargestSet); ++disc) list->addItem(QString::number(disc));
    list->setEnabled(list->count() > 1);
}
