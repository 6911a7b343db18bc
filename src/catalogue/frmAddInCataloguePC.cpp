#include "catalogue/frmAddInCataloguePC.h"

#include "catalogue/LongText.h"

frmAddInCataloguePC::frmAddInCataloguePC(Program& program) : frmAddInCatalogue(program, Computer())
{
    LimitText(txtDescription2, 255);
    build({.below = column(label(u"&Расширенное описание:"_s, txtDescription2), txtDescription2)});
    moveOnByEnter({txtName, txtYear, txtCDs, txtDictionary});
}

void frmAddInCataloguePC::showExtras(const QHash<QString, Value>& extra)
{
    txtDescription2->setPlainText(extra.value(u"РасОписание"_s).text());
}

QHash<QString, Value> frmAddInCataloguePC::extras() const
{
    return {{u"РасОписание"_s, txtDescription2->toPlainText()}};
}
