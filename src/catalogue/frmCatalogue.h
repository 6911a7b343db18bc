#pragma once

#include "catalogue/CatalogueScreen.h"
#include "catalogue/PictureBox.h"
#include "ui/Blinker.h"
#include "ui/DBGrid.h"
#include "ui/IconLabel.h"
#include "ui/ImageButton.h"
#include "ui/TypeAhead.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTabBar>

class QMimeData;
struct BoundDisc;

/// A catalogue on view: the list of its discs, the details and the cover of the current one, and all that is done with a
/// disc. The forms of the catalogues lay it out and add the fields that are theirs. Read-only while an external database
/// is on view.
///
/// The filter lives in CatalogueQueryFilter: one that is set before the form opens is honoured, and the form clears it
/// when it closes.
class frmCatalogue : public CatalogueScreen {
public:
    frmCatalogue(Program& program, const CatalogueKind& kind);

    /// Opens on the disc with this key instead of the first of the list. Before ShowModal().
    void PositionOn(qint64 key) { m_openOn = key; }

    class DBGrid* dbGrid = named("DBGrid");
    QLabel* lblSorted = named("lblSorted");
    QComboBox* cmbSorted = named("cmbSorted");
    QCheckBox* chSortedDESC = named("chSortedDESC");
    QLabel* lblCDsCount0 = named("lblCDsCount0");
    QLabel* lblCDsCount1 = named("lblCDsCount1");

    QTabBar* TabStrip = named("TabStrip");
    std::array<QWidget*, 2> fraMain = namedArray("fraMain");
    QLineEdit* txtNumber = named("txtNumber");
    QLineEdit* txtName = named("txtName");
    QComboBox* cmbDictionary; ///< cmbStyle, cmbDescription, cmbGenre
    QLineEdit* txtYear = named("txtYear");
    QLineEdit* txtCDs = named("txtCDs");
    QLineEdit* txtDateAdd = named("txtDateAdd");
    QLineEdit* txtDateUpdate = named("txtDateUpdate");
    IconLabel* imgDue = named("imgDue");
    QLabel* lblDue = named("lblDue");
    PictureBox* imgBox = named("imgBox");

    /// 0 close, 1 add, 2 delete, 3 change, 4 loan, 5 whole catalogue, 6 lists; the two of the cover stand where the kind
    /// has them. Null where a catalogue has none.
    std::array<ImageButton*, 10> imgButton{};

protected:
    /// What a catalogue has beside the common details; null where it has nothing.
    struct OwnFields {
        QWidget *titleCaption = nullptr, *title = nullptr; ///< a row behind the title
        QWidget* countsCaption = nullptr;                  ///< a row behind the dictionary
        QLayout* counts = nullptr;
        QLayout* below = nullptr; ///< all common details
    };
    /// The form's picture.
    void build(const OwnFields& own);
    /// The current row is another one; also after each refresh, and not without a row.
    virtual void rowShown() {}
    /// There is no row.
    virtual void emptied() {}
    /// AutoResp found this disc of a set.
    virtual void discRecognised(const BoundDisc&) {}
    /// Which disc of the set the list screen is to show first.
    virtual int shownDisc() const { return 1; }

    /// Shows the discs that satisfy `clause`, "AND …", instead of whatever filter was there.
    void filterBy(const QString& clause);

    /// The one on view.
    DataControl* const dcDatabase;

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

private:
    void setUpButtons();
    void connectControls();
    QLayout* toolbar();
    QLayout* listSide();
    QLayout* detailSide(const OwnFields& own);

    // Rows
    void cmbSorted_Click();
    void txtName_KeyUp();
    void cmbDictionary_Click();
    void ShowWholeCatalogue();
    void markAsQuery();
    void FullDictionary();
    void loadSortOrder();
    void dcDatabase_Reposition();
    void showCounter();
    void showNoRow();
    void CheckDue();
    void txtNumber_KeyPress();
    void typeAhead(const QString& character);
    void AutoResp();

    // Commands
    void cmdAdd();
    void cmdChange();
    void cmdDelete();
    void cmdDue();
    void showList();
    void rowDoubleClicked();

    // The cover
    void setUpCover();
    void showCover();
    void allowCover(bool change, bool remove);
    void cmdChangeBox();
    void cmdPasteBox();
    void cmdDeleteBox();
    void cmdSaveBox();
    void coverMenu(const QPoint& at);
    bool TestPicture(const QString& path);
    void changeCover(const QString& picture);
    void takeCover(const QMimeData& data);
    void unlessDiskIsFull(const std::function<void()>& body);

    void allow(int button, bool allowed);
    void explainLock(const QString& why);
    void explainViewing();
    bool external() const { return program.shared.ExternalDBOpen; }
    qint64 currentKey() const { return dcDatabase->value(kind.key).toLong(); }
    int currentNumber() const { return dcDatabase->value(u"Номер").toInt(); }
    bool findKey(qint64 key) { return dcDatabase->FindFirst(kind.key + u" = ?"_s, {key}); }

    Blinker* m_due;
    TypeAhead m_typeAhead{u"Название"_s};
    qint64 m_openOn = 0;
    bool m_listIsFiltered = false; ///< also where CatalogueQueryFilter is empty again behind its back
};
