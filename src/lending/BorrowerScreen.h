#pragma once

#include "frame/Screen.h"
#include "ui/DBGrid.h"
#include "ui/TypeAhead.h"

/// A screen about the borrowers, all of whom it lists by name.
class BorrowerScreen : public Screen {
public:
    BorrowerScreen(Program& program, const QString& screenName, const QString& title);

    class DBGrid* dbGrid = named("DBGrid");

protected:
    void Form_Load() override;
    void Form_Activate() override { focusList(); }
    void Form_Unload() override { dcDatabase->close(); }
    /// The row has changed; guarded under the screen's name.
    virtual void showBorrower() = 0;
    /// The keyboard to the list, or to what is left without one.
    void focusList();
    virtual QWidget* focusWithoutRows() = 0;
    void goTo(qint64 borrower) { dcDatabase->FindFirst(u"КодИмени = ?"_s, {borrower}); }

    qint64 currentKey() const { return dcDatabase->value(u"КодИмени").toLong(); }
    QString currentName() const { return dcDatabase->value(u"Имя").text(); }

    DataControl* const dcDatabase;

private:
    TypeAhead m_typeAhead{u"Имя"_s};
};
