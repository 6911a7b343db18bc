#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

#include <QFile>
#include <gtest/gtest.h>
#include <sqlite3.h>

/// Another program that reads a database all the while, so that no group of writes can be committed.
class BlockedDatabase {
public:
    explicit BlockedDatabase(const QString& path)
    {
        EXPECT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &m_reader), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(m_reader, "BEGIN; SELECT * FROM sqlite_schema", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~BlockedDatabase() { sqlite3_close(m_reader); }

private:
    sqlite3* m_reader = nullptr;
};

/// Discs 1 to `count` in the computer catalogue, which has disc 1 alone.
inline void FillNumbers(Program& program, int count)
{
    const CommandScope scope(program.engine);
    for (int have = 1; have < count; have *= 2)
        program.mainDatabase().Execute(u"INSERT INTO Компьютер (Номер, Название) "
                                       "SELECT Номер + ?, Название FROM Компьютер WHERE Номер <= ?",
                                       {have, count - have});
}

/// Names the runs of a test that every catalogue goes through.
inline std::string CodeOfCatalogue(const testing::TestParamInfo<const CatalogueKind*>& run)
{
    return run.param->code.toStdString();
}
