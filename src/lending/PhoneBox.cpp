#include "lending/PhoneBox.h"

#include "lending/Borrowers.h"
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
