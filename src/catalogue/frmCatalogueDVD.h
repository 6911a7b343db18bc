#pragma once

#include "catalogue/SoundFormats.h"
#include "catalogue/frmCatalogue.h"

#include <QPlainTextEdit>

/// The catalogue of DVDs: description, region, playing time and sound formats besides.
class frmCatalogueDVD : public frmCatalogue {
public:
    explicit frmCatalogueDVD(Program& program);

    QLineEdit* txtZone = named("txtZone");
    QLineEdit* txtTime = named("txtTime");
    QComboBox* cmbSoundFormat = named("cmbSoundFormat");
    QPlainTextEdit* txtDescription = named("txtDescription");

protected:
    void rowShown() override;
    void emptied() override { FillSoundFormats({}); }
    void Form_Load() override;

private:
    void FillSoundFormats(const QString& field);

    std::optional<SoundFormats> m_formats;
};
