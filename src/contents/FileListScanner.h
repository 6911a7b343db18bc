#pragma once

#include "contents/FileFilter.h"
#include "platform/disc/Disc.h"

#include <functional>
#include <optional>

/// A row of a disc's list. A folder's own row has its path as its name and the size "0".
struct FileRow {
    QString name;
    QString folder;  ///< begins and ends with a backslash
    QString size;    ///< FileSizeText
    QString comment; ///< empty for none

    bool operator==(const FileRow&) const = default;
};

/// What a scan takes and how.
struct ScanRules {
    bool rootFiles = true;
    bool folders = true; ///< rows of folders and of their files; the root has its row in any case
    bool foldersOnly = false;
    bool hiddenFiles = false; ///< folders are walked, hidden or not
    bool lowerCase = false;
    bool tags = false; ///< "artist - title" of MP3 files into the comment
    std::optional<FileFilter> filter = {};
};

/// Shares of the whole walk, which add up to 1. How much is below a folder is not known before it is entered: its subfolders
/// and its own files count the same.
struct ScanProgress {
    double walked = 0; ///< before
    double share = 1;  ///< of the files at hand
};

/// Who follows a scan. The event loop turns in here and nowhere else.
class ScanWatcher {
public:
    virtual ~ScanWatcher() = default;

    /// A folder is entered; its rows come after those of its subfolders. False breaks the walk off: this folder and the
    /// one above it get no rows, folders further up get theirs and visit no more subfolders.
    virtual bool entering(const QString& folder) = 0;
    /// The rows of a folder are being made: `count` files, of which `name` is number `index`, from 0 on. `progress` says
    /// how far the walk is by then.
    virtual void listing(const QString& folder, qsizetype count, const ScanProgress& progress) = 0;
    /// False ends the folder with the rows that it has and visits no more subfolders; folders further up get their rows.
    virtual bool file(qsizetype index, const QString& name) = 0;
    /// The disc could not be read. What is left of one folder is lost, the walk goes on.
    virtual void readingError(const RuntimeError& error) = 0;
};

/// Walks a disc and gives its rows, a folder's after those of its subfolders, which are taken from the last to the first.
/// The depth of folders costs memory only, no stack. A path or name that its field cannot hold is a reading error of its
/// folder; so are the errors 5, 52, 53, 76 and those below 0. Out of memory (7) gives up a folder and the one above
/// without a word. All others, and whatever `store` throws, pass to the caller.
void CreateFileList(Disc& disc, const ScanRules& rules, const std::function<void(const FileRow&)>& store,
                    ScanWatcher& watcher);
