#pragma once

#include "catalogue/frmCatalogue.h"

/// The catalogue of audio discs: albums, and tracks and playing time of each disc of a set.
class frmCatalogueAudioCD : public frmCatalogue {
public:
    explicit frmCatalogueAudioCD(Program& program);

    QLineEdit* txtAlbum = named("txtAlbum");
    QLineEdit* txtTrecks = named("txtTrecks");
    QLineEdit* txtTime = named("txtTime");
    QComboBox* cmbCountCD = named("cmbCountCD");

protected:
    void rowShown() override;
    void emptied() override;
    void discRecognised(const BoundDisc& disc) override;
    int shownDisc() const override { return cmbCountCD->currentIndex() + 1; }

private:
    void txtAlbum_KeyPress();
    void cmbCountCD_Click();
};
