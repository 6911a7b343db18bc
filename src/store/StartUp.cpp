#include "store/StartUp.h"

#include "frame/Fault.h"
#include "store/DatabaseSet.h"
#include "store/Reanimator.h"

static constexpr int FolderUnreachable = 52;

void PrepareDatabases(Program& program)
{
    Guarded(program, "vinoraModule, Main()"_L1, [&] {
        try {
            CreateMissingDatabases(program);
        } catch (const RuntimeError& error) {
            if (error.number() != FolderUnreachable) throw;
            OfferToRestoreFolder(program, u"Папка '%1' не существует!"_s.arg(MainDatabaseFolder(program)));
            CreateMissingDatabases(program);
        }
    });
}
