#pragma once

#include "contents/ListOptionScreen.h"
#include "ui/ImageButton.h"

#include <QCheckBox>
#include <optional>

/// Where the names of a disc's tracks come from, and the making of its list.
class frmTrackListOption : public ListOptionScreen {
public:
    frmTrackListOption(Program& program, DiscOfRow disc, const ListRequest& request);

    QLabel* lblHeader = named("lblHeader");
    QCheckBox* chCDDB = named("chCDDB");
    QComboBox* cmbServer = named("cmbServer");
    QCheckBox* chTrackImport = named("chTrackImport");
    QCheckBox* chTrackWithoutName = named("chTrackWithoutName");
    QCheckBox* chTrackSave = named("chTrackSave");
    std::array<ImageButton*, 2> imgButton = namedArray("imgButton"); ///< make the list, close

protected:
    void Form_Load() override;
    void kindShown(const QString& kindWord) override;

private:
    /// The audio disc in the drive; empty when its tracks cannot be read.
    struct DiscToList {
        QString time;      ///< "45:10"
        QStringList names; ///< of its audio tracks by its own text, mostly empty ones
    };
    DiscToList readDisc() const;

    void cmdOK();
    bool CreateTrackTable();
    /// How many tracks the list has now; nothing when cdplayer.ini does not know the disc.
    std::optional<int> ImportTrackList();
    int CreateTrackList(const QStringList& offered);
    void CreateLinkDiskID(int tracks, const QString& time);

    void chooseOnly(const QCheckBox* way);
    void enableWays();
    static bool chosen(const QCheckBox* way) { return way->isEnabled() && way->isChecked(); }

    const ListRequest request;
    bool m_audio = false; ///< there is an audio disc in the drive
};
