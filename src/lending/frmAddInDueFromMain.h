#pragma once

#include "lending/DiscNumberScreen.h"

/// Lends or takes back a disc that is named by its number, without its catalogue.
class frmAddInDueFromMain : public DiscNumberScreen {
public:
    /// Begins with that catalogue, with none given with the first.
    explicit frmAddInDueFromMain(Program& program, const CatalogueKind* category = nullptr);

    std::array<QRadioButton*, 2> optMethod = namedArray("optMethod"); ///< lend, take back
    std::array<ImageButton*, 3> imgButton = namedArray("imgButton");  ///< OK, close, disc picker

private:
    void setUpControls();
    void build();

    bool lends() const { return optMethod[0]->isChecked(); }
    void cmdPickDisc();
    void cmdOK_Click();
    void lend(const NumberedDisc& disc);
    void takeBack(const NumberedDisc& disc);
    QString getDueName(qint64 disc);
};
