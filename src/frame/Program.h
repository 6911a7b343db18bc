#pragma once

#include "dao/DBEngine.h"
#include "frame/Screens.h"
#include "frame/Shared.h"
#include "platform/Desktop.h"
#include "platform/Drives.h"
#include "platform/Profile.h"
#include "ui/Dialogs.h"

/// Thrown by a test's EndProcess; in the program the process is gone instead.
struct ProcessEnded {
    int code;
};

/// What every screen and routine of the program may need, handed down by reference. Nothing reaches for a global.
struct Program {
    const QString applicationFolder; ///< no separator at its end
    const QString version;           ///< "1.0.0"
    const Clock& clock;
    DBEngine& engine;
    Drives& drives;
    Dialogs& dialogs;
    Desktop& desktop;
    Shared shared = {};
    Screens* screens = nullptr; ///< set by the main window as soon as it exists
    /// Ends the process at once, without any further event; never returns (a test throws ProcessEnded from it).
    std::function<void(int code)> endProcess;

    int routines = 0;     ///< guarded routines under way, one in another; kept by Guarded
    bool faulted = false; ///< set by ReportFault: a second fault ends the process without a word

    /// Nothing is ever written to an external one.
    Database mainDatabase() const
    {
        return shared.ExternalDBOpen ? engine.OpenDatabaseReadOnly(shared.MainDBPath)
                                     : engine.OpenDatabase(shared.MainDBPath);
    }
    Database filesDatabase() const { return engine.OpenDatabase(shared.FilesDBPath); }
    Database tracksDatabase() const { return engine.OpenDatabase(shared.TracksDBPath); }
    /// vinora.ini, query.ini and skipcd.ini.
    Profile settings() const { return Profile(shared.IniFilePath); }
    Profile queries() const { return Profile(shared.QueryIniFilePath); }
    Profile skipcd() const { return Profile(applicationFolder + QStringLiteral("/skipcd.ini")); }
    bool offers(QStringView screen) const { return screens && screens->offers(screen); }
};
