#include "platform/disc/Udf.h"

#include "platform/disc/Fields.h"
#include "platform/disc/UdfPartitions.h"
#include "platform/disc/VolumeSerial.h"

#include <algorithm>

static quint64 PlaceOf(UdfAddress address) { return quint64(address.partition) << 32 | address.block; }

static UdfAddress AddressOf(quint64 place) { return {static_cast<quint32>(place), static_cast<quint16>(place >> 32)}; }

/// To the end of the last partition. On write-once media that is the end of the medium, wherever recording stopped.
static qint64 ClaimedSize(const UdfVolume& volume)
{
    if (volume.partitionMaps.contains("*UDF Virtual Partition")) return 0;
    qint64 blocks = 0;
    for (const UdfVolume::Partition& partition : volume.partitions)
        blocks = std::max(blocks, qint64(partition.start) + partition.length);
    return blocks * volume.blockSize;
}

std::unique_ptr<Udf> Udf::open(const std::shared_ptr<SectorCache>& medium)
{
    quint32 session = medium->lastSession();
    if (!IsUdf(*medium, session)) {
        session = 0;
        if (!medium->lastSession() || !IsUdf(*medium, session)) return nullptr;
    }
    std::optional<UdfVolume> volume = FindUdfVolume(*medium, session);
    if (!volume) throw DiscError(u"Диск поврежден: описание тома UDF не найдено."_s);

    auto space = std::make_unique<UdfSpace>(medium, volume->blockSize);
    MapUdfPartitions(*space, *volume);
    const QByteArray fileSet = space->block(volume->fileSet.start);
    ExpectTag(fileSet, UdfTag::fileSet);
    const UdfAddress root = UdfLongExtent::read(fileSet, 400).start;
    return std::unique_ptr<Udf>(new Udf(std::move(space), *volume, root, UdfSerial(fileSet)));
}

Udf::Udf(std::unique_ptr<UdfSpace> space, const UdfVolume& volume, UdfAddress root, quint32 serial)
    : TreeFileSystem(PlaceOf(root), space->medium().size()), m_space(std::move(space)),
      m_claimedSize(ClaimedSize(volume))
{
    constexpr quint32 caseSensitive = 0x1, casePreserved = 0x2, unicode = 0x4, readOnly = 0x80000;
    m_properties.success = true;
    m_properties.label = volume.label.trimmed();
    m_properties.serial = serial;
    m_properties.maximumComponentLength = 255;
    m_properties.flags = caseSensitive | casePreserved | unicode | readOnly;
    m_properties.fileSystem = u"UDF"_s;
}

qint64 Udf::folderSize(quint64 place) { return UdfFile::open(*m_space, AddressOf(place)).size(); }

std::vector<TreeFileSystem::Node> Udf::folder(quint64 place)
{
    enum Characteristic { hidden = 0x01, directory = 0x02, deleted = 0x04, parent = 0x08, stream = 0x10 };
    constexpr int fixedSize = 38; // of a file identifier descriptor (ECMA-167 4/14.4)

    const UdfFile file = UdfFile::open(*m_space, AddressOf(place));
    if (file.type() != UdfFile::directory) throw DiscError(u"Диск поврежден: вместо папки на нем записан файл."_s);
    const QByteArray bytes = file.readAll(*m_space);
    const Fields fields(bytes);
    // Files that were rewritten often are few: five older entries for the shortest identifier, and some to spare.
    qint64 links = 16 * UdfFile::longestChain + bytes.size() / 8;
    std::vector<Node> nodes;
    for (qint64 at = 0; at < bytes.size();) {
        const int nameLength = fields.u8(at + 19), useLength = fields.le16(at + 36);
        const qint64 size = fixedSize + useLength + nameLength;
        const qint64 padded = std::min((size + 3) / 4 * 4, bytes.size() - at); // its checksum may count the padding in
        const QByteArrayView identifier = ExpectTag(fields.part(at, padded), UdfTag::fileIdentifier);
        at += padded;

        const quint8 characteristics = static_cast<quint8>(identifier[18]);
        const UdfLongExtent icb = UdfLongExtent::read(identifier, 20);
        if (characteristics & (deleted | parent | stream) || !icb.length) continue;
        Node node;
        node.entry.name = DecodeCompressedUnicode(Fields(identifier).part(fixedSize + useLength, nameLength));
        node.entry.folder = characteristics & directory;
        node.entry.hidden = characteristics & hidden || node.entry.name.startsWith(u'.');
        if (!node.entry.folder) node.entry.size = UdfFile::open(*m_space, icb.start, links).size();
        node.place = PlaceOf(icb.start);
        nodes.push_back(std::move(node));
    }
    return nodes;
}

QByteArray Udf::content(quint64 place, qint64 offset, qint64 length)
{
    if (!m_lastFile || m_lastFile->place != place) {
        UdfFile file = UdfFile::open(*m_space, AddressOf(place));
        std::vector<UdfExtent> extents = file.extents(*m_space);
        m_lastFile = OpenFile{place, std::move(file), std::move(extents)};
    }
    return m_lastFile->file.read(*m_space, m_lastFile->extents, offset, length);
}
