#include "platform/disc/UdfPartitions.h"

#include "platform/disc/Fields.h"
#include "platform/disc/UdfFile.h"

#include <QHash>
#include <algorithm>

namespace {

[[noreturn]] void throwOutside()
{
    throw DiscError(u"Диск поврежден: данные, на которые он ссылается, лежат вне своего раздела."_s);
}

class PhysicalPartition : public UdfPartition {
public:
    /// A length of zero is not known: the medium's end bounds the partition then.
    PhysicalPartition(quint32 start, quint32 length) : m_start(start), m_length(length ? length : 0xFFFFFFFF) {}

    Run locate(quint32 block) const override
    {
        if (block >= m_length) throwOutside();
        return {qint64(m_start) + block, qint64(m_length) - block};
    }

private:
    quint32 m_start, m_length;
};

/// Packets that wore out stand elsewhere (UDF 2.2.12).
class SparablePartition : public PhysicalPartition {
public:
    using Packets = QHash<quint32, quint32>; ///< first block in the partition to first block of the medium

    SparablePartition(quint32 start, quint32 length, quint32 packetLength, Packets moved)
        : PhysicalPartition(start, length), m_packetLength(packetLength), m_moved(std::move(moved))
    {}

    Run locate(quint32 block) const override
    {
        const quint32 inside = block % m_packetLength;
        Run run = PhysicalPartition::locate(block);
        run.count = std::min<qint64>(run.count, m_packetLength - inside);
        if (const auto moved = m_moved.constFind(block - inside); moved != m_moved.cend())
            run.block = qint64(*moved) + inside;
        return run;
    }

private:
    quint32 m_packetLength;
    Packets m_moved;
};

/// A table tells where each block was written last (UDF 2.2.11).
class VirtualPartition : public UdfPartition {
public:
    VirtualPartition(const UdfPartition& physical, QByteArray table) : m_physical(physical), m_table(std::move(table))
    {}

    Run locate(quint32 block) const override
    {
        constexpr quint32 unused = 0xFFFFFFFF;
        if (block >= m_table.size() / 4) throwOutside();
        const quint32 physical = Fields(m_table).le32(qint64(block) * 4);
        if (physical == unused) throwOutside();
        return {m_physical.locate(physical).block, 1};
    }

private:
    const UdfPartition& m_physical;
    QByteArray m_table;
};

/// The blocks are those of a file (UDF 2.2.13).
class MetadataPartition : public UdfPartition {
public:
    MetadataPartition(const UdfSpace& space, const std::vector<UdfExtent>& extents) : m_space(space)
    {
        qint64 first = 0;
        for (const UdfExtent& extent : extents) {
            m_pieces.push_back({first, extent});
            first += extent.length / space.blockSize();
        }
        m_count = first;
    }

    Run locate(quint32 block) const override
    {
        if (block >= m_count) throwOutside();
        const auto piece = std::prev(std::ranges::upper_bound(m_pieces, qint64(block), {}, &Piece::first));
        const qint64 inside = block - piece->first, left = piece->extent.length / m_space.blockSize() - inside;
        const qint64 target = piece->extent.start.block + inside;
        if (!piece->extent.recorded || target > 0xFFFFFFFF) throwOutside();
        Run run = m_space.partition(piece->extent.start.partition).locate(static_cast<quint32>(target));
        run.count = std::min(run.count, left);
        return run;
    }

private:
    struct Piece {
        qint64 first; ///< block of this partition
        UdfExtent extent;
    };

