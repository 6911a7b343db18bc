#pragma once

#include "frame/Screen.h"
#include "ui/ImageButton.h"

#include <QRadioButton>

/// Asks for one of the three categories. DialogDone tells whether OK was taken.
class frmSelectCategory : public Screen {
public:
    explicit frmSelectCategory(Program& program);

    /// In the order of AllCatalogues(); one of them is always chosen.
    int choice() const;
    void choose(int category);
    /// A question of the opener's own, by which nothing is assigned: among the categories that are offered, of which the
    /// first is chosen.
    void ask(const QString& question, const std::array<bool, 3>& offered);

    QLabel* lblTrabl = named("lblTrabl");
    QLabel* lblInfo = named("lblInfo");
    QRadioButton* optAD = named("optAD");
    QRadioButton* optPC = named("optPC");
    QRadioButton* optDVD = named("optDVD");
    std::array<ImageButton*, 2> imgButton = namedArray("imgButton"); ///< OK, Cancel

private:
    void Form_Load() override;

    std::array<QRadioButton*, 3> options() const { return {optAD, optPC, optDVD}; }
};
