#pragma once

#include "frame/Screen.h"
#include "mainwindow/Toolbars.h"
#include "ui/ImageButton.h"

#include <QComboBox>
#include <QListWidget>

/// Which tools stand on each toolbar, and in which order. The ticked ones do, from above.
class frmToolbars : public Screen {
public:
    frmToolbars(Program& program, ToolbarTools tools);

    QComboBox* cmbToolbar = named("cmbToolbar");
    QListWidget* lvTools = named("lvTools");
    ImageButton* cmdUp = named("cmdUp");
    ImageButton* cmdDown = named("cmdDown");
    ImageButton* cmdReset = named("cmdReset");
    std::array<ImageButton*, 2> imgButton = namedArray("imgButton");

    /// What the user has agreed to.
    const std::optional<ToolbarTools>& chosen() const { return m_chosen; }
    /// The toolbars are to go back to their designed places, too.
    bool placesAreReset() const { return m_placesAreReset; }

protected:
    void Form_Load() override;

private:
    void show(int toolbar);
    void take();
    void move(int direction);
    void enableButtons();
    void reset();
    void cmdOK();

    ToolbarTools m_tools;
    int m_shown = -1; ///< the toolbar whose tools are in the list
    bool m_placesAreReset = false;
    std::optional<ToolbarTools> m_chosen;
};
