#include "mainwindow/MenuBarKey.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QShortcut>

void FocusMenuBarByF10(QMainWindow& window)
{
    // The bar has no call for it: setActiveAction() would open a menu. So Alt is pressed and let go. A key event adds the
    // modifier of its own key by itself.
    new QShortcut(Qt::Key_F10, &window, [&window] {
        QKeyEvent press(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &release);
    });
}
