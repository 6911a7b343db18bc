#include "platform/Literals.h"
#include "platform/disc/CueSheet.h"
#include "platform/disc/ImageFile.h"
#include "platform/disc/MediumDisc.h"
#include "platform/disc/NrgImage.h"
#include "platform/disc/RawSectorSource.h"
#include "platform/disc/SheetFolder.h"
#include "platform/disc/SheetText.h"
#include "platform/disc/TocSheet.h"

#include <QFileInfo>

namespace {
constexpr int DescriptorSector = 16; ///< of the volume descriptors, on a disc of any kind

/// How the sectors of a file without a sheet lie: whole ones begin with a synchronisation field (ECMA-130, 14.1), those of
/// 2336 bytes show by their volume descriptor. Everything else is a plain run of user data.
SectorFormat FormatOf(SectorSource& file)
{
    static const QByteArray synchronisation("\x00\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x00", 12);
    const auto stands = [&](qint64 at, const QByteArray& bytes) {
        return at + bytes.size() <= file.size() && file.read(at, bytes.size()) == bytes;
    };
    if (stands(0, synchronisation)) return {stands(2448, synchronisation) ? 2448 : RawSectorSize, 16, false};
    if (stands(DescriptorSector * 2336 + 8 + 1, "CD001")) return {2336, 8, false};
    return {};
}

[[noreturn]] void RefuseAsImage(const QString& path)
{
    throw DiscError(
        u"'%1' - не образ диска: в нём нет ни файловой системы, ни звуковых дорожек. Выберите файл ISO, NRG, "
        u"CUE или TOC; файл BIN вставляется через его CUE."_s.arg(path));
}

DiscLayout OneTrack(const QString& path, qint64 size, const SectorFormat& format)
{
    const int sectors = BoundedFrames(size / format.size);
    if (sectors == 0) RefuseAsImage(path);
    DiscLayout layout;
    layout.contents.tracks = {{1, false, Msf::fromFrames(LeadInFrames), {}, {}}};
    layout.contents.leadOut = Msf::fromFrames(LeadInFrames + sectors);
    layout.data = {{LeadInFrames, sectors, path, 0, format}};
    layout.lastSession = LeadInFrames;
    return Checked(layout);
}

DiscLayout SheetLayout(const QString& path, const QByteArray& sheet, bool cue)
{
    try {
        return cue ? ReadCueSheet(sheet, FilesBeside(path)) : ReadTocSheet(sheet, FilesBeside(path));
    } catch (const DiscError& error) {
        throw DiscError(u"Описание диска '%1' не читается. %2"_s.arg(path, error.description()));
    }
}

std::shared_ptr<SectorSource> DataOf(const DiscLayout& layout)
{
    if (layout.data.isEmpty()) return nullptr;
    return std::make_shared<RawSectorSource>(layout,
                                             [](const QString& path) { return std::make_shared<ImageFile>(path); });
}

std::unique_ptr<Disc> Usable(const QString& path, const DiscLayout& layout, std::shared_ptr<SectorSource> data)
{
    auto disc = std::make_unique<MediumDisc>(layout.contents, std::move(data));
    if (!disc->readable()) RefuseAsImage(path);
    return disc;
}
}

std::unique_ptr<Disc> OpenDiscImage(const QString& path)
{
    const auto file = std::make_shared<ImageFile>(path);
    const QString extension = QFileInfo(path).suffix().toLower();
    if (extension == u"cue" || extension == u"toc") {
        if (file->size() > LargestSheet) throw DiscError(u"Файл '%1' слишком велик для описания диска."_s.arg(path));
        const DiscLayout layout = SheetLayout(path, file->read(0, file->size()), extension == u"cue");
        return Usable(path, layout, DataOf(layout));
    }
    if (const auto layout = ReadNrgImage(*file, path)) return Usable(path, *layout, DataOf(*layout));

    const SectorFormat format = FormatOf(*file);
    const DiscLayout layout = OneTrack(path, file->size(), format);
    // Plain user data is its own source, to the last byte: volumes with small blocks need not end with a sector.
    const bool plain = format.size == 2048;
    return Usable(path, layout, plain ? std::shared_ptr<SectorSource>(file) : DataOf(layout));
}
