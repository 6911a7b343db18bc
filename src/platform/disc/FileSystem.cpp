#include "platform/disc/Iso9660.h"

std::unique_ptr<FileSystem> OpenFileSystem(std::shared_ptr<SectorSource> source)
{
    return Iso9660::open(std::make_shared<SectorCache>(std::move(source)));
}
