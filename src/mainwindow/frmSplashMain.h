#pragma once

#include <QSplashScreen>

/// Shown from the first moment until the main window stands.
class frmSplashMain : public QSplashScreen {
public:
    /// `version` is "1.0.0": major, minor, revision.
    explicit frmSplashMain(const QString& version);
    void showNow();
};

/// "vinora 1.0 build 0"
QString VersionLine(const QString& version);
/// "vinora 1.0"
QString ProgramTitle(const QString& version);
