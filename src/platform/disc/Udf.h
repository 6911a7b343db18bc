#pragma once

#include "platform/disc/TreeFileSystem.h"
#include "platform/disc/UdfFile.h"
#include "platform/disc/UdfVolume.h"

#include <optional>

/// ECMA-167 volumes as OSTA UDF 1.02 to 2.60 write them: pressed, packet-written, on write-once media and hard disks.
class Udf : public TreeFileSystem {
public:
    /// Null when the medium is not marked as one. Throws DiscError when the volume cannot be found or understood.
    static std::unique_ptr<Udf> open(const std::shared_ptr<SectorCache>& medium);

    VolumeProperties volume() override { return m_properties; }
    qint64 claimedSize() const override { return m_claimedSize; }

protected:
    qint64 folderSize(quint64 place) override;
    std::vector<Node> folder(quint64 place) override;
    QByteArray content(quint64 place, qint64 offset, qint64 length) override;

private:
    struct OpenFile {
        quint64 place = 0;
        UdfFile file;
        std::vector<UdfExtent> extents;
    };
    Udf(std::unique_ptr<UdfSpace> space, const UdfVolume& volume, UdfAddress root, quint32 serial);

    std::unique_ptr<UdfSpace> m_space;
    VolumeProperties m_properties;
    qint64 m_claimedSize;
    std::optional<OpenFile> m_lastFile; ///< a file is mostly read in several parts
};
