#include "store/Reanimator.h"

#include "frame/Fault.h"
#include "platform/Files.h"
#include "store/DatabaseSet.h"
#include "store/Schema.h"

#include <QApplication>

namespace {

void create(const Database& database, const QList<TableDef>& tables, const QList<Seed>& seeds)
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

void createEmptied(Program& program, const QString& path)
{
    if (FileExists(path)) {
        program.engine.Release(path);
        DeleteFile(path);
    }
    program.engine.CreateDatabase(path);
}

void build(Program& program, int kind)
{
    // Tables and seeds of a file come in one group: a new database is whole or not there.
    CommandScope scope(program.engine);
    if (kind != 1 && kind != 2) {
        program.engine.CreateDatabase(program.shared.MainDBPath);
        create(program.mainDatabase(), MainSchema(), MainSeeds());
    }
    if (kind != 2) {
        createEmptied(program, program.shared.FilesDBPath);
        create(program.filesDatabase(), FilterSchema(), FilterSeeds());
    }
    if (kind != 1) createEmptied(program, program.shared.TracksDBPath);
    scope.end();
}

bool buildMissing(Program& program)
{
    bool readOnly = false;
    if (!FileExists(program.shared.MainDBPath)) readOnly |= Reanimator(program, 0);
    if (!FileExists(program.shared.FilesDBPath)) readOnly |= Reanimator(program, 1);
    if (!FileExists(program.shared.TracksDBPath)) readOnly |= Reanimator(program, 2);
    return readOnly;
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
                readOnly = buildMissing(program);
                return;
            default: throw;
            }
        }
    });
    return readOnly;
}
