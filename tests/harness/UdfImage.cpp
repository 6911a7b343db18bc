#include "UdfImage.h"

#include <QtEndian>
#include <algorithm>

namespace {
/// A descriptor in the making: numbers and bytes, each put at its position.
class Bytes : public QByteArray {
public:
    explicit Bytes(qsizetype size) : QByteArray(size, 0) {}

    Bytes& u8(int at, int value) { return number(at, static_cast<quint8>(value)); }
    Bytes& u16(int at, qsizetype value) { return number(at, static_cast<quint16>(value)); }
    Bytes& u32(int at, qsizetype value) { return number(at, static_cast<quint32>(value)); }
    Bytes& u64(int at, qsizetype value) { return number(at, static_cast<quint64>(value)); }
    Bytes& part(int at, const QByteArray& bytes) { return replace(at, bytes.size(), bytes), *this; }

private:
    template<class Number> Bytes& number(int at, Number value) { return qToLittleEndian(value, data() + at), *this; }
};

quint16 Crc(const QByteArray& bytes)
{
    quint16 crc = 0;
    for (const char c : bytes) {
        crc ^= static_cast<quint8>(c) << 8;
        for (int bit = 0; bit < 8; ++bit) crc = crc & 0x8000 ? crc << 1 ^ 0x1021 : crc << 1;
    }
    return crc;
}

char TagSum(const char* tag)
{
    quint8 sum = 0;
    for (int i = 0; i < 16; ++i) sum += i == 4 ? 0 : static_cast<quint8>(tag[i]);
    return static_cast<char>(sum);
}

/// The descriptor with its tag.
QByteArray Sealed(int tag, quint32 location, const QByteArray& descriptor)
{
    const Bytes head = Bytes(16).u16(0, tag).u16(2, 3).u16(10, descriptor.size() - 16).u32(12, location);
    QByteArray sealed = head + descriptor.sliced(16);
    UdfImage::reseal(sealed, {0});
    return sealed;
}

QByteArray Compressed(const QString& text)
{
    const bool wide = std::ranges::any_of(text, [](QChar c) { return c.unicode() > 255; });
    QByteArray bytes(1, wide ? 16 : 8);
    for (const QChar c : text) {
        if (wide) bytes += static_cast<char>(c.unicode() >> 8);
        bytes += static_cast<char>(c.unicode());
    }
    return bytes;
}

QByteArray DString(const QString& text)
{
    const QByteArray bytes = Compressed(text);
    return bytes.leftJustified(127, '\0') + static_cast<char>(bytes.size());
}

QByteArray LongDescriptor(quint32 length, quint32 block, quint16 partition)
{
    return Bytes(16).u32(0, length).u32(4, block).u16(8, partition);
}
}

QByteArray UdfImage::build(const Item& root)
{
    m_image = QByteArray(qsizetype(partitionStart + 64) * m_blockSize, 0);
    const quint32 fileSet = newEntry();
    const QByteArray rootEntry = LongDescriptor(m_blockSize, writeItem(root), entryPartition());
    write(medium(entryPartition(), fileSet), Sealed(256, fileSet, Bytes(512).part(400, rootEntry)));
    writeVolume();
    if (m_kind == virtualOld || m_kind == virtualNew) writeTable();
    return m_image;
}

/// Entries of a virtual partition stand behind the data, in an order of their own.
quint32 UdfImage::newEntry()
{
    if (m_kind != virtualOld && m_kind != virtualNew) return m_nextEntry++ < 64 ? m_nextEntry - 1 : m_nextData++;
    m_nextData += 2;
    m_table.append(m_nextData - 1);
    return static_cast<quint32>(m_table.size() - 1);
}

quint32 UdfImage::medium(quint16 partition, quint32 block) const
{
    if (partition == 1 && m_kind == metadata)
        block = block < metadataSplit ? 3000 + block : 2000 + block - metadataSplit;
    else if (partition == 1)
        block = m_table[block];
    if (m_kind == sparable && block < packet) return sparePlace + block;
    return partitionStart + block;
}

void UdfImage::write(quint32 mediumBlock, const QByteArray& bytes)
{
    const qsizetype at = qsizetype(mediumBlock) * m_blockSize;
    const qsizetype end = (at + bytes.size() + m_blockSize - 1) / m_blockSize * m_blockSize;
    if (m_image.size() < end) m_image.resize(end, 0);
    m_image.replace(at, bytes.size(), bytes);
}

