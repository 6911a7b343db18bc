#pragma once

#include "frame/Screen.h"
#include "lending/PhoneBox.h"
#include "ui/DBGrid.h"
#include "ui/ImageButton.h"
#include "ui/TypeAhead.h"

/// Keeps the names and telephones of those who borrow discs.
class frmEditDue : public Screen {
public:
    explicit frmEditDue(Program& program);

    class DBGrid* dbGrid = named("DBGrid");
    QLabel* lblNoNames = named("lblNoNames"); ///< in the place of an empty grid
    QLabel* lblCount = named("lblCount");
    PhoneBox* txtTelephone = named("txtTelephone");
    ImageButton* cmdMakeChange = named("cmdMakeChange");
    std::array<ImageButton*, 4> imgButton = namedArray("imgButton"); ///< close, add, delete, change

private:
    void setUpControls();
    void connectControls();
    void build();
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

    void dcDatabase_Reposition();
    void cmdAddName();
    void cmdDelete();
    void cmdChangeName();
    void cmdMakeChange_Click();
    /// A name that nobody has yet; empty when the user gave up. `present` is the name that is to be changed.
    QString askName(const QString& prompt, const QString& title, const QString& present = {});
    void standOn(qint64 borrower);

    qint64 currentKey() const { return dcDatabase->value(u"КодИмени").toLong(); }
    QString currentName() const { return dcDatabase->value(u"Имя").text(); }

    DataControl* const dcDatabase;
    TypeAhead m_typeAhead{u"Имя"_s};
};
