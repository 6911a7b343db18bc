#include "catalogue/frmCatalogue.h"
#include "ui/Theme.h"

QLayout* frmCatalogue::toolbar()
{
    auto* buttons = row(sign(), imgButton[1], imgButton[3], imgButton[2], imgButton[4], imgButton[6], stretch,
                        imgButton[5], imgButton[0]);
    buttons->setSpacing(Theme::Gap);
    return buttons;
}

/// A box stays wide enough for this text, whatever the size of the window.
static void keepRoomFor(QWidget* box, const QString& text)
{
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(text) + box->fontMetrics().height() * 3 / 2);
}

QLayout* frmCatalogue::listSide()
{
    lblSorted->setText(u"&Сортировка:"_s);
    lblSorted->setBuddy(cmbSorted);
    cmbSorted->setAccessibleName(u"Сортировка"_s);
    keepRoomFor(cmbSorted, u"по дате добавления"_s);
    dbGrid->setAccessibleName(kind.title);
    return column(row(lblSorted, cmbSorted, chSortedDESC, stretch), dbGrid, row(lblCDsCount0, lblCDsCount1, stretch));
}

QLayout* frmCatalogue::detailSide(const OwnFields& own)
{
    auto* first = row(txtNumber, label(u"&Год:"_s, txtYear), txtYear, label(u"&Дисков:"_s, txtCDs), txtCDs);
    first->setStretchFactor(txtNumber, 3);
    first->setStretchFactor(txtYear, 3);
    first->setStretchFactor(txtCDs, 2);
    auto* dates = row(txtDateAdd, label(u"&Изменен:"_s, txtDateUpdate), txtDateUpdate);
    for (QLineEdit* box : {txtDateAdd, txtDateUpdate}) keepRoomFor(box, u"28-сент-2000"_s);
    keepRoomFor(txtName, QString(32, u'о'));
    keepRoomFor(cmbDictionary, QString(16, u'о')); // and not for the longest name of the dictionary
    auto* common = grid({
        {label(u"Но&мер:"_s, txtNumber), first},
        {label(kind.nameCaption + u" [запрос]"_s, txtName), txtName},
        {own.titleCaption, own.title},
        {label(kind.dictionary.caption + u" [запрос]"_s, cmbDictionary), cmbDictionary},
        {own.countsCaption, own.counts},
        {label(u"До&бавлен:"_s, txtDateAdd), dates},
    });
    fraMain[0]->setLayout(own.below ? column(common, own.below) : column(common, stretch));
    const auto cover = std::size_t(kind.coverButton);
    fraMain[1]->setLayout(column(imgBox, row(stretch, imgButton[cover], imgButton[cover + 1])));
    TabStrip->addTab(u"Сведения"_s);
    TabStrip->addTab(u"Обложка"_s);
    TabStrip->setDrawBase(false);

    lblDue->setMinimumHeight(2 * fontMetrics().lineSpacing());
    // Both tabs are as large as the larger one, so that the window does not jump.
    return column(TabStrip, stack(fraMain[0], fraMain[1]), row(imgDue, lblDue, stretch));
}

void frmCatalogue::build(const OwnFields& own)
{
    auto* sides = row();
    sides->setSpacing(Theme::Between);
    sides->addLayout(listSide(), 1);
    sides->addLayout(detailSide(own), 1);
    auto* all = column(toolbar(), sides);
    all->setSpacing(Theme::Between);
    setLayout(all);
    setMaximizable();
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.horizontalAdvance(u'0') * 130, metrics.height() * 36);
}