    const UdfSpace& m_space;
    std::vector<Piece> m_pieces;
    qint64 m_count = 0;
};

/// One entry of the logical volume's partition map.
struct Map {
    enum Kind { physical, sparable, virtualKind, metadata } kind = physical;
    quint16 partition = 0; ///< number of its partition descriptor
    QByteArrayView bytes;
};

std::vector<Map> ParseMaps(const UdfVolume& volume)
{
    constexpr quint32 maximumMaps = 16;
    if (volume.partitionMapCount > maximumMaps) throw DiscError(u"Диск поврежден: на нем слишком много разделов."_s);
    const Fields all(volume.partitionMaps);
    std::vector<Map> maps;
    qint64 at = 0;
    for (quint32 i = 0; i < volume.partitionMapCount; ++i) {
        Map map;
        map.bytes = all.part(at, all.u8(at + 1));
        const Fields fields(map.bytes);
        if (fields.u8(0) == 1) {
            map.partition = fields.le16(4);
        } else {
            const QByteArrayView kind = fields.part(5, 23);
            map.partition = fields.le16(38);
            if (kind.startsWith("*UDF Sparable Partition"))
                map.kind = Map::sparable;
            else if (kind.startsWith("*UDF Virtual Partition"))
                map.kind = Map::virtualKind;
            else if (kind.startsWith("*UDF Metadata Partition"))
                map.kind = Map::metadata;
            else
                throw DiscError(u"Разделы такого вида, как на этом диске, не поддерживаются."_s);
        }
        at += map.bytes.size();
        maps.push_back(map);
    }
    return maps;
}

/// The newest of the sparing tables that can be read (UDF 2.2.12).
SparablePartition::Packets ReadSparingTable(const UdfSpace& space, QByteArrayView map)
{
    constexpr quint32 firstUnused = 0xFFFFFFF0, maximumTable = 56 + 8 * 65536;
    const Fields fields(map);
    const int tables = std::min<int>(fields.u8(42), 4);
    const quint32 size = std::min(fields.le32(44), maximumTable);

    QByteArray newest;
    for (int i = 0; i < tables; ++i) {
        QByteArray table;
        try {
            table = space.medium().read(fields.le32(48 + 4 * i) * space.blockSize(), size);
        } catch (const DiscError&) {
            continue; // there are copies for this
        }
        constexpr int sequenceNumber = 52;
        const bool valid = CheckTag(table) == UdfTag::sparingTable &&
                           Fields(table).part(17, 23).startsWith("*UDF Sparing Table");
        if (valid && (newest.isEmpty() || Fields(table).le32(sequenceNumber) > Fields(newest).le32(sequenceNumber)))
            newest = table;
    }
    if (newest.isEmpty()) throw DiscError(u"Диск поврежден: таблица замен на нем не читается."_s);

    SparablePartition::Packets moved;
    const Fields table(newest);
    for (int i = 0; i < table.le16(48); ++i) {
        const quint32 original = table.le32(56 + 8 * i);
        if (original < firstUnused) moved.insert(original, table.le32(56 + 8 * i + 4));
    }
    return moved;
}

/// Finds the virtual allocation table, the file whose entry was written to the medium last.
class VirtualTable {
public:
    VirtualTable(const UdfSpace& space, quint16 partition) : m_space(space), m_partition(partition) {}

    /// The table of block numbers alone. Throws DiscError without one.
    QByteArray read();
    /// Empty where the table does not tell one, as before UDF 2.00.
    const QString& label() const { return m_label; }

private:
    std::optional<QByteArray> tryBlock(qint64 block);
    std::optional<QByteArray> tableOf(const QByteArray& bytes, quint8 type);

