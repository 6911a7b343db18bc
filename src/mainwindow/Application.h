#pragma once

#include <functional>

class frmMain;

/// The program from its first instruction to its last: one instance, the databases in place, the main window, the event
/// loop. `shown` is told when the main window stands. Returns only when nothing was started; otherwise the process ends
/// where the main window or the fault routine ends it.
int RunVinora(int argc, char** argv, const std::function<void(frmMain&)>& shown = {});
