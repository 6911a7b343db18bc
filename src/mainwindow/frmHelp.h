#pragma once

#include "frame/Screen.h"
#include "ui/ImageButton.h"

/// What the program is, which version, and where its authors are.
class frmHelp : public Screen {
public:
    explicit frmHelp(Program& program);

    QLabel* lblVersion = named("lblVersion");
    QLabel* lblEMail = named("lblEMail");
    QLabel* lblURL = named("lblURL");
    QLabel* lblURLForum = named("lblURLForum");
    ImageButton* cmdClose = named("cmdClose");

private:
    void setUpLink(QLabel* link, const QString& text, const QString& target);
};
