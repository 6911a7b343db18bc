#include "contents/FileLists.h"

#include "contents/FolderTree.h"
#include "dao/DBEngine.h"
#include "store/DiscTables.h"
#include "store/Schema.h"

#include <algorithm>
#include <cmath>

/// At most ten decimal digits, so that it fits the fields that name lists.
static QString madeUpName(QRandomGenerator& random)
{
    const double first = random.generateDouble(), second = random.generateDouble();
    return QString::number(qint64(std::floor(first * 999999999 + second * 9)));
}

bool CreateFileTable(const Database& files, const Database& main, QString& id, const std::function<bool()>& ask,
                     QRandomGenerator& random)
{
    if (!ask && files.HasTable(id)) return false;
    while (!CreateList(files, main, Computer(), id)) {
        if (!ask()) return false;
        id = madeUpName(random);
    }
    return true;
}

static Value orNull(const QString& text) { return text.isEmpty() ? Value() : Value(text); }

FileListWriter::FileListWriter(const Database& files, const QString& id)
    : m_list(files.OpenRecordset(u"SELECT * FROM [%1]"_s.arg(id)))
{}

void FileListWriter::add(const FileRow& row)
{
    m_list.AddNew();
    m_list[u"Имя"] = row.name;
    m_list[u"Путь"] = row.folder;
    m_list[u"Размер"] = row.size;
    m_list[u"Комментарий"] = orNull(row.comment);
    m_list.Update();
}

void CreateLinkDiskID(const Database& main, DiscOfRow disc, const QString& id, bool share)
{
    QHash<QString, Value> fields{{CatalogueKind::listField(disc.disc), id}};
    if (share) fields[CatalogueKind::bindingField(disc.disc)] = id;
    SetFields(main, Computer(), disc.key, fields);
}

/// Names on a disc may differ in case alone, which a comparison of fields would pass over; that of an expression does not.
static const QString Exactly = u"(%1 & '') IN (?)"_s;

QStringList FolderPaths(const Database& files, const QString& id)
{
    files.OpenRecordset(u"SELECT Имя, Путь, Размер, Комментарий FROM [%1] WHERE False"_s.arg(id));
    const Recordset rows = files.OpenRecordset(u"SELECT DISTINCT(Путь & '') FROM [%1]"_s.arg(id));
    QStringList paths;
    paths.reserve(rows.RecordCount());
    for (int i = 0; i < rows.RecordCount(); ++i) paths += rows.row(i).first().text();
    std::sort(paths.begin(), paths.end(), FolderPathLess);
    return paths;
}

FolderContents ReadFolder(const Database& files, const QString& id, const QString& folder)
{
    Recordset rows = files.OpenRecordset(u"SELECT * FROM [%1] WHERE %2 ORDER BY Имя"_s.arg(id, Exactly.arg(u"Путь"_s)),
                                         {folder});
    FolderContents contents;
    for (; !rows.AtEOF(); rows.MoveNext()) {
        const FileRow row{rows[u"Имя"].text(), folder, rows[u"Размер"].text(), rows[u"Комментарий"].text()};
        if (row.name == folder)
            contents.comment = row.comment;
        else
            contents.files += row;
    }
    return contents;
}

bool SetFileComment(const Database& files, const QString& id, const QString& folder, const QString& name,
                    const QString& comment)
{
    Recordset row = files.OpenRecordset(
        u"SELECT * FROM [%1] WHERE %2 AND %3"_s.arg(id, Exactly.arg(u"Путь"_s), Exactly.arg(u"Имя"_s)), {folder, name});
    if (row.RecordCount() == 0) return false;
    row.Edit();
    row[u"Комментарий"] = orNull(comment);
    row.Update();
    return true;
}