void UdfImage::reseal(QByteArray& image, const QList<qsizetype>& places)
{
    for (auto place = places.crbegin(); place != places.crend(); ++place) {
        char* const tag = image.data() + *place;
        const qsizetype end = *place + 16 + qFromLittleEndian<quint16>(tag + 10);
        qToLittleEndian(Crc(image.mid(*place + 16, std::min(end, image.size()) - *place - 16)), tag + 8);
        tag[4] = TagSum(tag);
    }
}

QList<qsizetype> UdfImage::descriptors(const QByteArray& image)
{
    QList<qsizetype> places;
    for (qsizetype at = 0; at + 16 <= image.size(); at += 4) {
        const bool version = image[at + 2] == 3 && image[at + 3] == 0;
        if (version && TagSum(image.data() + at) == image[at + 4]) places.append(at);
    }
    return places;
}

QByteArray UdfImage::identifiers(const Item& folder, quint32 own, quint32 parent)
{
    QByteArray all;
    const auto add = [&](const QByteArray& name, quint8 characteristics, quint32 block) {
        const Bytes head = Bytes(38)
                               .u16(16, 1)
                               .u8(18, characteristics)
                               .u8(19, static_cast<int>(name.size()))
                               .part(20, LongDescriptor(m_blockSize, block, entryPartition()));
        all += Sealed(257, 0, head + name).leftJustified((38 + name.size() + 3) / 4 * 4, '\0');
    };
    add({}, directory | 8, parent);
    for (const Item& child : folder.children) add(Compressed(child.name), child.characteristics, writeItem(child, own));
    return all;
}

quint32 UdfImage::writeItem(const Item& item, std::optional<quint32> parent)
{
    const bool isFolder = item.characteristics & directory;
    Item content = item;
    quint32 block = newEntry();
    if (isFolder) content.bytes = identifiers(item, block, parent.value_or(block));
    write(medium(entryPartition(), block), entry(isFolder ? 4 : 5, content, block, entryPartition()));
    for (int i = 0; i < item.olderEntries; ++i) {
        const quint32 older = m_nextData;
        m_nextData += 2;
        write(medium(0, older), entry(5, {}, older, 0, 4096));
        const Bytes indirect = Bytes(52).part(36, LongDescriptor(m_blockSize, block, 0));
        write(medium(0, older + 1), Sealed(259, older + 1, indirect));
        block = older;
    }
    return block;
}

QByteArray UdfImage::entry(quint8 type, const Item& item, quint32 location, quint16 partition, int strategy)
{
    const bool extended = m_kind == metadata;
    const int lengths = extended ? 208 : 168;
    const QByteArray tail = item.form == inlineForm ? item.bytes : descriptors(item, partition);
    Bytes head = Bytes(lengths + 8).u16(20, strategy).u8(27, type).u16(34, item.form);
    head.u64(56, item.bytes.size()).u32(lengths + 4, tail.size());
    Q_ASSERT(head.size() + tail.size() <= m_blockSize);
    return Sealed(extended ? 266 : 261, location, head + tail);
}

/// A block per piece, with a gap between them; pieces of zeros are not recorded. Short descriptors cannot name the
/// partition, so their data and continuations stand in the entry's own.
QByteArray UdfImage::descriptors(const Item& item, quint16 partition)
{
    const quint16 where = item.form == shortForm ? partition : 0;
    const auto writeBlock = [&](auto bytesFor) {
        const quint32 block = where ? newEntry() : (m_nextData += 2) - 1;
        write(medium(where, block), bytesFor(block));
        return block;
    };
    const auto descriptor = [&](quint32 length, quint32 block) {
        const QByteArray bytes = LongDescriptor(length, block, where);
        if (item.form == shortForm) return bytes.first(8);
        if (item.form == longForm) return bytes;
        return bytes.first(4) + bytes.first(4) + bytes.first(4) + bytes.sliced(4, 6) + QByteArray(2, 0);
    };
    QList<QByteArray> pieces;
    for (qsizetype at = 0; at < item.bytes.size(); at += m_blockSize) {
        const QByteArray piece = item.bytes.mid(at, m_blockSize);
        const auto length = static_cast<quint32>(piece.size());
        const bool blank = piece.count('\0') == piece.size();
        pieces += blank ? descriptor(length | 0x80000000, 0)
                        : descriptor(length, writeBlock([&](quint32) { return piece; }));
    }
    const qsizetype perBlock = item.descriptorsPerBlock;
    QByteArray chunk;
    for (qsizetype first = std::max<qsizetype>(pieces.size() - 1, 0) / perBlock * perBlock;; first -= perBlock) {
        chunk = pieces.mid(first, perBlock).join() + chunk;
        if (!first) return chunk;
        const quint32 next = writeBlock(
            [&](quint32 block) { return Sealed(258, block, Bytes(24).u32(20, chunk.size()) + chunk); });
        chunk = descriptor(m_blockSize | 0xC0000000, next);
    }
}

