#include "lending/PhoneBox.h"

#include "frame/Program.h"
#include "lending/Borrowers.h"
#include "ui/DataControl.h"
#include "ui/FocusMoves.h"

PhoneBox::PhoneBox(QWidget* parent) : QLineEdit(parent) { setMaxLength(LongestPhone); }

void PhoneBox::focusInEvent(QFocusEvent* event)
{
    if (FocusMoves(*event) && text() == NoPhone) clear();
    QLineEdit::focusInEvent(event);
}

void PhoneBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (FocusMoves(*event) && isEnabled() && text().isEmpty()) setText(NoPhone);
}

void StorePhone(Program& program, DataControl& rows, PhoneBox& box)
{
    if (!rows.hasRow()) return;
    const QString name = rows.value(u"Имя").text();
    ChangePhone(program.mainDatabase(), rows.value(u"КодИмени").toLong(), box.text());
    rows.RefreshInPlace();
    program.dialogs.MsgBox(u"Телефон должника '%1' был успешно изменен."_s.arg(name), Box::Information);
    box.selectAll();
}
