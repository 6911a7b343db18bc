#pragma once

#include "catalogue/frmAddInCatalogue.h"

#include <QComboBox>

/// The editor of audio discs: album, and tracks and playing time of each disc of a set, which a disc in the drive can tell.
class frmAddInCatalogueAudio : public frmAddInCatalogue {
public:
    explicit frmAddInCatalogueAudio(Program& program);

    QLineEdit* txtAlbum = named("txtAlbum");
    QLineEdit* txtTrack = named("txtTrack");
    UpDown* udTrack = named("udTrack");
    QLineEdit* txtTime = named("txtTime");
    UpDown* udTime = named("udTime");
    QComboBox* cmbCountCD = named("cmbCountCD"); ///< whose tracks and time these are
    QComboBox* cmbDrive = named("cmbDrive");
    ImageButton* imgInfo = named("imgButton_2");

protected:
    void discsChanged() override;
    void showExtras(const QHash<QString, Value>& extra) override;
    QHash<QString, Value> extras() const override;
    void Form_Load() override;

private:
    /// What was entered for one disc.
    struct Playing {
        QString tracks = u"00"_s;
        QString time = u"00:00"_s;
    };
    Playing& shownDisc() { return m_playing[std::size_t(qMax(0, cmbCountCD->currentIndex()))]; }
    void showDisc();
    void cmdInfo();

    std::array<Playing, 6> m_playing;
};
