#pragma once

#include "contents/ElidedLabel.h"
#include "contents/FileListScanner.h"
#include "contents/ScanOptions.h"
#include "frame/Screen.h"

#include <QElapsedTimer>
#include <QProgressBar>

/// Walks a disc into the list CurrentDiscID as soon as it is up, and goes when that is done. Closing it breaks the walk
/// off at the next folder; what is in the list stays. The drive watch pauses meanwhile.
class frmFileListCreate : public Screen, private ScanWatcher {
public:
    /// `drive` is "E:\".
    frmFileListCreate(Program& program, const QString& drive, const ScanOptions& options);

    ElidedLabel* lblDir = named("lblDir");
    ElidedLabel* lblFile = named("lblFile");
    QProgressBar* prbFiles = named("prbFiles");
    QLabel* lblCount = named("lblCount"); ///< folders and files so far

protected:
    void Form_Activate() override;
    bool Form_QueryUnload() override;

private:
    void CreateFileList();
    ScanRules rules();
    FileFilter FullArrayFileFiltr();

    bool entering(const QString& folder) override;
    void listing(const QString& folder, qsizetype count) override;
    void file(qsizetype index, const QString& name) override;
    void readingError(const RuntimeError& error) override;
    void turn();
    void showProgress();

    QString drive;
    ScanOptions options;
    bool scanning = false; ///< cleared by closing the window
    QElapsedTimer sinceShown;
    QString folderShown, fileShown;
    int done = 0, toDo = 0; ///< files of the folder
    int folders = 0, files = 0;
};
