#pragma once

#include <QWidget>

/// Asks for patience while the databases are compacted. Shown without waiting, like the splash.
class frmCompactDB : public QWidget {
public:
    frmCompactDB();
    void showNow();
};
