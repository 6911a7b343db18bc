#pragma once

#include "ui/ImageButton.h"

class QAction;

/// A button on the dashboard that gives a command and is enabled with it. Its objectName is "cmd_" and the command's.
ImageButton* MakeActionButton(QAction* action, const QString& icon, const QString& text);
