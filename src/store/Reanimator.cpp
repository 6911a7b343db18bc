#include "store/Reanimator.h"

#include "frame/Fault.h"
#include "platform/Files.h"
#include "store/DatabaseSet.h"
#include "store/Schema.h"

namespace {

void createTables(const Database& database, const QList<TableDef>& tables, const QList<Seed>& seeds)
{
    for (const TableDef& table : tables) {
        database.CreateTable(table);
        for (const Seed& seed : seeds) {
            if (seed.table != table.name) continue;
            Recordset rows = database.OpenRecordset(table.name);
            for (const QString& name : seed.names) {
                rows.AddNew();
                rows[seed.field] = name;
                rows.Update();
            }
        }
    }
}

/// A database without all of its tables would look complete to the next start.
void discard(Program& program, const QString& path)
{
    try {
        program.engine.Release(path);
        DeleteFile(path);
    } catch (const RuntimeError&) {
        // The error that made the file useless is the one to tell.
    }
}

/// The file is whole and on disk, or not there.
void createDatabase(Program& program, const QString& path, const QList<TableDef>& tables, const QList<Seed>& seeds)
{
    program.engine.CreateDatabase(path);
    try {
        createTables(program.engine.OpenDatabase(path), tables, seeds);
        program.engine.Commit();
    } catch (const RuntimeError&) {
        discard(program, path);
        throw;
    }
}

void deleteExisting(Program& program, const QString& path)
{
    if (!FileExists(path)) return;
    program.engine.Release(path);
    DeleteFile(path);
}

void build(Program& program, int kind)
{
    if (kind != 1 && kind != 2) createDatabase(program, program.shared.MainDBPath, MainSchema(), MainSeeds());
    if (kind != 2) {
        deleteExisting(program, program.shared.FilesDBPath);
        createDatabase(program, program.shared.FilesDBPath, FilterSchema(), FilterSeeds());
    }
    if (kind != 1) {
        deleteExisting(program, program.shared.TracksDBPath);
        program.engine.CreateDatabase(program.shared.TracksDBPath);
    }
}

}

bool Reanimator(Program& program, int kind)
{
    bool readOnly = false;
    Guarded(program, "vinoraModule, Reanimator()"_L1, [&] {
        try {
            build(program, kind);
        } catch (const RuntimeError& error) {
            const QString folder = MainDatabaseFolder(program);
            switch (error.number()) {
            case DaoErrorNumber::CannotOpenOrWrite:
                program.dialogs.MsgBox(u"Папка '%1' доступна только для чтения!"_s.arg(folder), Box::Exclamation);
                readOnly = true;
                return;
            case DaoErrorNumber::PathNotValid:
                OfferToRestoreFolder(program, u"Папка '%1' не существует!"_s.arg(folder));
                readOnly = CreateMissingDatabases(program);
                return;
            default: throw;
            }
        }
    });
    return readOnly;
}

bool CreateMissingDatabases(Program& program)
{
    bool readOnly = false;
    if (!FileExists(program.shared.MainDBPath)) readOnly |= Reanimator(program, 0);
    if (!FileExists(program.shared.FilesDBPath)) readOnly |= Reanimator(program, 1);
    if (!FileExists(program.shared.TracksDBPath)) readOnly |= Reanimator(program, 2);
    return readOnly;
}
