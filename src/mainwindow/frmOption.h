#pragma once

#include "catalogue/UpDown.h"
#include "frame/Screen.h"
#include "mainwindow/InformerRow.h"
#include "ui/ImageButton.h"

#include <QComboBox>
#include <QRadioButton>
#include <QTabWidget>

/// The settings of the program. OK writes them all, and the opener acts on what has changed; the folder of the databases
/// alone changes at once.
class frmOption : public Screen {
public:
    explicit frmOption(Program& program);

    QTabWidget* tabOption = named("tabOption");

    QCheckBox* chConfirmExit = named("chConfirmExit");
    QComboBox* cmbDrive = named("cmbDrive");
    QCheckBox* chCheckCD = named("chCheckCD");
    QCheckBox* chAutoResp = named("chAutoResp");
    QCheckBox* chSaveFileListOption = named("chSaveFileListOption");

    QCheckBox* chSaveSortedCatalogue = named("chSaveSortedCatalogue");
    QCheckBox* chSaveSortedDueList = named("chSaveSortedDueList");
    /// Two by two: a disc opens in the editor or its list, a name in its statistics or its term, a file's folder opens
    /// or the file itself.
    std::array<QRadioButton*, 6> optDblClick = namedArray("optDblClick");
    QCheckBox* chCheckDueOnStartup = named("chCheckDueOnStartup");

    QSlider* sldInformerDue = named("sldInformerDue");
    QSlider* sldInformerCD = named("sldInformerCD");
    QSlider* sldInformerDueCat = named("sldInformerDueCat");
    QLabel* lblInformerDue = named("lblInformerDue");
    QLabel* lblInformerCD = named("lblInformerCD");
    QLabel* lblInformerDueCat = named("lblInformerDueCat");
    QCheckBox* chInformerDue = named("chInformerDue");
    QCheckBox* chInformerCD = named("chInformerCD");
    QCheckBox* chInformerDueCat = named("chInformerDueCat");

    QComboBox* cmbServer = named("cmbServer");
    UpDown* udTimeout = named("udTimeout");
    QLineEdit* txtTimeout = named("txtTimeout");

    QLineEdit* txtPathLocalDB = named("txtPathLocalDB");
    ImageButton* cmdPathLocalDB = named("cmdPathLocalDB");
    QCheckBox* chAutoCompactDatabase = named("chAutoCompactDatabase");

    std::array<ImageButton*, 2> imgButton = namedArray("imgButton");

protected:
    void Form_Load() override;

private:
    struct Flag {
        QCheckBox* box;
        QStringView key;
        bool designed; ///< while the key is missing
    };
    /// "1" is the second one.
    struct Choice {
        QRadioButton *first, *second;
        QStringView key;
    };

    QWidget* programPage();
    QWidget* cataloguePage();
    QWidget* duePage();
    QWidget* informerPage();
    QWidget* serverPage();
    QWidget* databasePage();
    void fillDrives();
    void cmdOK();
    void changeFolder();

    const std::array<Flag, 8> m_flags;
    const std::array<Choice, 3> m_choices;
    InformerRow m_due{sldInformerDue, lblInformerDue, chInformerDue, u"tmrDue", 25};
    InformerRow m_disc{sldInformerCD, lblInformerCD, chInformerCD, u"tmrCD", 0};
    InformerRow m_dueInLists{sldInformerDueCat, lblInformerDueCat, chInformerDueCat, u"tmrDueCatalogue", 15};
    const std::array<InformerRow*, 3> m_informers{&m_due, &m_disc, &m_dueInLists};
};
