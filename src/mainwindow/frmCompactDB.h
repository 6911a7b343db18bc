#pragma once

#include "ui/ShowNow.h"

/// Asks for patience while the databases are compacted. Shown without waiting, like the splash.
class frmCompactDB : public QWidget {
public:
    frmCompactDB();
    void showNow() { ShowNow(*this); }
};
