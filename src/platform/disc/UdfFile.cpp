#include "platform/disc/UdfFile.h"

#include "platform/disc/Fields.h"

#include <algorithm>
#include <limits>

namespace {
/// The upper two bits of an extent's length (ECMA-167 4/14.14.1.1).
enum ExtentKind { recordedExtent, allocatedExtent, unallocatedExtent, continuation };
}

UdfFile UdfFile::open(const UdfSpace& space, UdfAddress icb, qint64& links)
{
    constexpr quint16 chainStrategy = 4096;
    for (qint64 i = 0; i < longestChain && links >= 0; ++i, --links) {
        const QByteArray entry = space.block(icb);
        UdfFile file = parse(entry, icb);
        if (Fields(entry).le16(20) != chainStrategy) return file;

        // A newer entry stands where the indirect entry (4/14.7) behind this one points to, once there is one.
        QByteArray next;
        try {
            next = space.block({icb.block + 1, icb.partition});
        } catch (const DiscError&) {
            return file;
        }
        if (CheckTag(next) != UdfTag::indirectEntry) return file;
        const UdfLongExtent indirect = UdfLongExtent::read(next, 36);
        if (!indirect.length) return file;
        icb = indirect.start;
    }
    throw DiscError(u"Диск поврежден: слишком длинная цепочка описаний одного файла."_s);
}

UdfFile UdfFile::parse(QByteArrayView entry, UdfAddress at)
{
    const UdfTag tag = CheckTag(entry);
    const bool extended = tag == UdfTag::extendedFileEntry;
    if (!extended) ExpectTag(entry, UdfTag::fileEntry);

    const Fields fields(entry);
    UdfFile file;
    file.m_at = at;
    file.m_type = fields.u8(27);
    file.m_allocation = fields.le16(34) & 7;
    const quint64 size = fields.le64(56);
    if (size > quint64(std::numeric_limits<qint64>::max()) || file.m_allocation > inlineData)
        throw DiscError(u"Диск поврежден: описание файла на нем неверно."_s);
    file.m_size = static_cast<qint64>(size);

    const int lengths = extended ? 208 : 168; // of the extended attributes, then of the allocation descriptors
    const qint64 descriptors = lengths + 8 + qint64(fields.le32(lengths));
    const QByteArrayView bytes = fields.part(descriptors, fields.le32(lengths + 4));
    if (file.isInline() && bytes.size() < file.m_size)
        throw DiscError(u"Диск поврежден: описание файла на нем неверно."_s);
    file.m_descriptors = bytes.toByteArray();
    return file;
}

std::vector<UdfExtent> UdfFile::extents(const UdfSpace& space) const
{
    std::vector<UdfExtent> extents;
    if (isInline()) return extents;

    // Each extent but the last one fills a block of the medium at least (4/12.1), and each continuation (4/14.5) leads
    // to an extent. A few may be wasted.
    constexpr qint64 wasted = 16, mostPieces = 1 << 20;
    const qint64 blocks = std::min(m_size, space.medium().size()) / space.blockSize();
    const qint64 most = std::min(wasted + blocks, mostPieces);
    const auto throwEndless = [] { throw DiscError(u"Диск поврежден: список частей файла не имеет конца."_s); };

    const int step = m_allocation == shortForm ? 8 : m_allocation == longForm ? 16 : 20;
    QByteArray descriptors = m_descriptors;
    qint64 total = 0, continuations = 0;
    for (qint64 at = 0; total < m_size && at + step <= descriptors.size(); at += step) {
        const Fields fields(descriptors);
        const quint32 first = fields.le32(at);
        const quint32 length = ExtentLength(first);
        if (!length) break;

        const qint64 position = at + (m_allocation == extendedForm ? 12 : 4);
        UdfExtent extent{{fields.le32(position), m_at.partition}, length, first >> 30 == recordedExtent};
        if (m_allocation != shortForm) extent.start.partition = fields.le16(position + 4);
        if (first >> 30 == continuation) {
            if (++continuations > most) throwEndless();
            const QByteArray block = space.block(extent.start);
            ExpectTag(block, UdfTag::allocationExtent);
            descriptors = Fields(block).part(24, Fields(block).le32(20)).toByteArray();
            at = -step;
            continue;
        }
        if (std::ssize(extents) == most) throwEndless();
        extents.push_back(extent);
        total += length;
    }
    return extents;
}

QByteArray UdfFile::read(const UdfSpace& space, const std::vector<UdfExtent>& extents, qint64 offset,
                         qint64 length) const
{
    offset = std::min(offset, m_size);
    length = std::min(length, m_size - offset);
    if (isInline()) return m_descriptors.mid(offset, length);
    if (length > space.medium().size()) throw DiscError(u"Диск поврежден: файл на нем больше самого диска."_s);

    QByteArray result;
    for (const UdfExtent& extent : extents) {
        if (result.size() == length) break;
        if (offset < extent.length) {
            const qint64 wanted = std::min(length - result.size(), extent.length - offset);
            result += extent.recorded ? space.read(extent.start, offset, wanted) : QByteArray(wanted, 0);
        }
        offset = std::max<qint64>(0, offset - extent.length);
    }
    if (result.size() < length) throw DiscError(u"Диск поврежден: файл на нем короче, чем записано."_s);
    return result;
}