    const UdfSpace& m_space;
    quint16 m_partition;
    int m_tablesRead = 0;
    QString m_label;
};

QByteArray VirtualTable::read()
{
    // Behind the last block a drive may count in some that hold nothing, and a packet may be filled up with copies.
    constexpr qint64 farthest = 1024;
    const qint64 last = m_space.medium().size() / m_space.blockSize() - 1;
    for (qint64 block = last; block >= 0 && block > last - farthest; --block)
        if (auto table = tryBlock(block)) return *std::move(table);
    throw DiscError(u"Диск поврежден или не закрыт: таблица его блоков не найдена."_s);
}

std::optional<QByteArray> VirtualTable::tryBlock(qint64 block)
{
    constexpr qint64 maximumTable = 16 * 1024 * 1024;
    constexpr int mostTables = 16;
    try {
        const QByteArray bytes = m_space.medium().read(block * m_space.blockSize(), m_space.blockSize());
        const UdfTag tag = CheckTag(bytes);
        if (tag != UdfTag::fileEntry && tag != UdfTag::extendedFileEntry) return std::nullopt;
        const quint32 location = TagLocation(bytes);
        if (m_space.partition(m_partition).locate(location).block != block) return std::nullopt;
        const UdfFile file = UdfFile::open(m_space, {location, m_partition});
        if (file.type() != UdfFile::virtualTable && file.type() != UdfFile::unspecified) return std::nullopt;
        if (file.size() > maximumTable || ++m_tablesRead > mostTables) return std::nullopt;
        return tableOf(file.readAll(m_space), file.type());
    } catch (const DiscError&) {
        return std::nullopt; // an older table may stand before it
    }
}

/// From UDF 2.00 on a header that tells its length and a label, then the numbers; in UDF 1.50 the numbers, then an
/// identifier and the place of the table before.
std::optional<QByteArray> VirtualTable::tableOf(const QByteArray& bytes, quint8 type)
{
    const Fields fields(bytes);
    if (type == UdfFile::virtualTable) {
        const quint16 header = fields.le16(0);
        m_label = DecodeDString(fields.part(4, 128));
        return fields.part(header, bytes.size() - header).toByteArray();
    }
    constexpr int trailer = 36;
    const qint64 end = bytes.size() - trailer;
    if (end < 0 || !fields.part(end + 1, 23).startsWith("*UDF Virtual Alloc Tbl")) return std::nullopt;
    return bytes.first(end);
}

/// The metadata file's extents; those of its mirror when it cannot be read.
std::vector<UdfExtent> MetadataExtents(const UdfSpace& space, QByteArrayView map, quint16 underlying)
{
    const auto extentsOf = [&](qint64 at, quint8 type) {
        const UdfFile file = UdfFile::open(space, {Fields(map).le32(at), underlying});
        if (file.type() != type) throw DiscError(u"Диск поврежден: файл метаданных не найден."_s);
        std::vector<UdfExtent> extents = file.extents(space);
        for (const UdfExtent& extent : extents)
            if (extent.start.partition != underlying) throwOutside();
        return extents;
    };
    try {
        return extentsOf(40, UdfFile::metadata);
    } catch (const DiscError&) {
        return extentsOf(44, UdfFile::metadataMirror);
    }
}

}

void MapUdfPartitions(UdfSpace& space, UdfVolume& volume)
{
    const std::vector<Map> maps = ParseMaps(volume);
    const auto described = [&](const Map& map) {
        const UdfVolume::Partition* partition = volume.partition(map.partition);
        if (!partition) throw DiscError(u"Диск поврежден: описание раздела не найдено."_s);
        return *partition;
    };
    // What stands on the medium itself first: the others lie upon it.
    for (std::size_t i = 0; i < maps.size(); ++i) {
        if (maps[i].kind != Map::physical && maps[i].kind != Map::sparable) continue;
        const auto [number, start, length] = described(maps[i]);
        if (maps[i].kind == Map::physical) {
            space.setPartition(quint16(i), std::make_unique<PhysicalPartition>(start, length));
        } else {
            const quint16 packetLength = Fields(maps[i].bytes).le16(40);
            if (!packetLength) throw DiscError(u"Диск поврежден: описание раздела неверно."_s);
            space.setPartition(quint16(i), std::make_unique<SparablePartition>(start, length, packetLength,
                                                                               ReadSparingTable(space, maps[i].bytes)));
        }
    }
    for (std::size_t i = 0; i < maps.size(); ++i) {
        if (maps[i].kind != Map::virtualKind && maps[i].kind != Map::metadata) continue;
        const auto isBelow = [&](const Map& map) {
            return map.partition == maps[i].partition && (map.kind == Map::physical || map.kind == Map::sparable);
        };
        const auto below = std::ranges::find_if(maps, isBelow);
        if (below == maps.end()) throw DiscError(u"Диск поврежден: описание раздела не найдено."_s);
        const auto underlying = static_cast<quint16>(below - maps.begin());
        if (maps[i].kind == Map::virtualKind) {
            VirtualTable table(space, underlying);
            QByteArray numbers = table.read();
            if (!table.label().isEmpty()) volume.label = table.label();
            space.setPartition(quint16(i),
                               std::make_unique<VirtualPartition>(space.partition(underlying), std::move(numbers)));
        } else {
            const auto extents = MetadataExtents(space, maps[i].bytes, underlying);
            space.setPartition(quint16(i), std::make_unique<MetadataPartition>(space, extents));
        }
    }
}
