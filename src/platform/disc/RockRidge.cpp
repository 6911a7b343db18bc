#include "platform/disc/RockRidge.h"

#include "platform/disc/Fields.h"

static constexpr int maximumAreas = 8;
static constexpr quint32 maximumArea = 4096;
static constexpr qsizetype maximumName = 255;

namespace {
struct Continuation {
    quint32 block = 0, offset = 0, length = 0;
};
}

static constexpr quint16 signature(const char (&name)[3]) { return static_cast<quint16>(name[0] | name[1] << 8); }

/// NM (RRIP 4.1.4): flags, then a piece of the name. Flagged pieces stand for the folder itself or the one above.
static void AddName(const Fields& entry, QByteArray& name)
{
    constexpr quint8 current = 2, parent = 4;
    if (entry.u8(4) & (current | parent)) return;
    name.append(entry.part(5, entry.size() - 5));
    if (name.size() > maximumName) throw DiscError(u"Диск поврежден: имя файла на нем слишком длинное."_s);
}

/// Takes up the entries of one area (SUSP 4.1) and gives the next area, if there is one.
static std::optional<Continuation> ReadArea(QByteArrayView area, RockRidgeEntry& result)
{
    std::optional<Continuation> next;
    const Fields fields(area);
    for (qint64 at = 0; at + 4 <= area.size();) {
        const int length = fields.u8(at + 2);
        if (length < 4) break; // padding
        const Fields entry(fields.part(at, length));
        switch (entry.le16(0)) {
        case signature("CE"): next = Continuation{entry.both32(4), entry.both32(12), entry.both32(20)}; break;
        case signature("NM"): AddName(entry, result.name); break;
        case signature("CL"): result.childLink = entry.both32(4); break;
        case signature("RE"): result.relocated = true; break;
        case signature("ST"): return next;
        }
        at += length;
    }
    return next;
}

std::optional<RockRidge> RockRidge::detect(QByteArrayView rootSystemUse)
{
    // SP (SUSP 5.3) comes first, or right after the 14 bytes of CD-ROM XA.
    for (const int at : {0, 14}) {
        if (rootSystemUse.size() < at + 7) break;
        const QByteArrayView entry = rootSystemUse.sliced(at, 7);
        if (entry.startsWith("SP\x07\x01\xbe\xef")) return RockRidge(static_cast<quint8>(entry[6]));
    }
    return std::nullopt;
}

RockRidgeEntry RockRidge::read(const IsoRecord& record, SectorCache& medium, qint64 blockSize, qint64& areas) const
{
    RockRidgeEntry result;
    if (record.systemUse.size() <= m_skipped) return result;

    auto next = ReadArea(record.systemUse.sliced(m_skipped), result);
    for (int own = 0; next; ++own, --areas) {
        if (own == maximumAreas || areas <= 0 || next->length > maximumArea)
            throw DiscError(u"Диск поврежден: описание файла на нем слишком длинное."_s);
        const QByteArray area = medium.read(next->block * blockSize + next->offset, next->length);
        next = ReadArea(area, result);
    }
    return result;
}
