#pragma once

#include "lending/BorrowerScreen.h"
#include "lending/PhoneBox.h"
#include "ui/ImageButton.h"

/// Keeps the names and telephones of those who borrow discs.
class frmEditDue : public BorrowerScreen {
public:
    explicit frmEditDue(Program& program);

    QLabel* lblNoNames = named("lblNoNames"); ///< in the place of an empty grid
    QLabel* lblCount = named("lblCount");
    PhoneBox* txtTelephone = named("txtTelephone");
    ImageButton* cmdMakeChange = named("cmdMakeChange");
    std::array<ImageButton*, 4> imgButton = namedArray("imgButton"); ///< close, add, delete, change

private:
    void setUpControls();
    void connectControls();
    void build();
    void showBorrower() override;
    QWidget* focusWithoutRows() override { return imgButton[1]; }

    void cmdAddName();
    void cmdDelete();
    void cmdChangeName();
    void cmdMakeChange_Click();
    /// A name that nobody has yet; empty when the user gave up. `present` is the name that is to be changed.
    QString askName(const QString& prompt, const QString& title, const QString& present = {});
    void standOn(qint64 borrower);
};
