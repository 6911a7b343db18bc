#include "platform/disc/Iso9660.h"
#include "platform/disc/Udf.h"

std::unique_ptr<FileSystem> OpenFileSystem(std::shared_ptr<SectorSource> source)
{
    const auto medium = std::make_shared<SectorCache>(std::move(source));
    try {
        if (auto udf = Udf::open(medium)) return udf;
    } catch (const DiscError&) {
        // A bridge disc carries the same files twice.
        if (auto iso = Iso9660::open(medium)) return iso;
        throw;
    }
    return Iso9660::open(medium);
}
