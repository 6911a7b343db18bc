#include "UdfImage.h"

#include <QtEndian>
#include <algorithm>

static void Put16(QByteArray& bytes, int at, quint16 value) { qToLittleEndian(value, bytes.data() + at); }
static void Put32(QByteArray& bytes, int at, quint32 value) { qToLittleEndian(value, bytes.data() + at); }

static quint16 Crc(const QByteArray& bytes)
{
    quint16 crc = 0;
    for (const char c : bytes) {
        crc ^= static_cast<quint8>(c) << 8;
        for (int bit = 0; bit < 8; ++bit) crc = crc & 0x8000 ? crc << 1 ^ 0x1021 : crc << 1;
    }
    return crc;
}

static char TagSum(const char* tag)
{
    quint8 sum = 0;
    for (int i = 0; i < 16; ++i) sum += i == 4 ? 0 : static_cast<quint8>(tag[i]);
    return static_cast<char>(sum);
}

static QByteArray Compressed(const QString& text)
{
    const bool wide = std::ranges::any_of(text, [](QChar c) { return c.unicode() > 255; });
    QByteArray bytes(1, wide ? 16 : 8);
    for (const QChar c : text) {
        if (wide) bytes += static_cast<char>(c.unicode() >> 8);
        bytes += static_cast<char>(c.unicode());
    }
    return bytes;
}

static QByteArray DString(const QString& text, int size)
{
    QByteArray bytes = Compressed(text);
    const int used = static_cast<int>(bytes.size());
    bytes.resize(size, 0);
    bytes[size - 1] = static_cast<char>(used);
    return bytes;
}

static QByteArray LongDescriptor(quint32 length, quint32 block, quint16 partition)
{
    QByteArray bytes(16, 0);
    Put32(bytes, 0, length);
    Put32(bytes, 4, block);
    Put16(bytes, 8, partition);
    return bytes;
}

QByteArray UdfImage::build(const Item& root)
{
    m_image = QByteArray(qsizetype(partitionStart + 64) * m_blockSize, 0);
    const quint32 fileSet = newEntry();
    const quint32 rootEntry = writeItem(root);

    QByteArray set(512, 0);
    set.replace(400, 16, LongDescriptor(m_blockSize, rootEntry, entryPartition()));
    seal(set, 256, fileSet, 512);
    write(medium(entryPartition(), fileSet), set);
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

void UdfImage::seal(QByteArray& descriptor, int tag, quint32 location, int size)
{
    Put16(descriptor, 0, tag);
    Put16(descriptor, 2, 3);
    Put16(descriptor, 10, size - 16);
    Put32(descriptor, 12, location);
    reseal(descriptor, {0});
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
        QByteArray one((38 + name.size() + 3) / 4 * 4, 0);
        Put16(one, 16, 1);
        one[18] = static_cast<char>(characteristics);
        one[19] = static_cast<char>(name.size());
        one.replace(20, 16, LongDescriptor(m_blockSize, block, entryPartition()));
        one.replace(38, name.size(), name);
        seal(one, 257, 0, static_cast<int>(38 + name.size()));
        all += one;
    };
    add({}, directory | 8, parent);
    for (const Item& child : folder.children) add(Compressed(child.name), child.characteristics, writeItem(child, own));
    return all;
}

quint32 UdfImage::writeItem(const Item& item, std::optional<quint32> parent)
{
    const bool isFolder = item.characteristics & directory;
    Item content = item;
    const quint32 block = newEntry();
    if (isFolder) content.bytes = identifiers(item, block, parent.value_or(block));
    write(medium(entryPartition(), block), entry(isFolder ? 4 : 5, content, block, entryPartition()));
    return block;
}

QByteArray UdfImage::entry(quint8 type, const Item& item, quint32 location, quint16 partition)
{
    const bool extended = m_kind == metadata;
    const int lengths = extended ? 208 : 168;
    const QByteArray tail = item.form == inlineForm ? item.bytes : descriptors(item, partition);
    QByteArray bytes(lengths + 8, 0);
    Put16(bytes, 20, 4);
    bytes[27] = static_cast<char>(type);
    Put16(bytes, 34, item.form);
    qToLittleEndian<quint64>(item.bytes.size(), bytes.data() + 56);
    Put32(bytes, lengths + 4, static_cast<quint32>(tail.size()));
    bytes += tail;
    Q_ASSERT(bytes.size() <= m_blockSize);
    seal(bytes, extended ? 266 : 261, location, static_cast<int>(bytes.size()));
    return bytes;
}

