#pragma once

#include "ui/ShowNow.h"

#include <QSplashScreen>

/// Shown from the first moment until the main window stands.
class frmSplashMain : public QSplashScreen {
public:
    /// `version` is "1.0.0": major, minor, revision.
    explicit frmSplashMain(const QString& version);
    void showNow() { ShowNow(*this); }
};
