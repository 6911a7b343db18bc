#include "frame/Screen.h"

void Screen::Routine(QLatin1StringView name, const std::function<void()>& body)
{
    const QByteArray place = objectName().toLatin1() + ", " + QByteArray(name.data(), name.size()) + "()";
    Guarded(QLatin1StringView(place), body);
}

void Screen::refuse(QLineEdit* box, const QString& text, int type)
{
    MsgBox(text, type);
    box->setFocus();
    box->selectAll();
}