/// A block per piece, with a gap between them; pieces of zeros are not recorded. Short descriptors cannot name the
/// partition, so their data and continuations stand in the entry's own.
QByteArray UdfImage::descriptors(const Item& item, quint16 partition)
{
    const quint16 where = item.form == shortForm ? partition : 0;
    const auto newBlock = [&] { return where ? newEntry() : (m_nextData += 2) - 1; };
    const auto descriptor = [&](quint32 length, quint32 block) {
        QByteArray bytes = LongDescriptor(length, block, where);
        if (item.form == shortForm) bytes.truncate(8);
        if (item.form == extendedForm)
            bytes = bytes.first(4) + bytes.first(4) + bytes.first(4) + bytes.sliced(4, 6) + QByteArray(2, 0);
        return bytes;
    };
    QList<QByteArray> blocks{{}};
    int count = 0;
    for (qsizetype at = 0; at < item.bytes.size(); at += m_blockSize) {
        if (count++ == item.descriptorsPerBlock) {
            blocks.append(QByteArray());
            count = 1;
        }
        const QByteArray piece = item.bytes.mid(at, m_blockSize);
        const auto length = static_cast<quint32>(piece.size());
        if (piece.count('\0') == piece.size()) {
            blocks.last() += descriptor(length | 0x80000000, 0);
        } else {
            const quint32 block = newBlock();
            write(medium(where, block), piece);
            blocks.last() += descriptor(length, block);
        }
    }
    while (blocks.size() > 1) {
        QByteArray extent(24, 0);
        const QByteArray last = blocks.takeLast();
        Put32(extent, 20, static_cast<quint32>(last.size()));
        extent += last;
        const quint32 block = newBlock();
        seal(extent, 258, block, static_cast<int>(extent.size()));
        write(medium(where, block), extent);
        blocks.last() += descriptor(m_blockSize | 0xC0000000, block);
    }
    return blocks.first();
}

QByteArray UdfImage::maps() const
{
    QByteArray physical(6, 0), other(64, 0);
    physical[0] = 1;
    physical[1] = 6;
    other[0] = 2;
    other[1] = 64;
    const char* names[] = {"", "*UDF Sparable Partition", "*UDF Virtual Partition", "*UDF Virtual Partition",
                           "*UDF Metadata Partition"};
    other.replace(5, qstrlen(names[m_kind]), names[m_kind]);
    if (m_kind == sparable) {
        Put16(other, 40, packet);
        other[42] = 1;
        Put32(other, 44, 512);
        Put32(other, 48, sparingTable);
        return other;
    }
    if (m_kind == metadata) {
        Put32(other, 40, 1500);
        Put32(other, 44, 1501);
    }
    return m_kind == plain ? physical : physical + other;
}

void UdfImage::writeVolume()
{
    constexpr quint32 sequence = 260;
    const int step = std::max(2048, m_blockSize);
    const char* recognition[] = {"BEA01", "NSR03", "TEA01"};
    for (int i = 0; i < 3; ++i) m_image.replace(32768 + i * step + 1, 5, recognition[i]);

    QByteArray anchor(512, 0);
    Put32(anchor, 16, 16 * m_blockSize);
    Put32(anchor, 20, sequence);
    seal(anchor, 2, 256, 512);
    write(256, anchor);

    QByteArray partition(512, 0);
    Put32(partition, 188, partitionStart);
    Put32(partition, 192, partitionLength);
    seal(partition, 5, sequence, 512);
    write(sequence, partition);

    const QByteArray map = maps();
    QByteArray logical(440, 0);
    logical.replace(84, 128, DString(QStringLiteral("Том"), 128));
    Put32(logical, 212, m_blockSize);
    logical.replace(248, 16, LongDescriptor(m_blockSize, 0, entryPartition()));
    Put32(logical, 264, static_cast<quint32>(map.size()));
    Put32(logical, 268, map.size() > 64 ? 2 : 1);
    logical += map;
    seal(logical, 6, sequence + 1, static_cast<int>(logical.size()));
    write(sequence + 1, logical);
    QByteArray end(512, 0);
    seal(end, 8, sequence + 2, 512);
    write(sequence + 2, end);

    if (m_kind == sparable) {
        QByteArray table(512, 0);
        table.replace(17, 18, "*UDF Sparing Table");
        Put16(table, 48, 2);
        Put32(table, 56, 0);
        Put32(table, 60, sparePlace);
        Put32(table, 64, 0xFFFFFFFF);
        seal(table, 0, sparingTable, 512);
        write(sparingTable, table);
    }
    if (m_kind == metadata) {
        QByteArray extents(16, 0);
        Put32(extents, 0, metadataSplit * m_blockSize);
        Put32(extents, 4, 3000);
        Put32(extents, 8, 500 * m_blockSize);
        Put32(extents, 12, 2000);
        for (const quint32 copy : {0u, 1u}) {
            QByteArray file(216, 0);
            Put16(file, 20, 4);
            file[27] = static_cast<char>(250 + copy);
            qToLittleEndian<quint64>((metadataSplit + 500) * m_blockSize, file.data() + 56);
            Put32(file, 212, 16);
            file += extents;
            seal(file, 266, 1500 + copy, static_cast<int>(file.size()));
            write(partitionStart + 1500 + copy, file);
        }
    }
}

void UdfImage::writeTable()
{
    QByteArray numbers(m_table.size() * 4, 0);
    for (int i = 0; i < m_table.size(); ++i) Put32(numbers, i * 4, m_table[i]);
    QByteArray header, trailer;
    if (m_kind == virtualNew) {
        header = QByteArray(152, 0);
        Put16(header, 0, 152);
        header.replace(4, 128, DString(QStringLiteral("Имя из таблицы"), 128));
    } else {
        trailer = QByteArray(36, 0);
        trailer.replace(1, 22, "*UDF Virtual Alloc Tbl");
    }
    const Item table{{}, header + numbers + trailer, shortForm};
    const quint8 type = m_kind == virtualNew ? 248 : 0;
    // Its own pieces are written on the way, so its place is known afterwards: once for the size, once for good.
    const QByteArray draft = entry(type, table, 0, 0);
    const quint32 place = static_cast<quint32>(m_image.size() / m_blockSize);
    QByteArray last = draft;
    seal(last, 261, place - partitionStart, static_cast<int>(last.size()));
    write(place, last);
}
