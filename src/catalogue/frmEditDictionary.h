#pragma once

#include "catalogue/CatalogueScreen.h"
#include "ui/DBGrid.h"
#include "ui/ImageButton.h"
#include "ui/TypeAhead.h"

/// Keeps the dictionary of a catalogue: frmEditStyle, frmEditDescription, frmEditGenre. Its empty name stands for none
/// and can be neither changed nor deleted.
class frmEditDictionary : public CatalogueScreen {
public:
    frmEditDictionary(Program& program, const CatalogueKind& kind);

    class DBGrid* dbGrid = named("DBGrid");
    QLabel* lblCount = named("lblCount");
    std::array<ImageButton*, 4> imgButton = namedArray("imgButton"); ///< close, add, delete, change

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

private:
    void connectControls();

    void dcDatabase_Reposition();
    void cmdAdd();
    void cmdDelete();
    void cmdChange();
    /// A name that can be taken; empty when the user gave up. `present` is the name that is to be changed.
    QString askName(const QString& prompt, const QString& title, const QString& present = {});
    bool isProtected(const QString& message);

    const DictionaryKind& dictionary() const { return kind.dictionary; }
    const DictionaryScreen& texts() const { return kind.dictionary.screen; }
    QString currentName() const { return dcDatabase->value(dictionary().table).text(); }
    qint64 currentKey() const { return dcDatabase->value(dictionary().key).toLong(); }

    DataControl* const dcDatabase;
    TypeAhead m_typeAhead;
};
