// The commands of the main window that look for what is on the discs.
#include "mainwindow/frmMain.h"

#include "search/frmCreateQuery.h"
#include "search/frmDBFind.h"

void frmMain::showSearch(const QString& category)
{
    Guarded("frmMain, ShowSearch()"_L1, [&] { frmDBFind(program, category).ShowModal(); });
}

void frmMain::addShortcut()
{
    Guarded("frmMain, ID_ToolbarEditAdd()"_L1, [&] {
        frmCreateQuery(program).ShowModal();
        loadShortcuts();
    });
}
