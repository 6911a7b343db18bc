#pragma once

class QMainWindow;

/// F10 gives the keyboard to the menu bar, as Alt alone does, and takes it back.
void FocusMenuBarByF10(QMainWindow& window);
