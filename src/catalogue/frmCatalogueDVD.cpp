#include "catalogue/frmCatalogueDVD.h"

#include <QAbstractItemView>

frmCatalogueDVD::frmCatalogueDVD(Program& program) : frmCatalogue(program, Dvd())
{
    for (QLineEdit* box : {txtZone, txtTime}) box->setReadOnly(true);
    txtDescription->setReadOnly(true);
    txtDescription->setTabChangesFocus(true);
    cmbSoundFormat->setAccessibleName(u"Формат звука"_s);
    cmbSoundFormat->setMinimumContentsLength(10);
    setTag({txtZone, txtTime, cmbSoundFormat, txtDescription}, MyGroup);
    dcDatabase->bind(txtZone, u"Зона"_s);
    dcDatabase->bind(txtTime, u"Время"_s);
    dcDatabase->bind(txtDescription, u"Описание"_s);
    // The list is there to be looked at: its caption counts the formats, whichever of them is pointed at.
    connect(cmbSoundFormat, &QComboBox::activated, cmbSoundFormat, [this] { cmbSoundFormat->setCurrentIndex(-1); });

    build({.countsCaption = label(u"&Зона:"_s, txtZone),
           .counts = row(txtZone, label(u"&Время, мин.:"_s, txtTime), txtTime, cmbSoundFormat),
           .below = column(label(u"&Описание:"_s, txtDescription), txtDescription)});
}

void frmCatalogueDVD::Form_Load()
{
    Routine("Form_Load"_L1, [&] { m_formats.emplace(program.mainDatabase()); });
    frmCatalogue::Form_Load();
}

void frmCatalogueDVD::rowShown() { FillSoundFormats(dcDatabase->value(u"ФорматЗвука").text()); }

void frmCatalogueDVD::FillSoundFormats(const QString& field)
{
    cmbSoundFormat->clear();
    cmbSoundFormat->addItems(m_formats->namesOf(field));
    cmbSoundFormat->setPlaceholderText(u"Звук (%1):"_s.arg(SoundFormats::countOf(field)));
    cmbSoundFormat->setCurrentIndex(-1);
    cmbSoundFormat->view()->setMinimumWidth(cmbSoundFormat->view()->sizeHintForColumn(0)); // names stand in full
}
