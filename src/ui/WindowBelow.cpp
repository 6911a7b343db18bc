#include "ui/WindowBelow.h"

#include <QApplication>
#include <QWidget>

QWidget* WindowBelow()
{
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowType() == Qt::Window) return window;
    return nullptr;
}
