#include "platform/disc/Iso9660.h"

#include "platform/disc/Fields.h"
#include "platform/disc/NarrowText.h"
#include "platform/disc/VolumeSerial.h"

#include <QStringDecoder>
#include <algorithm>

static constexpr qint64 sectorSize = 2048;
static constexpr int firstDescriptor = 16, maximumDescriptors = 64;

namespace {
enum DescriptorType { primary = 1, supplementary = 2, terminator = 255 };
}

static QString DecodeUcs2(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf16BE, QStringDecoder::Flag::Stateless);
    return decoder(bytes.first(bytes.size() & ~qsizetype(1)));
}

/// UCS-2 level 1, 2 or 3 among the escape sequences (Joliet, "SVD Escape Sequences Field").
static bool IsJoliet(QByteArrayView descriptor)
{
    const QByteArrayView sequences = descriptor.sliced(88, 32);
    return std::ranges::any_of(std::initializer_list<const char*>{"%/@", "%/C", "%/E"},
                               [&](const char* level) { return sequences.contains(level); });
}

/// The descriptor whose names are used; empty when the session has none (ECMA-119 8).
Iso9660::Descriptor Iso9660::choose(SectorCache& medium, quint32 session)
{
    Descriptor chosen;
    for (int i = 0; i < maximumDescriptors; ++i) {
        const qint64 position = (qint64(session) + firstDescriptor + i) * sectorSize;
        if (position > medium.size() - sectorSize) break;
        const QByteArray bytes = medium.read(position, sectorSize);
        if (bytes.sliced(1, 5) != "CD001") break;
        const int type = static_cast<quint8>(bytes[0]);
        if (type == terminator) break;
        const bool joliet = type == supplementary && IsJoliet(bytes);
        if (joliet ? !chosen.joliet : type == primary && chosen.bytes.isEmpty()) {
            chosen.bytes = bytes;
            chosen.joliet = joliet;
        }
    }
    if (chosen.bytes.isEmpty()) return chosen;

    const Fields fields(chosen.bytes);
    chosen.blockSize = fields.le16(128);
    if (chosen.blockSize != 512 && chosen.blockSize != 1024 && chosen.blockSize != 2048)
        throw DiscError(u"Диск поврежден: неверный размер блока в описании тома."_s);
    const IsoRecord root = ParseIsoRecord(fields.part(156, 34));
    chosen.rootBlock = root.block;
    chosen.rootSize = root.size;
    return chosen;
}

static quint64 FolderPlace(quint32 block, quint32 size) { return quint64(block) << 32 | size; }

std::unique_ptr<Iso9660> Iso9660::open(const std::shared_ptr<SectorCache>& medium)
{
    Descriptor descriptor = choose(*medium, medium->lastSession());
    if (descriptor.bytes.isEmpty() && medium->lastSession()) descriptor = choose(*medium, 0);
    if (descriptor.bytes.isEmpty()) return nullptr;
    return std::unique_ptr<Iso9660>(new Iso9660(medium, descriptor));
}

Iso9660::Iso9660(const std::shared_ptr<SectorCache>& medium, const Descriptor& descriptor)
    : TreeFileSystem(FolderPlace(descriptor.rootBlock, descriptor.rootSize), medium->size()), m_medium(medium),
      m_descriptor(descriptor)
{
    if (m_descriptor.joliet) return;
    const QByteArray sector = m_medium->read(m_descriptor.rootBlock * m_descriptor.blockSize, sectorSize);
    IsoRecordReader reader(sector);
    if (reader.next()) m_rockRidge = RockRidge::detect(reader.record().systemUse);
}

VolumeProperties Iso9660::volume()
{
    constexpr quint32 caseSensitive = 0x1, unicode = 0x4, readOnly = 0x80000;
    const QByteArrayView label = QByteArrayView(m_descriptor.bytes).sliced(40, 32);
    VolumeProperties properties;
    properties.success = true;
    properties.label = m_descriptor.joliet ? DecodeUcs2(label) : DecodeNarrow(label);
    properties.label = properties.label.remove(QChar(u'\0')).trimmed();
    properties.serial = IsoSerial(m_descriptor.bytes);
    properties.maximumComponentLength = m_descriptor.joliet || !hasLongNames() ? 110 : 221;
    properties.flags = caseSensitive | readOnly | (m_descriptor.joliet ? unicode : 0);
    properties.fileSystem = u"CDFS"_s;
    return properties;
}

/// ECMA-119 8.4.8. Of a later session some count from its own beginning, which claims less.
qint64 Iso9660::claimedSize() const { return Fields(m_descriptor.bytes).both32(80) * m_descriptor.blockSize; }

qint64 Iso9660::folderSize(quint64 place) { return static_cast<quint32>(place); }

