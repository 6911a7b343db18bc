#pragma once

#include "frame/Screen.h"
#include "search/QueryShortcut.h"
#include "ui/ImageButton.h"

#include <QComboBox>
#include <QRadioButton>

/// Makes a query shortcut, or changes one: a name, a catalogue, up to three conditions on its fields.
class frmCreateQuery : public Screen {
public:
    explicit frmCreateQuery(Program& program);
    /// To be changed. For the opener, between Form_Load and the showing.
    void edit(const StoredQuery& query);

    QLineEdit* txtName = named("txtName");
    std::array<QRadioButton*, 3> optCategory = namedArray("optCategory"); ///< audio, computer, DVD
    std::array<QLabel*, Conditions> lblQuery = namedArray("lblQuery");    ///< "1." or "1. - Верно"
    std::array<QComboBox*, Conditions> cmbQ1 = namedArray("cmbQ1");       ///< field
    std::array<QComboBox*, Conditions> cmbQ2 = namedArray("cmbQ2");       ///< comparison
    std::array<QLineEdit*, Conditions> txtQuery = namedArray("txtQuery"); ///< value
    std::array<QComboBox*, Conditions> cmbQuery = namedArray("cmbQuery"); ///< value of the dictionary, in its place
    std::array<ImageButton*, 2> imgButton = namedArray("imgButton");      ///< save, cancel

protected:
    void Form_Load() override;

private:
    void buildLayout();
    void optCategory_Click();
    void cmbQ1_Click(int i);
    void showCondition(int i, const QueryCondition& condition);
    void cmdSave();

    /// Which of the two boxes for a value takes it.
    void takeFromList(int i, bool list);
    void markCondition(int i);
    bool refused();
    bool formed(int i) const;
    bool byHand(int i) const;
    QString field(int i) const { return cmbQ1[i]->currentText(); }
    QString value(int i) const;
    const CatalogueKind& kind() const;

    QString m_edited; ///< name of the shortcut that is being changed, empty for a new one
    std::array<bool, Conditions> m_listed{};
    std::array<QString, Conditions> m_byHand; ///< fragments that the form cannot show
};
