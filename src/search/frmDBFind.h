#pragma once

#include "frame/Screen.h"
#include "search/HitList.h"
#include "search/ListSearch.h"
#include "ui/ElidedLabel.h"
#include "ui/ImageButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QProgressBar>
#include <QRadioButton>
#include <QSet>
#include <QTimer>

/// Searches the lists of all discs. Hits appear while the walk goes on; meanwhile the search can be stopped, the list
/// scrolled and the form closed, and nothing else.
class frmDBFind : public Screen {
public:
    /// `category` "AD" begins with tracks, anything else with files.
    explicit frmDBFind(Program& program, const QString& category = {});
    ~frmDBFind() override;

    QLineEdit* txtSearchText = named("txtSearchText");
    QComboBox* cmbList = named("cmbList");                                        ///< files and folders, tracks
    std::array<QRadioButton*, 2> optSearchMethod = namedArray("optSearchMethod"); ///< in files or tracks, in folders
    QCheckBox* chWholeWord = named("chWholeWord");
    QCheckBox* chCommentOnly = named("chCommentOnly");
    QLabel* lblResult = named("lblResult");
    HitList* lvFind = named("lvFind");
    QLabel* lblNoHits = named("lblNoHits"); ///< in place of an empty list
    QProgressBar* prbDiscs = named("prbDiscs");
    ElidedLabel* lblProgress = named("lblProgress");
    ElidedLabel* txtNoFile = named("txtNoFile");                     ///< whose number the current row shows
    std::array<ImageButton*, 3> imgButton = namedArray("imgButton"); ///< close; search or stop; clear

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    /// Esc stops a walk before it closes the form.
    void reject() override;

private:
    void buildLayout();
    void followMode();
    void openLists();
    void cmdSearch();
    void cmdClear();
    void lvFind_DblClick(int row);
    void showNumberHint(int row);

    /// Begins the walk.
    void ReadyToFindFile();
    void stopWalk();
    void takeHits();
    void finishWalk();
    void showRunning(bool running);
    void showCount();
    void showProgress();
    QString whyEmpty() const;
    void backToText();

    bool tracks() const;
    bool running() const;
    ListQuery query() const;
    /// In the lists of the kind that is chosen.
    ListSearch& search();

    ListQuery m_query; ///< whose hits are shown
    std::vector<ListedDisc> m_discs;
    ListSearch::Step m_step;
    QSet<QString> m_unread; ///< lists of this walk that cannot be read
    bool m_stopped = false;
    QTimer m_poll; ///< of real time, whatever tests do with that of forms
    std::unique_ptr<ListSearch> m_search;
    bool m_searchesTracks = false;
};
