#pragma once

#include "platform/disc/SectorCache.h"
#include "platform/disc/UdfDescriptor.h"

#include <vector>

/// Where the blocks of one partition are on the medium. What the partition does not have throws DiscError.
class UdfPartition {
public:
    struct Run {
        qint64 block = 0; ///< of the medium
        qint64 count = 0; ///< at least 1: so many blocks from the one asked for on stand there side by side
    };
    virtual ~UdfPartition() = default;
    virtual Run locate(quint32 block) const = 0;
};

/// The blocks of a logical volume, addressed by partition.
class UdfSpace {
public:
    UdfSpace(std::shared_ptr<SectorCache> medium, qint64 blockSize)
        : m_medium(std::move(medium)), m_blockSize(blockSize)
    {}

    SectorCache& medium() const { return *m_medium; }
    qint64 blockSize() const { return m_blockSize; }

    void setPartition(quint16 number, std::unique_ptr<UdfPartition> partition);
    const UdfPartition& partition(quint16 number) const;

    /// Bytes from the beginning of a block on, through as many of the following ones as it takes; `skipped` of them left
    /// out.
    QByteArray read(UdfAddress start, qint64 skipped, qint64 length) const;
    QByteArray block(UdfAddress address) const { return read(address, 0, m_blockSize); }

private:
    std::shared_ptr<SectorCache> m_medium;
    qint64 m_blockSize;
    std::vector<std::unique_ptr<UdfPartition>> m_partitions;
};
