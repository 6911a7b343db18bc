#include "frame/Screen.h"

void Screen::refuse(QLineEdit* box, const QString& text, int type)
{
    MsgBox(text, type);
    box->setFocus();
    box->selectAll();
}
