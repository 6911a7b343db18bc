#include "store/StartUp.h"

#include "frame/Fault.h"
#include "platform/Files.h"
#include "store/DatabaseSet.h"
#include "store/Reanimator.h"

static constexpr int FolderUnreachable = 52;

/// A lost main database takes the lists with it: Reanimator(0) rebuilds all three.
static void createMissing(Program& program)
{
    if (!FileExists(program.shared.MainDBPath)) Reanimator(program, 0);
    if (!FileExists(program.shared.FilesDBPath)) Reanimator(program, 1);
    if (!FileExists(program.shared.TracksDBPath)) Reanimator(program, 2);
}

void PrepareDatabases(Program& program)
{
    Guarded(program, "vinoraModule, Main()"_L1, [&] {
        try {
            createMissing(program);
        } catch (const RuntimeError& error) {
            if (error.number() != FolderUnreachable) throw;
            OfferToRestoreFolder(program, u"Папка '%1' не существует!"_s.arg(MainDatabaseFolder(program)));
            createMissing(program);
        }
    });
}
