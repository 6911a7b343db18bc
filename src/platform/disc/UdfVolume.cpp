#include "platform/disc/UdfVolume.h"

#include "platform/disc/Fields.h"

#include <algorithm>
#include <map>

static constexpr qint64 sectorSize = 2048;

/// Empty where the medium ends or cannot be read: everything here stands on it more than once.
static QByteArray TryRead(SectorCache& medium, qint64 position, qint64 length)
{
    try {
        return medium.read(position, length);
    } catch (const DiscError&) {
        return {};
    }
}

const UdfVolume::Partition* UdfVolume::partition(quint16 number) const
{
    const auto found = std::ranges::find(partitions, number, &Partition::number);
    return found == partitions.end() ? nullptr : &*found;
}

bool IsUdf(SectorCache& medium, quint32 session)
{
    // Structures of 2048 bytes, each at the start of a block: with larger blocks there are blanks between them.
    constexpr int mostStructures = 64;
    for (int i = 16; i < 16 + mostStructures; ++i) {
        const QByteArray identifier = TryRead(medium, (qint64(session) + i) * sectorSize + 1, 5);
        if (identifier == "NSR02" || identifier == "NSR03") return true;
        const bool other = identifier == "CD001" || identifier == "CDW02" || identifier == "BEA01" ||
                           identifier == "BOOT2" || identifier == QByteArray(5, 0);
        if (!other) break;
    }
    return false;
}

namespace {

/// Length in bytes, first block (3/7.1).
struct VolumeExtent {
    quint32 length = 0, start = 0;

    static VolumeExtent read(QByteArrayView descriptor, qint64 at)
    {
        return {Fields(descriptor).le32(at), Fields(descriptor).le32(at + 4)};
    }
};

/// Gathers the descriptors of a sequence. Of those that stand there twice, the one with the higher number holds (3/8.4.3).
class DescriptorSequence {
public:
    DescriptorSequence(SectorCache& medium, qint64 blockSize) : m_medium(medium), m_blockSize(blockSize) {}

    std::optional<UdfVolume> read(VolumeExtent extent);

private:
    void take(const QByteArray& descriptor, UdfTag tag);
    std::optional<UdfVolume> volume() const;

    SectorCache& m_medium;
    qint64 m_blockSize;
    QByteArray m_primary, m_logical;
    std::map<quint16, QByteArray> m_partitions;
};

void Prevail(QByteArray& held, const QByteArray& descriptor)
{
    constexpr int sequenceNumber = 16;
    if (held.isEmpty() || Fields(descriptor).le32(sequenceNumber) >= Fields(held).le32(sequenceNumber))
        held = descriptor;
}

std::optional<UdfVolume> DescriptorSequence::read(VolumeExtent extent)
{
    constexpr int maximumDescriptors = 512;
    for (int i = 0; i < maximumDescriptors && extent.length >= m_blockSize; ++i) {
        const QByteArray descriptor = TryRead(m_medium, extent.start * m_blockSize, m_blockSize);
        const UdfTag tag = CheckTag(descriptor);
        if (tag == UdfTag::terminating) break;
        if (tag != UdfTag::none && TagLocation(descriptor) == extent.start) take(descriptor, tag);
        if (tag == UdfTag::volumePointer) {
            extent = VolumeExtent::read(descriptor, 20);
        } else {
            extent.start += 1;
            extent.length -= static_cast<quint32>(m_blockSize);
        }
    }
    return volume();
}

void DescriptorSequence::take(const QByteArray& descriptor, UdfTag tag)
{
    if (tag == UdfTag::primaryVolume) Prevail(m_primary, descriptor);
    if (tag == UdfTag::logicalVolume) Prevail(m_logical, descriptor);
    if (tag == UdfTag::partition) Prevail(m_partitions[Fields(descriptor).le16(22)], descriptor);
}

std::optional<UdfVolume> DescriptorSequence::volume() const
{
    if (m_logical.isEmpty() || m_partitions.empty()) return std::nullopt;
    const Fields logical(m_logical);
    if (logical.le32(212) != m_blockSize) return std::nullopt;

    UdfVolume volume;
    volume.blockSize = m_blockSize;
    volume.label = DecodeDString(logical.part(84, 128));
    if (volume.label.isEmpty() && !m_primary.isEmpty()) volume.label = DecodeDString(Fields(m_primary).part(24, 32));
    volume.fileSet = UdfLongExtent::read(m_logical, 248);
    volume.partitionMaps = logical.part(440, logical.le32(264)).toByteArray();
    volume.partitionMapCount = logical.le32(268);
    for (const auto& [number, descriptor] : m_partitions)
        volume.partitions.push_back({number, Fields(descriptor).le32(188), Fields(descriptor).le32(192)});
    return volume;
}

/// Blocks where an anchor may stand (3/8.4.2.1). A drive may count in the blank blocks at the end of a recorded track:
/// two, or a run-out of 150.
std::vector<qint64> AnchorPlaces(qint64 firstBlock, qint64 blockCount)
{
    const qint64 last = blockCount - 1;
    return {firstBlock + 256, last - 256, last,       firstBlock + 512, last - 2,   last - 150,
            last - 152,       last - 258, last - 406, last - 408,       qint64(256)};
}

}

std::optional<UdfVolume> FindUdfVolume(SectorCache& medium, quint32 session)
{
    for (const qint64 blockSize : {2048, 512, 4096, 1024, 8192, 16384, 32768}) {
        const qint64 blockCount = medium.size() / blockSize;
        for (const qint64 block : AnchorPlaces(session * sectorSize / blockSize, blockCount)) {
            const QByteArray anchor = TryRead(medium, block * blockSize, blockSize);
            if (CheckTag(anchor) != UdfTag::anchor || TagLocation(anchor) != block) continue;
            for (const int place : {16, 24}) { // the main descriptors, the reserve
                DescriptorSequence sequence(medium, blockSize);
                if (auto volume = sequence.read(VolumeExtent::read(anchor, place))) return volume;
            }
        }
    }
    return std::nullopt;
}
