#pragma once

#include "catalogue/CatalogueScreen.h"
#include "ui/ImageButton.h"

#include <QCheckBox>
#include <QComboBox>

/// The first step of adding a disc: its number, and whether the disc in the drive is to be known by it. Its caption says
/// which catalogue it adds to. It hands over to that catalogue's editor; DialogDone and LastSavedNumber are the editor's.
class frmAddCD : public CatalogueScreen {
public:
    frmAddCD(Program& program, const CatalogueKind& kind);

    QLabel* lblCDsCount0 = named("lblCDsCount0");
    QLineEdit* txtNumber = named("txtNumber");
    QComboBox* cmbDrive = named("cmbDrive");
    QLabel* lblInserCD = named("lblInserCD");
    QCheckBox* chAutoDetect = named("chAutoDetect");
    std::array<QCheckBox*, 2> chQuery = namedArray("chQuery");
    QCheckBox* chTrackSave = named("chTrackSave");
    QComboBox* cmbServer = named("cmbServer");
    std::array<ImageButton*, 3> imgButton = namedArray("imgButton");

protected:
    void Form_Load() override;
    void Form_Activate() override;

private:
    QWidget* audioSources();
    void cmdOK();
    void cmdSearch();
    void UpdateDriveInfo();
    bool CheckCDID();
    bool hasDrive() const;
    void refuseDetection();
    bool makeRoom(int number);
    bool takeIdentifier();
};

/// Runs the adding of a disc from the choice of its number on. True when one was added, as LastSavedNumber; DialogDone is
/// clear afterwards.
bool AddDisc(Program& program, const CatalogueKind& kind, QWidget* opener = nullptr);
