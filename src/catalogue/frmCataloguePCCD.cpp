#include "catalogue/frmCataloguePCCD.h"

frmCataloguePCCD::frmCataloguePCCD(Program& program) : frmCatalogue(program, Computer())
{
    txtDescription2->setReadOnly(true);
    txtDescription2->setTabChangesFocus(true);
    setTag({txtDescription2}, MyGroup);
    dcDatabase->bind(txtDescription2, u"РасОписание"_s);
    build({.below = column(label(u"&Расширенное описание:"_s, txtDescription2), txtDescription2)});
}
