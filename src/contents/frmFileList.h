#pragma once

#include "contents/FileLists.h"
#include "contents/FolderModel.h"
#include "frame/Screen.h"
#include "ui/ElidedLabel.h"
#include "ui/ImageButton.h"
#include "ui/ListView.h"
#include "ui/SteadyView.h"

#include <QComboBox>
#include <QSplitter>
#include <QTreeView>

/// The file lists of one row of the computer catalogue: folders, their files, comments on both, and what makes and
/// deletes a list.
class frmFileList : public Screen {
public:
    frmFileList(Program& program, const ListRequest& request);

    QLabel* lblHeader = named("lblHeader");
    QLabel* lblNumber = named("lblNumber");
    ElidedLabel* lblName = named("lblName");
    QComboBox* cmbCountCD = named("cmbCountCD");
    QSplitter* picSlider = named("picSlider"); ///< Alt+Left and Alt+Right move it
    SteadyView<QTreeView>* trView = named("trView");
    ListView* lvFiles = named("lvFiles");
    QLabel* txtNoFiles = named("txtNoFiles"); ///< in place of the files of a folder without any
    QLabel* lblNoFiles = named("lblNoFiles"); ///< in place of the tree of a disc without a list
    QLineEdit* txtCommentDir = named("txtCommentDir");
    ImageButton* cmdMakeChangeDir = named("cmdMakeChangeDir");
    QLineEdit* txtCommentFile = named("txtCommentFile");
    ImageButton* cmdMakeChangeFile = named("cmdMakeChangeFile");
    std::array<QLabel*, 1> lblCDSpace = namedArray("lblCDSpace");
    std::array<ImageButton*, 4> imgButton = namedArray("imgButton"); ///< close, create, delete, re-create

protected:
    void Form_Load() override;
    void Form_Activate() override;

private:
    void cmbCountCD_Click();
    void trView_NodeClick();
    void lvFiles_ItemClick();
    void lvFiles_DblClick();
    void cmdMakeChangeDir_Click();
    void cmdMakeChangeFile_Click();
    void cmdCreate();
    void DeleteListAsk();
    void RecreateListAsk();
    void DeleteList();

    bool BuildTree();
    void FillFileList(const QString& folder);
    void ShowListVolume();
    void showList();
    /// The folder and the file that the opener asked for, the file in bold; the first folder when they are gone.
    void showPlace(const ListPlace& place);
    void focusList();
    void showTree(bool shown);
    void moveDivider(int step);
    /// `what` names the row in the message: "папке 'DOCS'". False when there is no such row any more.
    bool changeComment(QLineEdit* box, const QString& name, const QString& what);
    QLayout* commentRow(const QString& caption, QLineEdit* box, ImageButton* button, const QString& tag);

    int discNumber() const { return cmbCountCD->currentText().toInt(); }
    QString& slot() { return program.shared.DiscIDSlots.at(std::size_t(discNumber() - 1)); }
    DiscOfRow disc() const { return {request.key, discNumber()}; }
    QString folder() const { return tree.pathAt(trView->currentIndex()); }
    QString fileName() const;

    ListRequest request;
    FolderModel tree;
};

/// Opens the browser on a disc of the computer catalogue, in place of its opener, and returns when it has closed.
void ShowFileList(Program& program, Form& opener, const ListRequest& request);
