#include "platform/disc/SectorCache.h"

#include "platform/Literals.h"

#include <algorithm>

static constexpr qint64 chunkSize = 64 * 1024;
static constexpr size_t maximumChunks = 64;

QByteArray SectorCache::read(qint64 offset, qint64 length)
{
    if (offset < 0 || length < 0 || offset > size() || length > size() - offset)
        throw DiscError(u"Диск поврежден: данные, на которые он ссылается, лежат за его концом."_s);
    if (length > chunkSize) return m_source->read(offset, length);

    QByteArray result;
    result.reserve(length);
    while (result.size() < length) {
        const qint64 position = offset + result.size();
        const qint64 inside = position % chunkSize;
        const qint64 wanted = std::min(length - result.size(), chunkSize - inside);
        try {
            result.append(QByteArrayView(chunk(position / chunkSize)).sliced(inside, wanted));
        } catch (const DiscError&) {
            // One bad sector spoils its chunk; what is asked for may lie beside it.
            return m_source->read(offset, length);
        }
    }
    return result;
}

const QByteArray& SectorCache::chunk(qint64 number)
{
    const auto known = std::ranges::find(m_chunks, number, &Chunk::number);
    if (known != m_chunks.end()) {
        m_chunks.splice(m_chunks.begin(), m_chunks, known);
    } else {
        const qint64 start = number * chunkSize;
        m_chunks.push_front({number, m_source->read(start, std::min(chunkSize, size() - start))});
        if (m_chunks.size() > maximumChunks) m_chunks.pop_back();
    }
    return m_chunks.front().bytes;
}
