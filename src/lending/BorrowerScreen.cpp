#include "lending/BorrowerScreen.h"

BorrowerScreen::BorrowerScreen(Program& program, const QString& screenName, const QString& title)
    : Screen(program, screenName, title), dcDatabase(new DataControl(this))
{
    dcDatabase->setObjectName(u"dcDatabase"_s);
    dbGrid->setColumns(
        {{.field = u"Имя"_s, .caption = u"Должник"_s}, {.field = u"Телефон"_s, .caption = u"Телефон"_s, .width = 15}});
    dbGrid->setDataControl(dcDatabase);
    dbGrid->setAccessibleName(u"Должники"_s);
    connect(dcDatabase, &DataControl::Reposition, this,
            [this] { Routine("dcDatabase_Reposition"_L1, [&] { showBorrower(); }); });
    connect(dbGrid, &DBGrid::typed, this, [this](const QString& character) {
        Routine("DBGrid_KeyPress"_L1, [&] { m_typeAhead.typed(*dcDatabase, character); });
    });
}

void BorrowerScreen::Form_Load()
{
    Routine("Form_Load"_L1, [&] {
        dcDatabase->setDatabase(program.mainDatabase());
        dcDatabase->setRecordSource(u"SELECT * FROM ИменаДолжников ORDER BY Имя"_s);
        dcDatabase->Refresh();
    });
}

void BorrowerScreen::focusList() { (dcDatabase->hasRow() ? dbGrid : focusWithoutRows())->setFocus(); }
