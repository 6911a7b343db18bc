#pragma once

#include <QCoreApplication>
#include <QWidget>

/// Shows the window without waiting and paints it before returning: for what stands while a routine keeps the event loop.
inline void ShowNow(QWidget& window)
{
    window.show();
    window.repaint();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
