#pragma once

#include "platform/Literals.h"

#include <QHash>
#include <array>

/// Values that one screen sets and another reads, under the names by which routines speak of them. What is not here goes
/// by argument and result. A test gets fresh ones.
struct Shared {
    // Where files are. Set at the start and by whatever switches the database; never cleared.
    QString HelpFilePath;
    QString IniFilePath;
    QString QueryIniFilePath;
    QString MainDBPath; ///< of the external database while one is on view
    QString FilesDBPath;
    QString TracksDBPath;

    bool ExternalDBOpen = false; ///< set and cleared by the switch of databases

    bool CatalogueQueryMode = false; ///< set by the first stored query that runs; never cleared
    /// Extra SQL of a catalogue or of the loan list, and for a moment the mode word between two screens ("edit:1",
    /// "cddb:1", "fullAD"). Set by the opener or the screen's own filters; the screen that reads it clears it.
    QString CatalogueQueryFilter;

    bool OpenedFromSearch = false; ///< the search screen is open: set and cleared by it

    bool DialogDone = false;    ///< set by a dialog that did its work; the opener reads and clears it
    bool DueDateChange = false; ///< puts the loan dialog into changing a term; set and cleared by the dialog itself

    int LastSavedNumber = 0; ///< set by the dialog that saved a disc; read by whoever opened it
    int ShiftStart = 0;      ///< numbers from here on move up at the next save, 0 for none; MoveNumbers clears it
    QString AutoDetectTag;   ///< "ad:" and an identifier for the next new row; not cleared by the audio editor
    int OldDiscCount = 0;    ///< discs in the set before a change; set by cmdChange
    QString PickedDisc;      ///< "number:disc", set by OK of the picker; PickDisc reads and clears it

    QString CurrentDiscID; ///< last identifier read for a command, or of the list at hand
    /// Categories of discs by identifier that skipcd.ini did not take, with its values: set and read by recognition, each
    /// cleared when the file takes a later one.
    QHash<QString, QString> UnsavedCategories;
    /// Names of the lists of disc 1 to 6 of the record at hand: filled by the screen of lists that opens on it, kept by
    /// what makes and deletes lists.
    std::array<QString, 6> DiscIDSlots;

    bool CDDBUpdateRow = false; ///< hand-over to the CDDB dialog; set and cleared by its openers
    bool CDDBSaveToIni = false;
    int CDDBDiscInSet = 0;

    bool DriveWatchPaused = false; ///< the drive is being read and must be left alone; set and cleared by the scan
};
