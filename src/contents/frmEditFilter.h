#pragma once

#include "contents/FileFilter.h"
#include "frame/Screen.h"
#include "ui/ImageButton.h"
#include "ui/ListView.h"

#include <QRadioButton>

/// The names that a scan leaves out, and those that it takes alone. A tick is saved the moment it is made.
class frmEditFilter : public Screen {
public:
    explicit frmEditFilter(Program& program);

    std::array<QRadioButton*, 2> optFilter = namedArray("optFilter"); ///< leave out, take alone
    QLabel* lblInfo = named("lblInfo");
    ListView* lvFilter = named("lvFilter");
    QLabel* lblHint = named("lblHint"); ///< what the ticks do, or that there are none
    ImageButton* cmdSelect = named("cmdSelect");
    ImageButton* cmdDeselect = named("cmdDeselect");
    std::array<ImageButton*, 4> imgButton = namedArray("imgButton"); ///< close, add, delete, change

protected:
    void Form_Load() override;

private:
    void optFilter_Click();
    void lvFilter_ItemCheck(int row);
    void cmdSelect_Click(bool ticked);
    void cmdAddFile();
    void cmdDelete();
    void cmdChangeFile();

    FilterTable table() const { return {program.filesDatabase(), optFilter[1]->isChecked()}; }
    void fill(const QString& selected = {});
    void enableFilterCommands();
    void showHint();
    enum class Purpose { Add, Change };
    /// A text for the table that is not in it yet; empty when the user gave up.
    QString askName(Purpose purpose);
};
