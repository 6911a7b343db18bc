// The commands of the main window that look for what is on the discs.
#include "mainwindow/frmMain.h"

#include "search/frmDBFind.h"

void frmMain::showSearch(const QString& category)
{
    Guarded("frmMain, ShowSearch()"_L1, [&] { frmDBFind(program, category).ShowModal(); });
}