QByteArray UdfImage::maps() const
{
    const char* names[] = {"", "*UDF Sparable Partition", "*UDF Virtual Partition", "*UDF Virtual Partition",
                           "*UDF Metadata Partition"};
    Bytes other = Bytes(64).u8(0, 2).u8(1, 64).part(5, names[m_kind]);
    if (m_kind == sparable) other.u16(40, packet).u8(42, 1).u32(44, 512).u32(48, sparingTable);
    if (m_kind == metadata) other.u32(40, 1500).u32(44, 1501);
    const QByteArray physical = Bytes(6).u8(0, 1).u8(1, 6);
    return m_kind == plain ? physical : m_kind == sparable ? QByteArray(other) : physical + other;
}

void UdfImage::writeVolume()
{
    constexpr quint32 sequence = 260;
    const int step = std::max(2048, m_blockSize);
    const char* recognition[] = {"BEA01", "NSR03", "TEA01"};
    for (int i = 0; i < 3; ++i) m_image.replace(32768 + i * step + 1, 5, recognition[i]);

    const QByteArray map = maps();
    const auto descriptor = [&](int tag, quint32 block, const QByteArray& bytes) {
        write(block, Sealed(tag, block, bytes));
    };
    descriptor(2, 256, Bytes(512).u32(16, 16 * m_blockSize).u32(20, sequence));
    descriptor(5, sequence, Bytes(512).u32(188, partitionStart).u32(192, partitionLength));
    Bytes logical = Bytes(440).part(84, DString("Том")).u32(212, m_blockSize);
    logical.part(248, LongDescriptor(m_blockSize, 0, entryPartition()));
    descriptor(6, sequence + 1, logical.u32(264, map.size()).u32(268, map.size() > 64 ? 2 : 1) + map);
    descriptor(8, sequence + 2, Bytes(512));
    if (m_kind == sparable) {
        Bytes table = Bytes(512).part(17, "*UDF Sparing Table").u16(48, 2);
        descriptor(0, sparingTable, table.u32(60, sparePlace).u32(64, 0xFFFFFFFF));
    }
    if (m_kind != metadata) return;
    const Bytes extents =
        Bytes(16).u32(0, metadataSplit * m_blockSize).u32(4, 3000).u32(8, 500 * m_blockSize).u32(12, 2000);
    for (const quint32 copy : {0u, 1u}) {
        Bytes file = Bytes(216).u16(20, 4).u8(27, 250 + static_cast<int>(copy));
        file.u64(56, (metadataSplit + 500) * m_blockSize).u32(212, 16);
        write(partitionStart + 1500 + copy, Sealed(266, 1500 + copy, file + extents));
    }
}

void UdfImage::writeTable()
{
    Bytes numbers(m_table.size() * 4);
    for (int i = 0; i < m_table.size(); ++i) numbers.u32(i * 4, m_table[i]);
    const QByteArray bytes = m_kind == virtualNew ? Bytes(152).u16(0, 152).part(4, DString("Имя из таблицы")) + numbers
                                                  : numbers + Bytes(36).part(1, "*UDF Virtual Alloc Tbl");
    // Its own pieces are written on the way, so its place is known afterwards.
    const QByteArray draft = entry(m_kind == virtualNew ? 248 : 0, {{}, bytes, shortForm}, 0, 0);
    const auto place = static_cast<quint32>(m_image.size() / m_blockSize);
    write(place, Sealed(261, place - partitionStart, draft));
}
