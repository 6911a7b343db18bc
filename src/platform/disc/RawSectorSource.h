#pragma once

#include "platform/disc/DiscLayout.h"

#include <vector>

/// The user data of a disc's data tracks, whatever the sectors look like in the image: 2048 bytes out of sectors of mode 1
/// or mode 2 form 1, with or without their headers, error codes and subchannels. What no data track covers is damage.
class RawSectorSource final : public SectorSource {
public:
    /// Opens the file of a path once, however many extents name it.
    using Open = std::function<std::shared_ptr<SectorSource>(const QString& path)>;
    RawSectorSource(const DiscLayout& layout, const Open& open);

    qint64 size() const override { return m_size; }
    QByteArray read(qint64 offset, qint64 length) override;
    quint32 lastSession() const override { return m_lastSession; }

private:
    struct Extent {
        DataExtent place;
        std::shared_ptr<SectorSource> file;
        qint64 first, end; ///< sectors of the disc
    };
    const Extent& extentOf(qint64 sector) const;

    std::vector<Extent> m_extents;
    qint64 m_size = 0;
    quint32 m_lastSession = 0;
};
