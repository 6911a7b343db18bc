#include "catalogue/frmCatalogue.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

QWidget* frmCatalogue::toolbar()
{
    auto* buttons = row(imgButton[1], imgButton[3], imgButton[2], imgButton[4], imgButton[6], stretch, imgButton[5],
                        imgButton[0]);
    return panel(buttons);
}

QLayout* frmCatalogue::listSide()
{
    lblSorted->setText(u"&Сортировка:"_s);
    lblSorted->setBuddy(cmbSorted);
    cmbSorted->setAccessibleName(u"Сортировка"_s);
    return column(row(lblSorted, cmbSorted, chSortedDESC, stretch), dbGrid, row(lblCDsCount0, lblCDsCount1, stretch));
}

QLayout* frmCatalogue::detailSide(QLayout* extras)
{
    auto* due = row(imgDue, lblDue, stretch);
    auto* first = row(txtNumber, label(u"&Год:"_s, txtYear), txtYear, label(u"&Дисков:"_s, txtCDs), txtCDs);
    auto* dates = row(txtDateAdd, label(u"И&зменен:"_s, txtDateUpdate), txtDateUpdate);
    auto* common = grid({
        {label(u"Но&мер:"_s, txtNumber), first},
        {label(u"Н&азвание [запрос]:"_s, txtName), txtName},
        {label(u"&Описание [запрос]:"_s, cmbDictionary), cmbDictionary},
        {label(u"Дом:"_s, txtDateAdd), dates},
    });
    fraMain[0]->setLayout(column(common, extras, due));
    fraMain[1]->setLayout(column(
        imgBox, row(stretch, imgButton[std::size_t(kind.coverButton)], imgButton[std::size_t(kind.coverButton + 1)])));
    TabStrip->addTab(u"Сведения"_s);
    TabStrip->addTab(u"Обложка"_s);
    fraMain[1]->hide();
    return column(TabStrip, fraMain[0], fraMain[1]);
}

void frmCatalogue::build(QLayout* extras)
{
    auto* sides = new QHBoxLayout;
    sides->setSpacing(Theme::Between);
    sides->addLayout(listSide(), 3);
    sides->addLayout(detailSide(extras), 2);
    setLayout(column(toolbar(), sides));
    resize(fontMetrics().horizontalAdvance(u'0') * 130, fontMetrics().height() * 34);
}
