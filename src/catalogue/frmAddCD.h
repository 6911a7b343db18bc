#pragma once

#include "catalogue/CatalogueScreen.h"
#include "catalogue/DiscRecord.h"
#include "recognition/DiscIdentity.h"
#include "ui/ImageButton.h"

#include <QCheckBox>
#include <QComboBox>

/// The first step of adding a disc: its number, and whether the disc in the drive is to be known by it. Its caption says
/// which catalogue it adds to. It hands over to that catalogue's editor; DialogDone and LastSavedNumber are the editor's.
/// The drive is read, and the user asked about a disc of uncertain kind, once per opening, choice of a drive, and OK.
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

    /// Key of the disc that was added.
    std::optional<qint64> added() const { return m_added; }

protected:
    void Form_Load() override;
    void Form_Activate() override;

private:
    QWidget* audioSources();
    void cmdOK();
    void cmdSearch();
    void readDrive();
    void UpdateDriveInfo();
    bool CheckCDID();
    bool hasDrive() const;
    void refuseDetection();
    std::optional<int> shiftFor(int number);
    bool takeIdentifier();
    OfferedTitle titleOnDisc();

    DiscInDrive m_disc; ///< as last read
    std::optional<qint64> m_added;
};

/// Runs the adding of a disc from the choice of its number on. The key of the disc, nothing when none was added; DialogDone
/// is clear afterwards.
std::optional<qint64> AddDisc(Program& program, const CatalogueKind& kind, QWidget* opener = nullptr);
