#pragma once

#include "lending/DiscNumberScreen.h"
#include "ui/ListView.h"

/// Who had a disc, and when.
class frmDiskHistory : public DiscNumberScreen {
public:
    explicit frmDiskHistory(Program& program);

    QLabel* lblHistory = named("lblHistory");
    ListView* lvHistory = named("lvHistory");
    QLabel* txtNoHistory = named("txtNoHistory");                    ///< in the place of an empty list
    std::array<ImageButton*, 3> imgButton = namedArray("imgButton"); ///< close, disc picker, show

private:
    void setUpControls();
    void build();

    void cmdPickDisc();
    void cmdShow();
    void GetDiskHistory();
    void showNone();
    void showHistory(const NumberedDisc& disc);
};
