#pragma once

#include "contents/FileListScanner.h"
#include "contents/ScanOptions.h"
#include "frame/LongWork.h"
#include "ui/ElidedLabel.h"
#include "ui/ImageButton.h"

#include <QElapsedTimer>
#include <QProgressBar>

/// Walks a disc into the list CurrentDiscID. Stopping it, or closing the window, breaks the walk off at the next file or
/// folder; what is in the list stays. The drive watch pauses meanwhile.
class frmFileListCreate : public LongWork, private ScanWatcher {
public:
    /// `disc` is the medium in `drive` that the list is named after.
    frmFileListCreate(Program& program, Drive& drive, std::shared_ptr<Disc> disc, const ScanOptions& options);

    ElidedLabel* lblDir = named("lblDir");
    ElidedLabel* lblFile = named("lblFile");
    QProgressBar* prbFiles = named("prbFiles"); ///< of the folder at hand
    QProgressBar* prbDisc = named("prbDisc");   ///< of the whole walk, as far as it is known
    QLabel* lblCount = named("lblCount");       ///< rows of folders and files so far
    ImageButton* cmdStop = named("cmdStop");

protected:
    void Work() override;
    void stopping() override;

private:
    ScanRules rules();
    FileFilter FullArrayFileFiltr();

    bool entering(const QString& folder) override;
    void listing(const QString& folder, qsizetype count, const ScanProgress& progress) override;
    bool file(qsizetype index, const QString& name) override;
    void readingError(const RuntimeError& error) override;
    void comeTo(const QString& folder, int count, const ScanProgress& at);
    double walked() const; ///< share of the whole walk
    bool showAndTurn();
    void showProgress();

    Drive& drive;
    std::shared_ptr<Disc> disc;
    ScanOptions options;
    QElapsedTimer sinceShown;
    QString folderShown, fileShown;
    int done = 0, toDo = 0; ///< files of the folder
    ScanProgress progress;
    bool stoppedBefore = false; ///< this folder was come to
    int folders = 0, files = 0; ///< in the list
    int errors = 0;
};
