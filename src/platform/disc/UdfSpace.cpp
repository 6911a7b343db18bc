#include "platform/disc/UdfSpace.h"

#include "platform/Literals.h"

#include <algorithm>
#include <limits>

void UdfSpace::setPartition(quint16 number, std::unique_ptr<UdfPartition> partition)
{
    if (number >= m_partitions.size()) m_partitions.resize(number + 1u);
    m_partitions[number] = std::move(partition);
}

const UdfPartition& UdfSpace::partition(quint16 number) const
{
    if (number >= m_partitions.size() || !m_partitions[number])
        throw DiscError(u"Диск поврежден: раздел, на который он ссылается, не найден."_s);
    return *m_partitions[number];
}

QByteArray UdfSpace::read(UdfAddress start, qint64 skipped, qint64 length) const
{
    const UdfPartition& where = partition(start.partition);
    QByteArray result;
    while (result.size() < length) {
        const qint64 position = skipped + result.size();
        const qint64 block = start.block + position / m_blockSize, inside = position % m_blockSize;
        if (block > std::numeric_limits<quint32>::max())
            throw DiscError(u"Диск поврежден: данные, на которые он ссылается, лежат за его концом."_s);
        const UdfPartition::Run run = where.locate(static_cast<quint32>(block));
        const qint64 wanted = std::min(length - result.size(), run.count * m_blockSize - inside);
        result += m_medium->read(run.block * m_blockSize + inside, wanted);
    }
    return result;
}
