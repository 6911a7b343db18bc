#pragma once

#include "contents/ListScreen.h"
#include "ui/DBGrid.h"
#include "ui/TypeAhead.h"

/// The track lists of one row of the audio catalogue: names and comments, edited row by row, and what makes, deletes and
/// keeps a list in cdplayer.ini.
class frmTrackList : public ListScreen {
public:
    frmTrackList(Program& program, const ListRequest& request);

    ElidedLabel* lblAlbum = named("lblAlbum");
    class DBGrid* dbGrid = named("DBGrid");
    QLineEdit* txtTrackName = named("txtTrackName");
    ImageButton* cmdMakeChange = named("cmdMakeChange");
    QLineEdit* txtComment = named("txtComment");
    ImageButton* cmdMakeChangeComm = named("cmdMakeChangeComm");
    QLabel* lblTracks = named("lblTracks");      ///< how many
    ImageButton* imgSave = named("imgButton_4"); ///< into cdplayer.ini

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void showList() override;
    void showPlace(const ListPlace& place) override;
    void showNoList() override;
    void openOptions() override;
    QWidget* firstControl() const override { return dbGrid; }
    void letGo() override { dcDatabase->close(); }

private:
    void ViewTrackList();
    void dcDatabase_Reposition();
    void cmdMakeChange_Click();
    void cmdMakeChangeComm_Click();
    void cmdSave();

    void allowEditing(bool allowed);
    void change(QLineEdit* box, const QString& field);
    void moveOn();
    void editName();

    DataControl* const dcDatabase = new DataControl(this);
    TypeAhead m_typeAhead{u"Название"_s};
};

/// Opens the track lists on a disc of the audio catalogue, in place of its opener, and returns when they have closed.
void ShowTrackList(Program& program, Form& opener, const ListRequest& request);
