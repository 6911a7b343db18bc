#pragma once

#include "contents/FileLists.h"
#include "contents/FolderModel.h"
#include "contents/FolderView.h"
#include "contents/ListScreen.h"
#include "ui/ListView.h"

#include <QSplitter>

/// The file lists of one row of the computer catalogue: folders, their files, comments on both, and what makes and
/// deletes a list.
class frmFileList : public ListScreen {
public:
    frmFileList(Program& program, const ListRequest& request);

    QSplitter* picSlider = named("picSlider"); ///< Alt+Left and Alt+Right move it
    FolderView* trView = named("trView");
    ListView* lvFiles = named("lvFiles");
    QLabel* txtNoFiles = named("txtNoFiles"); ///< in place of the files of a folder without any
    QLineEdit* txtCommentDir = named("txtCommentDir");
    ImageButton* cmdMakeChangeDir = named("cmdMakeChangeDir");
    QLineEdit* txtCommentFile = named("txtCommentFile");
    ImageButton* cmdMakeChangeFile = named("cmdMakeChangeFile");
    std::array<QLabel*, 1> lblCDSpace = namedArray("lblCDSpace");

protected:
    void showList() override;
    void showNoList() override;
    void openOptions() override;
    QWidget* firstControl() const override { return trView; }
    void showPlace(const ListPlace& place) override;
    void Form_Activate() override;

private:
    void trView_NodeClick();
    void lvFiles_ItemClick();
    void lvFiles_DblClick();
    void cmdMakeChangeDir_Click();
    void cmdMakeChangeFile_Click();

    bool BuildTree();
    void FillFileList(const QString& folder);
    void ShowListVolume();
    void moveDivider(int step);
    /// `what` names the row in the message: "папке 'DOCS'". False when there is no such row any more.
    bool changeComment(QLineEdit* box, const QString& name, const QString& what);
    QLayout* commentRow(const QString& caption, QLineEdit* box, ImageButton* button, const QString& tag);

    QString folder() const { return tree.pathAt(trView->currentIndex()); }
    QString fileName() const;

    FolderModel tree;
};

/// Opens the browser on a disc of the computer catalogue, in place of its opener, and returns when it has closed.
void ShowFileList(Program& program, Form& opener, const ListRequest& request);
