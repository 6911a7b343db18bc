#pragma once

#include "platform/disc/RockRidge.h"
#include "platform/disc/SectorCache.h"
#include "platform/disc/TreeFileSystem.h"

/// ECMA-119 with the names of Joliet, else of Rock Ridge, else its own without version and final dot. The last session's
/// descriptors decide; all block numbers are absolute.
class Iso9660 : public TreeFileSystem {
public:
    /// Null when the medium has no volume descriptors. Throws DiscError when they make no sense.
    static std::unique_ptr<Iso9660> open(const std::shared_ptr<SectorCache>& medium);

    VolumeProperties volume() override;
    qint64 claimedSize() const override;

protected:
    qint64 folderSize(quint64 place) override;
    std::vector<Node> folder(quint64 place) override;
    QByteArray content(quint64 place, qint64 offset, qint64 length) override;

private:
    struct Descriptor {
        QByteArray bytes;
        bool joliet = false;
        qint64 blockSize = 2048;
        quint32 rootBlock = 0, rootSize = 0;
    };
    static Descriptor choose(SectorCache& medium, quint32 session);
    Iso9660(const std::shared_ptr<SectorCache>& medium, const Descriptor& descriptor);

    QString name(const IsoRecord& record) const;
    quint64 linkedFolder(quint32 block);
    bool hasLongNames();
    bool findLongName();

    std::shared_ptr<SectorCache> m_medium;
    Descriptor m_descriptor;
    std::optional<RockRidge> m_rockRidge;
    std::optional<bool> m_longNames;
};
