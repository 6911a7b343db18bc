#pragma once

#include "catalogue/NumberChange.h"
#include "frame/Screen.h"
#include "ui/ElidedLabel.h"
#include "ui/ImageButton.h"

#include <QRadioButton>

/// Gives a disc another number, or has two discs change places. It stays open for the next one.
class frmChangeNumber : public Screen {
public:
    explicit frmChangeNumber(Program& program);

    std::array<QRadioButton*, 3> optCategory = namedArray("optCategory"); ///< in the order of AllCatalogues()
    QLineEdit* txtNumberOld = named("txtNumberOld");
    QLineEdit* txtNumberNew = named("txtNumberNew");
    ElidedLabel* lblNumberOld = named("lblNumberOld"); ///< which disc has the number
    ElidedLabel* lblNumberNew = named("lblNumberNew");
    std::array<ImageButton*, 2> imgButton = namedArray("imgButton"); ///< OK, cancel

protected:
    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cmdOK();
    bool confirmed(const NumberedDisc& disc, const std::optional<NumberedDisc>& other, int number);
    void tellDiscs();
    void tellDisc(ElidedLabel* place, const QString& number, const QString& without);

    const CatalogueKind& kind() const;
    QString titleOf(const NumberedDisc& disc) const { return kind().discTitle(disc.name, disc.album); }
};
