#include "store/Compaction.h"

#include "platform/Files.h"

void CompactDatabases(Program& program)
{
    const std::array<std::pair<QString, QString>, 3> files{
        std::pair{program.shared.MainDBPath, program.applicationFolder + u"/~vinora.db"_s},
        std::pair{program.shared.FilesDBPath, program.applicationFolder + u"/~vinora_files.db"_s},
        std::pair{program.shared.TracksDBPath, program.applicationFolder + u"/~vinora_tracks.db"_s},
    };
    program.engine.ReleaseAll();
    for (const auto& [database, temporary] : files) {
        // One that a fault left behind would refuse the copy.
        if (FileExists(temporary)) DeleteFile(temporary);
        program.engine.CompactDatabase(database, temporary);
    }
    for (const auto& [database, temporary] : files) {
        DeleteFile(database);
        CopyFile(temporary, database);
        DeleteFile(temporary);
    }
}
