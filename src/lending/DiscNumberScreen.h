#pragma once

#include "frame/Screen.h"
#include "store/NumberedDisc.h"
#include "ui/ImageButton.h"

#include <QRadioButton>

/// A screen about one disc, which the user names by catalogue and number, or takes from the picker.
class DiscNumberScreen : public Screen {
public:
    DiscNumberScreen(Program& program, const QString& screenName, const QString& title);

    std::array<QRadioButton*, 3> optCategory = namedArray("optCategory"); ///< in the order of AllCatalogues()
    QLineEdit* txtNumber = named("txtNumber");

protected:
    void Form_Activate() override { focusNumber(); }

    const CatalogueKind& kind() const { return *m_kind; }
    /// The keyboard to the number, marked: the next one replaces it.
    void focusNumber();
    /// The disc that is named. None when there is no such one; the user has been told then.
    std::optional<NumberedDisc> namedDisc();
    /// The button that opens the picker.
    void setUpPicker(ImageButton* button);
    /// Opens the picker on the chosen catalogue; `purpose` is the mode of Screens::PickDisc without its catalogue. The number
    /// of what was picked stands in txtNumber then. False when the user gave up.
    bool pickDisc(const QString& purpose);

private:
    const CatalogueKind* m_kind = nullptr; ///< of the chosen option; there is always one
    /// Key of the disc that was picked, while its number stands in the box: numbers may be shared.
    std::optional<qint64> m_picked;
};
