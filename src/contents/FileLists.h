#pragma once

#include "contents/FileListScanner.h"
#include "dao/Database.h"
#include "store/DiscTables.h"

#include <QRandomGenerator>

/// Makes an empty list named `id`. When there is one of that name already: without `ask` that is a failure; with it, a
/// list that no row owns is replaced without a word, and for one that is owned `ask` says whether the new list shall get
/// a made-up decimal name, which `id` then holds. False when nothing was made.
bool CreateFileTable(const Database& files, const Database& main, QString& id, const std::function<bool()>& ask = {},
                     QRandomGenerator& random = *QRandomGenerator::global());

class FileListWriter {
public:
    FileListWriter(const Database& files, const QString& id);
    void add(const FileRow& row);

private:
    Recordset m_list;
};

/// The row's disc has the list `id` from now on; `share` binds it to the medium of that identifier, too.
void CreateLinkDiskID(const Database& main, DiscOfRow disc, const QString& id, bool share);

/// All folders of a list in the order of FolderPathLess. Error 3078 when the list is missing, 3061 when it lacks a field, as
/// one of a foreign database may.
QStringList FolderPaths(const Database& files, const QString& id);

struct FolderContents {
    QString comment;      ///< of the folder
    QList<FileRow> files; ///< by name
};
FolderContents ReadFolder(const Database& files, const QString& id, const QString& folder);

/// Comment of a file, or of a folder when `name` is its path: at most 50 characters; an empty text takes it away. False
/// when there is no such row.
bool SetFileComment(const Database& files, const QString& id, const QString& folder, const QString& name,
                    const QString& comment);
