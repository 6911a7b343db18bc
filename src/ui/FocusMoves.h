#pragma once

#include <QFocusEvent>

/// Whether the user goes to another control of the window: a menu, a box or another program leaves him where he was.
inline bool FocusMoves(const QFocusEvent& event)
{
    const Qt::FocusReason reason = event.reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}
