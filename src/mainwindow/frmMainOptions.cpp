// The commands of the main window that change how the program looks and works.
#include "mainwindow/frmMain.h"

#include "mainwindow/frmHelp.h"
#include "mainwindow/frmOption.h"
#include "mainwindow/frmToolbars.h"

void frmMain::showOptions()
{
    Guarded("frmMain, ShowOptions()"_L1, [&] {
        ResetDiscSigns();
        frmOption(program).ShowModal();
        tmrNewCD->setEnabled(false);
        ResetDiscSigns();
        if (!program.shared.ExternalDBOpen) LoadData();
        LoadDefaultCD();
    });
}

void frmMain::showToolbarOptions()
{
    Guarded("frmMain, ShowToolbarOptions()"_L1, [&] {
        frmToolbars dialog(program, m_toolbars.tools());
        dialog.ShowModal();
        if (!dialog.chosen()) return;
        if (dialog.placesAreReset()) m_toolbars.restore(m_toolbars.designed());
        m_toolbars.setTools(*dialog.chosen());
    });
}

void frmMain::showAbout()
{
    Guarded("frmMain, ShowAbout()"_L1, [&] { frmHelp(program).ShowModal(); });
}
