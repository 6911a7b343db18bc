#pragma once

#include "catalogue/CatalogueScreen.h"
#include "catalogue/PickerMode.h"
#include "ui/DBGrid.h"
#include "ui/ImageButton.h"
#include "ui/TypeAhead.h"

#include <QComboBox>

/// The choice of one disc of a catalogue, and of one of its set, from a list that can be narrowed by name. It is opened by
/// PickDisc, or with its mode in CatalogueQueryFilter; OK leaves the choice in PickedDisc and chosenKey().
class frmSelectCD : public CatalogueScreen {
public:
    explicit frmSelectCD(Program& program);

    /// Lets the picker tell which discs are bound already. Before ShowModal().
    void tellBindings();
    /// Of the row that OK took; 0 without one.
    qint64 chosenKey() const { return m_chosen; }

    QLineEdit* txtName = named("txtName");
    class DBGrid* dbGrid = named("DBGrid");
    QLabel* lblCDsCount1 = named("lblCDsCount1");
    QLineEdit* txtNumber = named("txtNumber");
    QComboBox* cmbCountCD = named("cmbCountCD");
    QLabel* lblBound = named("lblBound"); ///< that the chosen disc is bound already, for who picks one to be bound
    std::array<ImageButton*, 3> imgButton = namedArray("imgButton"); ///< OK, cancel, all discs

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    frmSelectCD(Program& program, const PickerMode& mode);
    void setUpControls();
    void connectControls();
    void build();

    void txtName_KeyUp();
    void cmdList();
    void dcDatabase_Reposition();
    void cmdOK();
    void showBinding();
    void show(const QString& text);

    DataControl* const dcDatabase;
    const PickerMode m_mode;
    TypeAhead m_typeAhead{u"Название"_s};
    bool m_tellsBindings = false;
    qint64 m_chosen = 0;
};

/// Opens the picker in a mode as Screens::PickDisc has them, and clears CatalogueQueryFilter and PickedDisc.
std::optional<DiscChoice> PickDisc(Program& program, const QString& mode, QWidget* opener = nullptr);
/// The same among all discs, for a disc of a set that is to be bound.
std::optional<DiscChoice> PickDiscToBind(Program& program, const CatalogueKind& kind);
