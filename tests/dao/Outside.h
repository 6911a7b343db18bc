#pragma once

#include "dao/Collation.h"

#include <QFile>
#include <QString>
#include <sqlite3.h>

/// A look at a file from outside the engine: the first value that a statement of SQLite gives, "error" when it fails.
inline QString outside(const QString& path, const char* sql)
{
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    QString result = QStringLiteral("error");
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK) {
        RegisterCollation(db);
        if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) == SQLITE_OK) {
            const int code = sqlite3_step(statement);
            if (code == SQLITE_ROW)
                result = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
            else if (code == SQLITE_DONE)
                result.clear();
        }
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return result;
}
