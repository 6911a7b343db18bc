#include "store/StartUp.h"

#include "frame/Fault.h"
#include "store/DatabaseSet.h"
#include "store/Reanimator.h"

static constexpr int FolderUnreachable = 52;

void PrepareDatabases(Program& program)
{
    Guarded(program, "vinoraModule, Main()"_L1, [&] {
        for (bool reached = false; !reached;) {
            try {
                CreateMissingDatabases(program);
                reached = true;
            } catch (const RuntimeError& error) {
                if (error.number() != FolderUnreachable) throw;
                OfferToRestoreFolder(program, u"Папка '%1' не существует!"_s.arg(MainDatabaseFolder(program)));
            }
        }
    });
}
