#include "catalogue/frmCatalogueAudioCD.h"

#include "catalogue/RecordSource.h"
#include "recognition/BoundDisc.h"

frmCatalogueAudioCD::frmCatalogueAudioCD(Program& program) : frmCatalogue(program, Audio())
{
    txtAlbum->setMaxLength(60);
    for (QLineEdit* box : {txtTrecks, txtTime}) box->setReadOnly(true);
    setTag({txtAlbum, txtTrecks, txtTime}, MyGroup);
    dcDatabase->bind(txtAlbum, u"Альбом"_s);
    connect(txtAlbum, &QLineEdit::returnPressed, this, [this] { txtAlbum_KeyPress(); });
    connect(cmbCountCD, &QComboBox::activated, this, [this] { cmbCountCD_Click(); });

    auto* counts = row(txtTrecks, label(u"&Время:"_s, txtTime), txtTime, label(u"на дис&ке:"_s, cmbCountCD),
                       cmbCountCD);
    build({.titleCaption = label(u"&Альбом [запрос]"_s, txtAlbum),
           .title = txtAlbum,
           .countsCaption = label(u"&Треков:"_s, txtTrecks),
           .counts = counts});
}

void frmCatalogueAudioCD::rowShown()
{
    fillSet(cmbCountCD, dcDatabase->value(u"Дисков").toInt());
    cmbCountCD_Click();
}

void frmCatalogueAudioCD::emptied()
{
    cmbCountCD->clear();
    cmbCountCD->setEnabled(false);
}

/// A disc that was taken from its set is recognised still, but there is nothing to show of it.
void frmCatalogueAudioCD::discRecognised(const BoundDisc& disc)
{
    if (disc.disc > cmbCountCD->count()) return;
    cmbCountCD->setCurrentIndex(disc.disc - 1);
    cmbCountCD_Click();
}

/// Shows tracks and time of another disc of the set: the boxes are bound anew, nothing is read.
void frmCatalogueAudioCD::cmbCountCD_Click()
{
    const QString disc = QString::number(shownDisc());
    dcDatabase->bind(txtTrecks, u"Записей"_s + disc);
    dcDatabase->bind(txtTime, u"Время"_s + disc);
}

void frmCatalogueAudioCD::txtAlbum_KeyPress() { filterBy(ContainsFilter(u"Альбом"_s, cleanTyped(txtAlbum))); }
