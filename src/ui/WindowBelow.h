#pragma once

class QWidget;

/// The window over which the next one comes up: the innermost modal one, else the active one, else the program's main
/// window, which is in sight while another program has the keyboard. Null before any window shows.
QWidget* WindowBelow();
