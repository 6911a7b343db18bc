#pragma once

#include "contents/FileLists.h"
#include "contents/ScanOptions.h"
#include "frame/Screen.h"
#include "ui/ImageButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>

/// What of a disc goes into its list, and the start of the scan. DialogDone tells that a list was made; its name is then
/// CurrentDiscID and stands in DiscIDSlots.
class frmFileListOption : public Screen {
public:
    /// `number` is the catalogue number that the title shows.
    frmFileListOption(Program& program, DiscOfRow disc, int number);

    QComboBox* cmbDrive = named("cmbDrive");
    QLabel* lblInserCD = named("lblInserCD");
    QCheckBox* chFilesInCore = named("chFilesInCore");
    QCheckBox* chScanDir = named("chScanDir");
    QCheckBox* chScanDirOnly = named("chScanDirOnly");
    QCheckBox* chLCase = named("chLCase");
    QCheckBox* chHiddenFiles = named("chHiddenFiles");
    QCheckBox* chFiles = named("chFiles");
    QCheckBox* chFilter = named("chFilter");
    std::array<QRadioButton*, 2> optFilter = namedArray("optFilter"); ///< leave out, take alone
    QCheckBox* chShare = named("chShare");
    std::array<ImageButton*, 3> imgButton = namedArray("imgButton"); ///< start, close, edit the filter

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool event(QEvent* event) override;

private:
    void cmbDrive_Click();
    void cmdStartScan();
    void cmdEditFilter();
    bool CreateFileTable();
    void CreateLinkDiskID();

    void loadDrives();
    void showKind(const QString& kindWord);
    void enableOptions();
    ScanOptions options() const;
    void showOptions(const ScanOptions& options);

    DiscOfRow disc;
};
