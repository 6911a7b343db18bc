#pragma once

#include "platform/disc/Disc.h"

#include <list>

/// The sectors of a medium behind a few of its last read chunks. A folder's listing touches many small pieces that lie
/// close together; a drive, and a decoder of raw sectors as well, wants to read them in one go.
class SectorCache : public SectorSource {
public:
    explicit SectorCache(std::shared_ptr<SectorSource> source) : m_source(std::move(source)), m_size(m_source->size())
    {}

    qint64 size() const override { return m_size; }
    quint32 lastSession() const override { return m_source->lastSession(); }
    QByteArray read(qint64 offset, qint64 length) override;

private:
    struct Chunk {
        qint64 number;
        QByteArray bytes;
    };
    const QByteArray& chunk(qint64 number);

    std::shared_ptr<SectorSource> m_source;
    qint64 m_size;
    std::list<Chunk> m_chunks; ///< the last used first
};
