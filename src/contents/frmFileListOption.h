#pragma once

#include "contents/ListOptionScreen.h"
#include "contents/ScanOptions.h"
#include "ui/ImageButton.h"

#include <QCheckBox>
#include <QRadioButton>

/// What of a disc goes into its list, and the start of the scan.
class frmFileListOption : public ListOptionScreen {
public:
    frmFileListOption(Program& program, DiscOfRow disc, int number);

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

private:
    void cmdStartScan();
    void cmdEditFilter();
    bool CreateFileTable();
    void CreateLinkDiskID();

    void enableOptions();
    ScanOptions options() const;
    void showOptions(const ScanOptions& options);
};