std::vector<TreeFileSystem::Node> Iso9660::folder(quint64 place)
{
    const qint64 start = qint64(place >> 32) * m_descriptor.blockSize;
    const QByteArray records = m_medium->read(start, folderSize(place));
    qint64 areas = 1024 + records.size() / 32; // no record is shorter, and few go on outside of the folder
    std::vector<Node> nodes;
    bool goesOn = false; // the record is a further section of the file before it (6.5.1)
    for (IsoRecordReader reader(records); reader.next();) {
        const IsoRecord& record = reader.record();
        if (record.isDot() || record.has(IsoRecord::associatedFlag)) continue;
        if (goesOn) {
            nodes.back().entry.size += record.size;
            goesOn = record.has(IsoRecord::goesOnFlag);
            continue;
        }
        RockRidgeEntry extension;
        if (m_rockRidge) extension = m_rockRidge->read(record, *m_medium, m_descriptor.blockSize, areas);
        if (extension.relocated) continue;
        Node node;
        node.entry.name = extension.name.isEmpty() ? name(record) : DecodeNarrow(extension.name);
        node.entry.folder = record.has(IsoRecord::folderFlag) || extension.childLink;
        node.entry.hidden = record.has(IsoRecord::hiddenFlag) || node.entry.name.startsWith(u'.');
        if (extension.childLink) {
            node.place = linkedFolder(*extension.childLink);
        } else if (node.entry.folder) {
            node.place = FolderPlace(record.block, record.size);
        } else {
            node.entry.size = record.size;
            node.place = static_cast<quint64>(start + reader.position());
            goesOn = record.has(IsoRecord::goesOnFlag);
        }
        nodes.push_back(std::move(node));
    }
    return nodes;
}

/// The record's own name, without a version and, what no desktop system shows, a final dot.
QString Iso9660::name(const IsoRecord& record) const
{
    QString name = m_descriptor.joliet ? DecodeUcs2(record.identifier) : DecodeNarrow(record.identifier);
    if (const qsizetype version = name.lastIndexOf(u';'); version > 0 && !record.has(IsoRecord::folderFlag)) {
        const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
        if (std::ranges::all_of(QStringView(name).sliced(version + 1), isDigit)) name.truncate(version);
    }
    while (name.size() > 1 && name.endsWith(u'.')) name.chop(1);
    return name;
}

/// A link tells no size; the folder's record of itself does.
quint64 Iso9660::linkedFolder(quint32 block)
{
    const QByteArray sector = m_medium->read(block * m_descriptor.blockSize, sectorSize);
    IsoRecordReader reader(sector);
    if (!reader.next() || !reader.record().isDot())
        throw DiscError(u"Диск поврежден: перемещенная папка не найдена."_s);
    return FolderPlace(block, reader.record().size);
}

QByteArray Iso9660::content(quint64 place, qint64 offset, qint64 length)
{
    constexpr qint64 longestFile = 64 * 1024; // of records: 256 sections and more, of up to 4 GiB each
    const qint64 position = static_cast<qint64>(place);
    const qint64 sector = position / sectorSize * sectorSize;
    const QByteArray records = m_medium->read(sector, std::min(longestFile, m_medium->size() - sector));

    QByteArray result;
    IsoRecordReader reader(records, position - sector);
    for (bool goesOn = true; goesOn && length > 0 && reader.next();) {
        const IsoRecord& record = reader.record();
        if (record.interleaved)
            throw DiscError(u"Файл записан на диск вперемежку с другими; такие файлы не читаются."_s);
        goesOn = record.has(IsoRecord::goesOnFlag);
        if (offset < record.size) {
            const qint64 wanted = std::min(length, record.size - offset);
            if (wanted > m_medium->size() - result.size())
                throw DiscError(u"Диск поврежден: файл на нем больше самого диска."_s);
            result += m_medium->read(record.block * m_descriptor.blockSize + offset, wanted);
            length -= wanted;
        }
        offset = std::max<qint64>(0, offset - record.size);
    }
    return result;
}

bool Iso9660::hasLongNames()
{
    if (m_rockRidge) return true;
    if (!m_longNames) {
        try {
            m_longNames = findLongName();
        } catch (const DiscError&) {
            m_longNames = false; // a damaged folder does not make the volume unknown: what was seen was short
        }
    }
    return *m_longNames;
}

/// Eight characters, or eight, a dot and three (ECMA-119 10.1).
static bool IsShort(QStringView name)
{
    const qsizetype dot = name.indexOf(u'.');
    const QStringView base = dot < 0 ? name : name.first(dot);
    const QStringView extension = dot < 0 ? QStringView() : name.sliced(dot + 1);
    return base.size() <= 8 && extension.size() <= 3;
}

/// Whether a name breaks the limits of level 1. All folders are looked at, since the path table (ECMA-119 9.4) holds
/// them in one piece, and the files of the first of them: a whole walk would take minutes in a drive.
bool Iso9660::findLongName()
{
    constexpr qint64 maximumTable = 1024 * 1024;
    constexpr qint64 maximumFolder = 256 * 1024;
    constexpr int maximumFolders = 32;
    const Fields descriptor(m_descriptor.bytes);
    const qint64 tableStart = descriptor.le32(140) * m_descriptor.blockSize;
    const QByteArray table = m_medium->read(tableStart, std::min<qint64>(descriptor.both32(132), maximumTable));
    const Fields fields(table);

    const auto holdsLongName = [&](quint64 place) {
        const auto isLong = [](const Node& node) { return !IsShort(node.entry.name); };
        return folderSize(place) <= maximumFolder && std::ranges::any_of(folder(place), isLong);
    };
    int folders = 0;
    for (qint64 at = 0; at + 8 < table.size();) {
        const int length = fields.u8(at);
        if (!length) break;
        if (length > 8) return true;
        if (folders++ < maximumFolders && holdsLongName(linkedFolder(fields.le32(at + 2)))) return true;
        at += 8 + length + length % 2;
    }
    return false;
}
