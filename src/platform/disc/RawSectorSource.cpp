#include "platform/disc/RawSectorSource.h"

#include "platform/Literals.h"

#include <QMap>
#include <algorithm>

namespace {
constexpr int UserSize = 2048;
constexpr qint64 SectorsAtOnce = 32;

/// A whole sector tells its mode itself (ECMA-130, 14.2); sheets are known to be wrong about it.
int UserOffset(const char* sector, const SectorFormat& format)
{
    constexpr int modeByte = 15;
    if (format.size < RawSectorSize || sector[modeByte] < 1 || sector[modeByte] > 2) return format.user;
    return sector[modeByte] == 1 ? 16 : 24;
}
}

RawSectorSource::RawSectorSource(const DiscLayout& layout, const Open& open)
    : m_lastSession(quint32(std::max(0, layout.lastSession - LeadInFrames)))
{
    QMap<QString, std::shared_ptr<SectorSource>> files;
    for (const DataExtent& extent : layout.data) {
        auto& file = files[extent.path];
        if (!file) file = open(extent.path);
        const qint64 first = extent.frame - LeadInFrames;
        m_extents.push_back({extent, file, first, first + extent.sectors});
        m_size = (first + extent.sectors) * UserSize;
    }
}

QByteArray RawSectorSource::read(qint64 offset, qint64 length)
{
    if (offset < 0 || length < 0 || offset > m_size - length)
        throw DiscError(u"Образ диска короче, чем следует из его содержимого."_s);
    QByteArray bytes;
    bytes.reserve(length);
    while (bytes.size() < length) {
        const qint64 sector = (offset + bytes.size()) / UserSize;
        qint64 skip = (offset + bytes.size()) % UserSize;
        const Extent& extent = extentOf(sector);
        const SectorFormat& format = extent.place.format;
        const qint64 wanted = (skip + length - bytes.size() + UserSize - 1) / UserSize;
        const qint64 count = std::min({wanted, extent.end - sector, SectorsAtOnce});
        const QByteArray raw = extent.file->read(extent.place.offset + (sector - extent.first) * format.size,
                                                 count * format.size);
        for (qint64 i = 0; i < count; ++i) {
            const char* start = raw.constData() + i * format.size;
            bytes.append(start + UserOffset(start, format) + skip, std::min(UserSize - skip, length - bytes.size()));
            skip = 0;
        }
    }
    return bytes;
}

const RawSectorSource::Extent& RawSectorSource::extentOf(qint64 sector) const
{
    const auto extent = std::find_if(m_extents.begin(), m_extents.end(),
                                     [&](const Extent& e) { return sector < e.end; });
    if (extent == m_extents.end() || sector < extent->first)
        throw DiscError(u"Сектор %1 не принадлежит дорожке с данными."_s.arg(sector));
    return *extent;
}
